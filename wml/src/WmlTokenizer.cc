#include "WmlTokenizer.h"

#include "WmlActorException.h"
#include "WmlCtrl.h"
#include "WmlTokens.h"

namespace lumnis {

WmlTokenizer::WmlTokenizer(bool theWtaWml) {
    for (const WmlTagToken& row : theWmlTagTokens) {
        addTagToken(row.name.data(), row.token, 0);
    }
    for (const WmlAttrToken& row : theWmlAttrTokens) {
        addAttrToken(row.name.data(), row.prefix.data(), row.token, 0);
    }
    for (const WmlAttrValueToken& row : theWmlAttrValueTokens) {
        addAttrValueToken(row.text.data(), row.token, 0);
    }
    if (!theWtaWml) {
        return;
    }
    for (const WmlTagToken& row : theWtaTagTokens) {
        addTagToken(row.name.data(), row.token, theWtaCodePage);
    }
    for (const WmlAttrToken& row : theWtaAttrTokens) {
        addAttrToken(row.name.data(), row.prefix.data(), row.token, theWtaCodePage);
    }
}

void WmlTokenizer::tokenizeAttrValue(const CpsString& theValue, XaWbxmlCtrl& theCtrl) {
    CpsString error;
    if (!static_cast<WmlCtrl&>(theCtrl).parseVData(theValue, error, true, false)) {
        throw WmlActorException("Error in Vdata: " + error);
    }
}

}  // namespace lumnis
