// "lumnis check": what is wrong with an XML document.
#pragma once

#include <string>

#include "CliBatch.h"
#include "CliExit.h"

namespace CLI {
class App;
}

namespace lumnis {

class DocumentChecker;

class CheckCommand {
  public:
    // Adds the verb to theApp. This object takes the values of its options and must stay where it
    // is until they have been parsed.
    void addTo(CLI::App& theApp);
    // Throws CliUsageError before anything is read or written.
    CliExit run() const;

  private:
    // Gives the DTD of --dtd to theChecker. Anything but success has been told.
    CliExit loadDtd(DocumentChecker& theChecker) const;
    CliBatchResult check(const std::string& theName, const CpsString& theSource,
                         DocumentChecker& theChecker) const;

    CliBatchOptions batchM;
    std::string dtdM;
    bool isNonvalidatingM = false;
    bool isExternalM = false;
    bool hasEventsM = false;
};

}  // namespace lumnis
