// "lumnis charsets": what can be converted from and to.
#pragma once

#include "CliExit.h"

namespace CLI {
class App;
}

namespace lumnis {

class CharsetsCommand {
  public:
    void addTo(CLI::App& theApp);
    CliExit run() const;
};

}  // namespace lumnis
