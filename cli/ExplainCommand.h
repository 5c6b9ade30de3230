// "lumnis explain": what a message means and how to repair what it tells of.
#pragma once

#include <string>
#include <vector>

#include "CliExit.h"

namespace CLI {
class App;
}

namespace lumnis {

class ExplainCommand {
  public:
    // Adds the verb to theApp. This object takes the values of its options and must stay where it
    // is until they have been parsed.
    void addTo(CLI::App& theApp);
    // Throws CliUsageError when there is nothing to explain.
    CliExit run() const;

  private:
    std::vector<std::string> wordsM;
    bool isMarkdownM = false;
};

}  // namespace lumnis
