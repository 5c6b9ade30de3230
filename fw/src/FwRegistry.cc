#include "FwRegistry.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lumnis {

namespace {

constexpr unsigned theLargestUnsigned = std::numeric_limits<unsigned>::max();

// As %u of scanf reads, but the same in every locale and for every length. False without a digit.
bool scanUnsigned(std::string_view theText, unsigned& theValue) {
    theText.remove_prefix(std::min(theText.find_first_not_of(" \t\n\v\f\r"), theText.size()));
    const bool isNegative = theText.starts_with('-');
    if (isNegative || theText.starts_with('+')) {
        theText.remove_prefix(1);
    }
    if (theText.empty() || theText[0] < '0' || theText[0] > '9') {
        return false;
    }
    unsigned value = 0;
    for (const char c : theText) {
        if (c < '0' || c > '9') {
            break;
        }
        const unsigned digit = static_cast<unsigned>(c - '0');
        value = value > (theLargestUnsigned - digit) / 10 ? theLargestUnsigned : value * 10 + digit;
    }
    theValue = isNegative ? 0 - value : value;
    return true;
}

}  // namespace

FwRegistry::FwRegistry(const char* theMachine, FwHive theHive, const CpsString& theRootPath)
    : rootPathM(theRootPath) {
    if (!storeM.connect(theMachine, theHive)) {
        // "mashine" is what operators search their logs for.
        fail(theMachine == nullptr
                 ? CpsString("Unable to connect to registry on local mashine.")
                 : "Unable to connect to registry on mashine, " + CpsString(theMachine) + ".");
    }
}

void FwRegistry::getString(const CpsString& theSubKey, const CpsString& theValueName,
                           CpsString& theOutput) {
    const CpsString key = rootPathM + "\\" + theSubKey;
    if (!storeM.openKey(key)) {
        fail("Unable to open registry key, " + key + ".");
    }
    if (!storeM.queryValue(theValueName, theOutput)) {
        fail("Unable to get registry value, " + theValueName + ".");
    }
    if (!storeM.closeKey()) {
        fail("Unable to close registry key, " + key + ".");
    }
}

void FwRegistry::getUnsigned(const CpsString& theSubKey, const CpsString& theValueName,
                             unsigned& theOutput) {
    CpsString text;
    getString(theSubKey, theValueName, text);
    if (!scanUnsigned(text, theOutput)) {
        throw std::runtime_error("Unable to convert from string to unsigned int.");
    }
}

void FwRegistry::fail(const CpsString& theMessage) const {
    const std::string text = storeM.errorText();
    throw std::runtime_error(
        std::string(theMessage.view()) +
        (text.empty() ? " Unable to create system message." : " System message: " + text));
}

}  // namespace lumnis
