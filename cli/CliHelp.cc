#include "CliHelp.h"

#include <CLI/CLI.hpp>
#include <utility>

#include "CliBatch.h"
#include "CliSuggestion.h"

namespace lumnis {

namespace {

constexpr char theExitStatuses[] =
    "Exit status:\n"
    "  0  all is done\n"
    "  1  a source was refused; \"lumnis explain MESSAGE\" tells what its message means\n"
    "  2  wrong usage, or a file that cannot be read or written\n";

class HelpFormatter : public CLI::Formatter {
  public:
    explicit HelpFormatter(std::string theExamples) : examplesM(std::move(theExamples)) {
        column_width(24);
        label("Positionals", "Arguments");
        label("SUBCOMMAND", "VERB");
    }

    std::string make_help(const CLI::App* theApp, std::string theName,
                          CLI::AppFormatMode theMode) const override {
        std::string text = CLI::Formatter::make_help(theApp, std::move(theName), theMode);
        // Exactly one line end behind the last line.
        text.erase(text.find_last_not_of('\n') + 1);
        return examplesM + "\n" + text + "\n\n" + theExitStatuses;
    }

  private:
    std::string examplesM;
};

}  // namespace

std::shared_ptr<CLI::FormatterBase> helpWithExamples(std::string theExamples) {
    return std::make_shared<HelpFormatter>(std::move(theExamples));
}

CLI::Validator oneOf(std::vector<std::string_view> theNames) {
    return CLI::Validator(
        [names = std::move(theNames)](std::string& theValue) -> std::string {
            std::string list;
            for (const std::string_view name : names) {
                if (theValue == name) {
                    return {};
                }
                list += (list.empty() ? "" : ",") + std::string(name);
            }
            return theValue + " not in {" + list + "}" + suggestion(theValue, names);
        },
        {});
}

void addBatchOptions(CLI::App& theVerb, const std::string& theThings, CliBatchOptions& theBatch,
                     std::string& theErrorFormat) {
    theVerb
        .add_option("-j,--jobs", theBatch.jobs,
                    "Work on N " + theThings +
                        " at once; all output keeps the order of\n"
                        "the arguments")
        ->option_text("N")
        ->check(CLI::Range(1, 1024));
    theVerb.add_flag("-w,--watch", theBatch.isWatching,
                     "Stay, and work on each of the " + theThings +
                         " again when it is\n"
                         "saved, until Ctrl-C");
    addQuietOption(theVerb, theBatch);
    theVerb
        .add_option("--error-format", theErrorFormat,
                    "The form of messages: gcc (FILE:LINE: error: MESSAGE, as\n"
                    "editors expect it), json (one object per line: file, line,\n"
                    "message, source) or raw (the library's own text); without it\n"
                    "gcc")
        ->option_text("FORM")
        ->check(oneOf({"gcc", "json", "raw"}));
}

void addQuietOption(CLI::App& theVerb, CliBatchOptions& theBatch) {
    theVerb.add_flag("-q,--quiet", theBatch.isQuiet,
                     "Print only the first line of each message, without the source\n"
                     "line and advice: for build scripts");
}

}  // namespace lumnis
