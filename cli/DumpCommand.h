// "lumnis dump": what a handset receives, as text.
#pragma once

#include <string>

#include "CliExit.h"

namespace CLI {
class App;
}

namespace lumnis {

class DumpCommand {
  public:
    // Adds the verb to theApp. This object takes the values of its options and must stay where it
    // is until they have been parsed.
    void addTo(CLI::App& theApp);
    // Throws CliUsageError before anything is read or written.
    CliExit run() const;

  private:
    std::string inputM;
    std::string outputM = "-";
    std::string formatM;
    bool isXmlM = false;
    bool isJsonM = false;
};

}  // namespace lumnis
