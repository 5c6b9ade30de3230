// "lumnis compile": WMLScript to byte code.
#pragma once

#include <string>
#include <vector>

#include "CliBatch.h"
#include "CliExit.h"
#include "HedCharsetId.h"

namespace CLI {
class App;
}

namespace lumnis {

class CompileCommand {
  public:
    // Adds the verb to theApp. This object takes the values of its options and must stay where it
    // is until they have been parsed.
    void addTo(CLI::App& theApp);
    // Throws CliUsageError before anything is read or written.
    CliExit run() const;

  private:
    CliBatchResult compile(const std::string& theName, const CpsString& theSource,
                           const std::vector<HedCharsetId>& theCharsets) const;

    CliBatchOptions batchM;
    std::vector<std::string> charsetsM;
    std::string inputCharsetM = "UTF-8";
    std::string errorFormatM = "gcc";
    std::string listingM;
    std::string treeM;
    bool isUnoptimizedM = false;
    bool isDebugM = false;
    bool hasPragmaReportM = false;
};

}  // namespace lumnis
