// "lumnis completions": scripts by which shells complete the words of the command line.
#pragma once

#include <string>

#include "CliExit.h"

namespace CLI {
class App;
}

namespace lumnis {

class CompletionsCommand {
  public:
    // Adds the verb to theApp. This object takes the value of its argument and must stay where it
    // is until it has been parsed.
    void addTo(CLI::App& theApp);
    // Prints the completions for all verbs and options of theApp.
    CliExit run(const CLI::App& theApp) const;

  private:
    std::string shellM;
};

}  // namespace lumnis
