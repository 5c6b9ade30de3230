// Reads settings below one root of the settings store.
#pragma once

#include "CpsString.h"
#include "FwSettingsStore.h"

namespace lumnis {

// Every failure is a std::runtime_error whose text ends with that of the system.
class FwRegistry {
  public:
    // Connects. theMachine is null for this machine.
    FwRegistry(const char* theMachine, FwHive theHive, const CpsString& theRootPath);

    // The value of theValueName in the key theSubKey below the root; the key is opened and closed
    // again.
    void getString(const CpsString& theSubKey, const CpsString& theValueName, CpsString& theOutput);
    // The value as an unsigned decimal number: blanks before it and text after it do not
    // count, and what exceeds 32 bits is the largest number.
    void getUnsigned(const CpsString& theSubKey, const CpsString& theValueName,
                     unsigned& theOutput);

  private:
    [[noreturn]] void fail(const CpsString& theMessage) const;

    const CpsString rootPathM;
    FwSettingsStore storeM;
};

}  // namespace lumnis
