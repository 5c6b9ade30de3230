// The verbs and options come from the command line itself, so none is forgotten; what stands for
// their values is in the two tables below.
#include "CompletionsCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <vector>

#include "CliCharset.h"
#include "CliHelp.h"
#include "CliOutput.h"
#include "EncodeCommand.h"

namespace lumnis {

namespace {

constexpr char theCompletionsExamples[] =
    "Examples:\n"
    "  lumnis completions bash >~/.local/share/bash-completion/completions/lumnis\n"
    "  lumnis completions zsh >~/.zfunc/_lumnis\n"
    "  lumnis completions fish >~/.config/fish/completions/lumnis.fish\n";

using Words = std::vector<std::string>;

Words copied(const std::vector<std::string_view>& theNames) {
    Words result;
    for (const std::string_view name : theNames) {
        // ":" and "=" part words in bash, and "(" begins a list in zsh; each charset has a plain
        // name.
        if (name.find_first_of(":=()") == std::string_view::npos) {
            result.emplace_back(name);
        }
    }
    return result;
}

// Words that the value of an option is one of.
Words wordsOf(const std::string& theOption) {
    if (theOption == "charset" || theOption == "input-charset") {
        return copied(charsetNames());
    }
    if (theOption == "media-type") {
        return copied(EncodeCommand::mediaTypes());
    }
    if (theOption == "error-format") {
        return {"gcc", "json", "raw"};
    }
    if (theOption == "format") {
        return {"wbxml", "script"};
    }
    return {};
}

struct FileRow {
    std::string_view verb;
    std::vector<std::string_view> suffixes;  // of the files that it takes
};

const std::vector<FileRow>& fileRows() {
    static const std::vector<FileRow> rows = {
        {"encode", {"wml", "wta", "xml"}},
        {"compile", {"wmls"}},
        {"check", {"xml", "wml", "wta"}},
        {"dump", {"wmlc", "wmlsc", "wbxml"}},
    };
    return rows;
}

// What a verb or an option of it is, for all three shells.
struct OptionEntry {
    std::string shortName;  // without "-", or empty
    std::string longName;   // without "--"
    std::string purpose;    // a few words
    bool hasValue = false;
    bool isPath = false;  // the value is a file
    Words words;          // the value is one of these
};

struct VerbEntry {
    std::string name;
    std::string purpose;
    std::vector<std::string_view> suffixes;
    Words words;  // an argument that is no file is one of these
    std::vector<OptionEntry> options;
};

// The first words of a description, without what the shells take for marks.
std::string purposeOf(const std::string& theDescription) {
    std::string result = theDescription;
    std::replace(result.begin(), result.end(), '\n', ' ');
    result.erase(std::min(result.find_first_of(";:(."), result.size()));
    result.erase(result.find_last_not_of(' ') + 1);
    result.erase(std::remove_if(result.begin(), result.end(),
                                [](char theLetter) {
                                    return std::string_view("'\"[]\\`$").find(theLetter) !=
                                           std::string_view::npos;
                                }),
                 result.end());
    return result;
}

std::vector<OptionEntry> optionsOf(const CLI::App& theVerb) {
    std::vector<OptionEntry> result;
    for (const CLI::Option* const option : theVerb.get_options()) {
        if (option->get_lnames().empty()) {
            continue;
        }
        OptionEntry entry;
        entry.longName = option->get_lnames().front();
        if (!option->get_snames().empty()) {
            entry.shortName = option->get_snames().front();
        }
        entry.purpose = purposeOf(option->get_description());
        entry.hasValue = option->get_items_expected_max() != 0;
        entry.words = wordsOf(entry.longName);
        entry.isPath = option->get_option_text() == "PATH" || option->get_option_text() == "FILE";
        result.push_back(std::move(entry));
    }
    return result;
}

std::vector<VerbEntry> verbsOf(const CLI::App& theApp) {
    std::vector<VerbEntry> result;
    for (const CLI::App* const verb :
         theApp.get_subcommands([](const CLI::App*) { return true; })) {
        VerbEntry entry;
        entry.name = verb->get_name();
        entry.purpose = purposeOf(verb->get_description());
        for (const FileRow& row : fileRows()) {
            if (row.verb == entry.name) {
                entry.suffixes = row.suffixes;
            }
        }
        if (entry.name == "completions") {
            entry.words = {"bash", "zsh", "fish"};
        }
        entry.options = optionsOf(*verb);
        result.push_back(std::move(entry));
    }
    return result;
}

template <typename Names>
std::string joined(const Names& theNames, std::string_view theSeparator) {
    std::string result;
    for (const auto& name : theNames) {
        result += (result.empty() ? "" : std::string(theSeparator)) + std::string(name);
    }
    return result;
}

Words optionWords(const std::vector<OptionEntry>& theOptions) {
    Words result;
    for (const OptionEntry& option : theOptions) {
        if (!option.shortName.empty()) {
            result.push_back("-" + option.shortName);
        }
        result.push_back("--" + option.longName);
    }
    return result;
}

// Both names of an option, as bash matches them.
std::string pattern(const OptionEntry& theOption) {
    return (theOption.shortName.empty() ? "" : "-" + theOption.shortName + "|") + "--" +
           theOption.longName;
}

// The script for bash up to the first verb. Within it $cur is the word to complete.
constexpr std::string_view theBashHead = R"(# bash completion for lumnis
_lumnis_files() {
    local suffix
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        if (($# == 0)); then compgen -f -- "$cur"; else compgen -d -- "$cur"; fi
        for suffix in "$@"; do compgen -f -X "!*.$suffix" -- "$cur"; done)
}

_lumnis_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_lumnis() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} verb= word
    COMPREPLY=()
    # --option=value comes as three words.
    if [[ $cur == = ]]; then
        cur=
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for word in "${COMP_WORDS[@]:1:COMP_CWORD - 1}"; do
        if [[ $word != -* ]]; then
            verb=$word
            break
        fi
    done
    case $verb in
)";

// The line for the value of theOption.
std::string bashValue(const OptionEntry& theOption) {
    std::string result = "        " + pattern(theOption) + ") ";
    if (theOption.isPath) {
        result += "_lumnis_files; ";
    } else if (!theOption.words.empty()) {
        result += "_lumnis_words \"" + joined(theOption.words, " ") + "\"; ";
    }
    return result + "return ;;\n";
}

std::string bashVerb(const VerbEntry& theVerb) {
    std::string result = "    " + theVerb.name + ")\n        case $prev in\n";
    for (const OptionEntry& option : theVerb.options) {
        if (option.hasValue) {
            result += bashValue(option);
        }
    }
    result +=
        "        esac\n"
        "        if [[ $cur == -* ]]; then\n"
        "            _lumnis_words \"" +
        joined(optionWords(theVerb.options), " ") + "\"\n";
    if (!theVerb.suffixes.empty()) {
        result += "        else\n            _lumnis_files " + joined(theVerb.suffixes, " ") + "\n";
    } else if (!theVerb.words.empty()) {
        result +=
            "        else\n            _lumnis_words \"" + joined(theVerb.words, " ") + "\"\n";
    }
    return result + "        fi\n        ;;\n";
}

std::string bashCompletions(const std::vector<VerbEntry>& theVerbs,
                            const std::vector<OptionEntry>& theTopOptions) {
    std::string result(theBashHead);
    Words verbs;
    for (const VerbEntry& verb : theVerbs) {
        verbs.push_back(verb.name);
        result += bashVerb(verb);
    }
    return result + "    *) _lumnis_words \"" + joined(verbs, " ") + " " +
           joined(optionWords(theTopOptions), " ") +
           "\" ;;\n"
           "    esac\n"
           "}\n"
           "complete -F _lumnis lumnis\n";
}

std::string zshOption(const OptionEntry& theOption) {
    const std::string names = theOption.shortName.empty()
                                  ? "--" + theOption.longName
                                  : "'(-" + theOption.shortName + " --" + theOption.longName +
                                        ")'{-" + theOption.shortName + ",--" + theOption.longName +
                                        "}";
    std::string result = names + "'[" + theOption.purpose + "]";
    if (theOption.hasValue) {
        result += ":" + theOption.longName + ":";
        result += theOption.isPath          ? "_files"
                  : theOption.words.empty() ? " "
                                            : "(" + joined(theOption.words, " ") + ")";
    }
    return result + "'";
}

std::string zshVerb(const VerbEntry& theVerb) {
    std::string result = "        " + theVerb.name + ")\n            _arguments";
    for (const OptionEntry& option : theVerb.options) {
        result += " \\\n                " + zshOption(option);
    }
    if (!theVerb.suffixes.empty()) {
        result += " \\\n                '*:file:_files -g \"*.(" + joined(theVerb.suffixes, "|") +
                  ")(-.)\"'";
    } else if (!theVerb.words.empty()) {
        result += " \\\n                '1:word:(" + joined(theVerb.words, " ") + ")'";
    }
    return result + "\n            ;;\n";
}

std::string zshCompletions(const std::vector<VerbEntry>& theVerbs,
                           const std::vector<OptionEntry>& theTopOptions) {
    std::string result =
        "#compdef lumnis\n\n"
        "_lumnis() {\n"
        "    local curcontext=$curcontext state line\n"
        "    typeset -A opt_args\n"
        "    local -a verbs=(\n";
    for (const VerbEntry& verb : theVerbs) {
        result += "        '" + verb.name + ":" + verb.purpose + "'\n";
    }
    result += "    )\n    _arguments -C";
    for (const OptionEntry& option : theTopOptions) {
        result += " \\\n        " + zshOption(option);
    }
    result +=
        " \\\n        '1:verb:->verb' '*::argument:->argument' && return\n"
        "    case $state in\n"
        "    verb) _describe verb verbs ;;\n"
        "    argument)\n"
        "        case $line[1] in\n";
    for (const VerbEntry& verb : theVerbs) {
        result += zshVerb(verb);
    }
    return result +
           "        esac\n"
           "        ;;\n"
           "    esac\n"
           "}\n\n"
           "_lumnis \"$@\"\n";
}

std::string fishOption(const std::string& theCondition, const OptionEntry& theOption) {
    std::string result = "complete -c lumnis -n '" + theCondition + "'";
    result += theOption.shortName.empty() ? "" : " -s " + theOption.shortName;
    result += " -l " + theOption.longName;
    if (theOption.hasValue) {
        result += theOption.isPath ? " -r -F" : " -x";
        result += theOption.words.empty() ? "" : " -a '" + joined(theOption.words, " ") + "'";
    }
    return result + " -d '" + theOption.purpose + "'\n";
}

std::string fishVerb(const VerbEntry& theVerb) {
    const std::string condition = "__fish_seen_subcommand_from " + theVerb.name;
    std::string result;
    for (const std::string_view suffix : theVerb.suffixes) {
        result += "complete -c lumnis -n '" + condition + "' -a '(__fish_complete_suffix ." +
                  std::string(suffix) + ")'\n";
    }
    if (!theVerb.words.empty()) {
        result +=
            "complete -c lumnis -n '" + condition + "' -a '" + joined(theVerb.words, " ") + "'\n";
    }
    for (const OptionEntry& option : theVerb.options) {
        result += fishOption(condition, option);
    }
    return result;
}

std::string fishCompletions(const std::vector<VerbEntry>& theVerbs,
                            const std::vector<OptionEntry>& theTopOptions) {
    std::string result = "# fish completion for lumnis\ncomplete -c lumnis -f\n";
    for (const OptionEntry& option : theTopOptions) {
        result += fishOption("__fish_use_subcommand", option);
    }
    for (const VerbEntry& verb : theVerbs) {
        result += "complete -c lumnis -n __fish_use_subcommand -a " + verb.name + " -d '" +
                  verb.purpose + "'\n";
    }
    for (const VerbEntry& verb : theVerbs) {
        result += fishVerb(verb);
    }
    return result;
}

}  // namespace

void CompletionsCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb =
        theApp.add_subcommand("completions", "Print a completion script for bash, zsh or fish");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theCompletionsExamples));
    verb->add_option("SHELL", shellM, "bash, zsh or fish")
        ->required()
        ->option_text(" ")
        ->check(oneOf({"bash", "zsh", "fish"}));
}

CliExit CompletionsCommand::run(const CLI::App& theApp) const {
    const std::vector<VerbEntry> verbs = verbsOf(theApp);
    const std::vector<OptionEntry> topOptions = optionsOf(theApp);
    printText(shellM == "bash"  ? bashCompletions(verbs, topOptions)
              : shellM == "zsh" ? zshCompletions(verbs, topOptions)
                                : fishCompletions(verbs, topOptions));
    return CliExit::success;
}

}  // namespace lumnis
