// Service of the platform: the store that the settings of the log are read from.
//
// A store is a set of keys, each with named string values. Keys are written with back-slashes,
// as in Software\Halvern\Qir\ApplicationLog\Interface\Rows; keys and names are compared without
// regard to the case of A to Z.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

enum class FwHive { localMachine };

// One connection. The operations return false on failure; errorText tells why.
class FwSettingsStore {
  public:
    FwSettingsStore();
    FwSettingsStore(const FwSettingsStore&) = delete;
    FwSettingsStore& operator=(const FwSettingsStore&) = delete;
    ~FwSettingsStore();

    // theMachine is null for this machine.
    bool connect(const char* theMachine, FwHive theHive);
    bool openKey(std::string_view theKey);
    // Of the open key; theValue is written on success alone.
    bool queryValue(std::string_view theName, CpsString& theValue) const;
    bool closeKey();

    // The system's text for the latest failure; empty when it has none.
    std::string errorText() const;

  private:
    struct State;
    std::unique_ptr<State> stateM;
};

}  // namespace lumnis
