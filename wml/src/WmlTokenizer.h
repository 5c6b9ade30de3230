// The table-driven actor for WML documents that name no known document type, and for processing
// instructions in all. It differs from its base in that values may hold variables.
#pragma once

#include "XaWbxmlTokenizer.h"

namespace lumnis {

class WmlTokenizer final : public XaWbxmlTokenizer {
  public:
    // Fills the tables of code page 0, and those of page 1 if theWtaWml is set.
    explicit WmlTokenizer(bool theWtaWml);

    // Throws WmlActorException for a bad variable.
    void tokenizeAttrValue(const CpsString& theValue, XaWbxmlCtrl& theCtrl) override;
};

}  // namespace lumnis
