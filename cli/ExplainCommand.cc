#include "ExplainCommand.h"

#include <CLI/CLI.hpp>
#include <string_view>

#include "CliError.h"
#include "CliHelp.h"
#include "CliMessages.h"
#include "CliOutput.h"
#include "PrintableText.h"

namespace lumnis {

namespace {

constexpr char theExplainExamples[] =
    "Examples:\n"
    "  lumnis explain unexpected element        what it means, with a repaired example\n"
    "  lumnis explain 'Variable \"x\" not found'  a message as it was printed, or a part of it\n"
    "  lumnis explain                           lists all messages\n";

constexpr std::size_t theWidth = 78;

// theText in lines of theWidth, each behind theIndent.
std::string wrapped(std::string_view theText, const std::string& theIndent) {
    std::string result;
    std::string line;
    while (!theText.empty()) {
        const std::size_t end = theText.find(' ');
        const std::string_view word = theText.substr(0, end);
        theText.remove_prefix(end == std::string_view::npos ? theText.size() : end + 1);
        if (!line.empty() && theIndent.size() + line.size() + 1 + word.size() > theWidth) {
            result += theIndent + line + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + std::string(word);
    }
    return result + theIndent + line + "\n";
}

std::string indented(std::string_view theText, const std::string& theIndent) {
    std::string result;
    while (!theText.empty()) {
        const std::size_t end = theText.find('\n');
        result += theIndent + std::string(theText.substr(0, end)) + "\n";
        theText.remove_prefix(end == std::string_view::npos ? theText.size() : end + 1);
    }
    return result;
}

// For people: {} shows where a name stands.
std::string shownText(std::string_view theText) {
    std::string result(theText);
    for (std::size_t at = result.find("{}"); at != std::string::npos; at = result.find("{}", at)) {
        result.replace(at, 2, "...");
    }
    return result;
}

std::string explained(const CliMessageRow& theRow) {
    std::string text = shownText(theRow.text) + "\n" + wrapped(theRow.meaning, "  ") + "\n" +
                       wrapped("Why: " + std::string(theRow.cause), "  ");
    if (!theRow.broken.empty()) {
        text += "\n  Refused:\n" + indented(theRow.broken, "      ") + "\n  Repaired:\n" +
                indented(theRow.repaired, "      ");
    }
    return text;
}

std::string listing() {
    std::string text;
    const CliMessageRow* last = nullptr;
    for (const CliMessageRow& row : messageRows()) {
        if (last == nullptr || last->origin != row.origin) {
            text += (last == nullptr ? "" : "\n") + std::string(originName(row.origin)) + ":\n";
        }
        last = &row;
        text += "  " + shownText(row.text) + "\n";
    }
    return text + "\n\"lumnis explain TEXT\" explains one of them; TEXT may be a part of it.\n";
}

// What Markdown takes for markup, outside of code.
std::string plainMarkdown(std::string_view theText) {
    std::string result;
    for (const char each : theText) {
        if (std::string_view("<>*_[]\\`&#|").find(each) != std::string_view::npos) {
            result += '\\';
        }
        result += each;
    }
    return result;
}

// docs/messages.md
std::string page() {
    std::string text =
        "# Messages\n\n"
        "What each message means, what an author did to get it, and a repaired example. `lumnis\n"
        "explain TEXT` prints the same for one message; this page is `lumnis explain --markdown`.\n"
        "`...` stands for a name or a number. Lines that begin with `$` are commands of a shell;\n"
        "`hello.wmls` and `news.wml` are a script and a deck without a fault.\n";
    const CliMessageRow* last = nullptr;
    for (const CliMessageRow& row : messageRows()) {
        if (last == nullptr || last->origin != row.origin) {
            text += "\n## " + std::string(originName(row.origin)) + "\n";
        }
        last = &row;
        text += "\n### `" + shownText(row.text) + "`\n\n" + plainMarkdown(row.meaning) +
                "\n\nWhy: " + plainMarkdown(row.cause) + "\n";
        if (!row.broken.empty()) {
            text += "\nRefused:\n\n" + indented(row.broken, "    ") + "\nRepaired:\n\n" +
                    indented(row.repaired, "    ");
        }
    }
    return text;
}

}  // namespace

void ExplainCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb =
        theApp.add_subcommand("explain", "Explain a message and how to repair what causes it");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theExplainExamples));
    verb->add_option("TEXT", wordsM,
                     "A message, as it was printed or a part of it; without it all\n"
                     "are listed")
        ->option_text(" ");
    verb->add_flag("--markdown", isMarkdownM, "Print all as a page in Markdown");
}

CliExit ExplainCommand::run() const {
    std::string text;
    std::string query;
    for (const std::string& word : wordsM) {
        query += (query.empty() ? "" : " ") + word;
    }
    if (isMarkdownM) {
        text = page();
    } else if (query.empty()) {
        text = listing();
    } else {
        for (const CliMessageRow* const row : findMessages(query)) {
            text += (text.empty() ? "" : "\n") + explained(*row);
        }
        if (text.empty()) {
            throw CliUsageError("no message has the text \"" + visibleText(query) +
                                "\" (without a text all are listed)");
        }
    }
    printText(text);
    return CliExit::success;
}

}  // namespace lumnis
