#include "CliHelp.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace lumnis {

namespace {

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
        if (theMode == CLI::AppFormatMode::Sub) {
            return text;
        }
        // Exactly one line end behind the last line.
        text.erase(text.find_last_not_of('\n') + 1);
        return examplesM + "\n" + text + "\n";
    }

  private:
    std::string examplesM;
};

}  // namespace

std::shared_ptr<CLI::FormatterBase> helpWithExamples(std::string theExamples) {
    return std::make_shared<HelpFormatter>(std::move(theExamples));
}

}  // namespace lumnis
