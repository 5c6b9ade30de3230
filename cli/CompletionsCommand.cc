// The verbs and options come from the command line itself, so none is forgotten; what stands for
// their values is in the two tables below.
#include "CompletionsCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <vector>

#include "CliCharset.h"
#include "CliError.h"
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
    if (theOption == "charset") {
        return copied(charsetNames(CliCharsetUse::output));
    }
    if (theOption == "input-charset") {
        return copied(charsetNames(CliCharsetUse::input));
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

std::string pattern(const OptionEntry& theOption) {
    return (theOption.shortName.empty() ? "" : "-" + theOption.shortName + "|") + "--" +
           theOption.longName;
}

std::string bashCompletions(const std::vector<VerbEntry>& theVerbs,
                            const std::vector<OptionEntry>& theTopOptions) {
    Words verbs;
    for (const VerbEntry& verb : theVerbs) {
        verbs.push_back(verb.name);
    }
    std::string result =
        "# bash completion for lumnis\n"
        "_lumnis_files() {\n"
        "    local suffix\n"
        "    compopt -o filenames 2>/dev/null\n"
        "    mapfile -t COMPREPLY < <(\n"
        "        if (($# == 0)); then compgen -f -- \"$cur\"; else compgen -d -- \"$cur\"; fi\n"
        "        for suffix in \"$@\"; do compgen -f -X \"!*.$suffix\" -- \"$cur\"; done)\n"
        "}\n\n"
        "_lumnis_words() {\n"
        "    mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$cur\")\n"
        "}\n\n"
        "_lumnis() {\n"
        "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} verb= word\n"
        "    COMPREPLY=()\n"
        "    # --option=value comes as three words.\n"
        "    if [[ $cur == = ]]; then\n"
        "        cur=\n"
        "    elif [[ $prev == = ]]; then\n"
        "        prev=${COMP_WORDS[COMP_CWORD - 2]}\n"
        "    fi\n"
        "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD - 1}\"; do\n"
        "        if [[ $word != -* ]]; then\n"
        "            verb=$word\n"
        "            break\n"
        "        fi\n"
        "    done\n"
        "    case $verb in\n";
    for (const VerbEntry& verb : theVerbs) {
        result += "    " + verb.name + ")\n        case $prev in\n";
        for (const OptionEntry& option : verb.options) {
            if (option.hasValue) {
                result += "        " + pattern(option) + ") ";
                result += option.isPath ? "_lumnis_files; "
                          : option.words.empty()
                              ? ""
                              : "_lumnis_words \"" + joined(option.words, " ") + "\"; ";
                result += "return ;;\n";
            }
        }
        result +=
            "        esac\n"
            "        if [[ $cur == -* ]]; then\n"
            "            _lumnis_words \"" +
            joined(optionWords(verb.options), " ") + "\"\n";
        if (!verb.suffixes.empty()) {
            result +=
                "        else\n            _lumnis_files " + joined(verb.suffixes, " ") + "\n";
        } else if (!verb.words.empty()) {
            result +=
                "        else\n            _lumnis_words \"" + joined(verb.words, " ") + "\"\n";
        }
        result += "        fi\n        ;;\n";
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
        result += "        " + verb.name + ")\n            _arguments";
        for (const OptionEntry& option : verb.options) {
            result += " \\\n                " + zshOption(option);
        }
        if (!verb.suffixes.empty()) {
            result += " \\\n                '*:file:_files -g \"*.(" + joined(verb.suffixes, "|") +
                      ")(-.)\"'";
        } else if (!verb.words.empty()) {
            result += " \\\n                '1:word:(" + joined(verb.words, " ") + ")'";
        }
        result += "\n            ;;\n";
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
        const std::string condition = "__fish_seen_subcommand_from " + verb.name;
        for (const std::string_view suffix : verb.suffixes) {
            result += "complete -c lumnis -n '" + condition + "' -a '(__fish_complete_suffix ." +
                      std::string(suffix) + ")'\n";
        }
        if (!verb.words.empty()) {
            result +=
                "complete -c lumnis -n '" + condition + "' -a '" + joined(verb.words, " ") + "'\n";
        }
        for (const OptionEntry& option : verb.options) {
            result += fishOption(condition, option);
        }
    }
    return result;
}

}  // namespace

void CompletionsCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb = theApp.add_subcommand(
        "completions", "Print what bash, zsh or fish needs to complete our words");
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
    try {
        writeDescriptor(STDOUT_FILENO,
                        shellM == "bash"  ? bashCompletions(verbs, topOptions)
                        : shellM == "zsh" ? zshCompletions(verbs, topOptions)
                                          : fishCompletions(verbs, topOptions),
                        "standard output");
    } catch (const CliFileError& error) {
        throw CliUsageError(error.getPath() + ": " + error.what());
    }
    return CliExit::success;
}

}  // namespace lumnis
