// lumnis: the command line around the library.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "CharsetsCommand.h"
#include "CheckCommand.h"
#include "CliError.h"
#include "CliExit.h"
#include "CliHelp.h"
#include "CliOutput.h"
#include "CliSuggestion.h"
#include "CompileCommand.h"
#include "CompletionsCommand.h"
#include "DumpCommand.h"
#include "EncodeCommand.h"
#include "ExplainCommand.h"
#include "PrintableText.h"

namespace {

using lumnis::CliExit;

constexpr char theExamples[] =
    "Examples:\n"
    "  lumnis encode news.wml          encodes a deck to news.wmlc\n"
    "  lumnis compile hello.wmls       compiles a script to hello.wmlsc\n"
    "  lumnis compile --watch *.wmls   compiles again whenever one is saved\n"
    "  lumnis check feed.xml           tells what is wrong with a document\n"
    "  lumnis dump news.wmlc           shows what each byte means\n"
    "  lumnis explain \"parse error\"    tells what a message means and how to repair it\n"
    "  lumnis encode --help            tells all about one verb\n";

int usageError(const std::string& theText) {
    std::fprintf(stderr, "lumnis: error: %s\n", theText.c_str());
    return static_cast<int>(CliExit::failed);
}

// theWord is what theApp does not know: an option, or at the top a verb.
std::string suggestionFor(const std::string& theWord, const CLI::App& theApp) {
    std::vector<std::string> names;
    for (const CLI::App* const verb :
         theApp.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(verb->get_name());
    }
    for (const CLI::Option* const option : theApp.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    const std::string word = theWord.substr(0, theWord.find('='));
    return lumnis::suggestion(word, {names.begin(), names.end()});
}

// What is wrong with the words that theApp has parsed, without a line end behind it.
std::string textOf(const CLI::ParseError& theError, const CLI::App& theApp) {
    std::string text = theError.what();
    if (theApp.get_subcommands().empty()) {
        const std::vector<std::string> rest = theApp.remaining();
        text = rest.empty() ? "no verb given"
                            : "unknown: " + lumnis::visibleText(rest.front()) +
                                  suggestionFor(rest.front(), theApp);
    } else if (theError.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) {
        const std::vector<std::string> rest = theApp.remaining(true);
        text += suggestionFor(rest.front(), *theApp.get_subcommands().front());
    }
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

int run(int theCount, char** theArguments) {
    CLI::App app("WML decks to WBXML and WMLScript to byte code, as a WAP handset receives them.",
                 "lumnis");
    app.formatter(lumnis::helpWithExamples(theExamples));
    app.set_version_flag("--version", "lumnis " LUMNIS_VERSION, "Print the version and exit");
    app.require_subcommand(1);
    lumnis::EncodeCommand encode;
    encode.addTo(app);
    lumnis::CompileCommand compile;
    compile.addTo(app);
    lumnis::CheckCommand check;
    check.addTo(app);
    lumnis::CharsetsCommand charsets;
    charsets.addTo(app);
    lumnis::DumpCommand dump;
    dump.addTo(app);
    lumnis::ExplainCommand explain;
    explain.addTo(app);
    lumnis::CompletionsCommand completions;
    completions.addTo(app);
    try {
        app.parse(theCount, theArguments);
    } catch (const CLI::Success& answer) {
        // Help or version: CLI11 prints it.
        app.exit(answer);
        std::cout.flush();
        return std::cout.good() ? 0 : usageError("standard output: cannot write");
    } catch (const CLI::ParseError& error) {
        return usageError(textOf(error, app) +
                          "\nTry \"lumnis --help\" or \"lumnis VERB --help\".");
    }
    try {
        const CliExit exit = app.got_subcommand("encode")     ? encode.run()
                             : app.got_subcommand("compile")  ? compile.run()
                             : app.got_subcommand("check")    ? check.run()
                             : app.got_subcommand("dump")     ? dump.run()
                             : app.got_subcommand("explain")  ? explain.run()
                             : app.got_subcommand("charsets") ? charsets.run()
                                                              : completions.run(app);
        return static_cast<int>(exit);
    } catch (const lumnis::CliUsageError& error) {
        return usageError(error.what());
    }
}

}  // namespace

int main(int theCount, char** theArguments) {
    try {
        lumnis::prepareOutput();
        return run(theCount, theArguments);
    } catch (const std::exception& error) {
        return usageError(error.what());
    }
}
