#include "WmlTaskActors.h"

#include "WmlActorException.h"
#include "WmlTokens.h"

namespace lumnis {

// The name is always inline, however often it occurs.
bool DoTagActor::tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                                 const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    if (value == nullptr) {
        return false;
    }
    const bool isName = &theAttr == nameAttrM;
    if (isName || theAttributes.find(nameAttrM) == nullptr) {
        declare(value->toString(), theCtrl);
    }
    if (!isName) {
        return tokenizeCdata(theToken, theAttr, theAttributes, theCtrl, typesM);
    }
    addAttrToken(theToken, theCtrl);
    theCtrl.addToOutput(XaWbxmlToken::STR_I);
    theCtrl.addToOutput(theCtrl.convert(value->toString()).view());
    return true;
}

void DoTagActor::declare(const CpsString& theName, WmlCtrl& theCtrl) const {
    if (validationM && !theCtrl.declareDoElement(theName)) {
        throw WmlActorException("error: duplicate declaration of do element with same name: " +
                                theName);
    }
}

bool SetvarTagActor::tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                                     const XpDtd::AttributeMap& theAttributes,
                                     WmlCtrl& theCtrl) const {
    theCtrl.setDigitVariables(theCtrl.isWtaWmlDtdUsed() && theCtrl.isInWtaWml());
    const bool isWritten = tokenizeVdata(theToken, theAttr, theAttributes, theCtrl, false);
    theCtrl.setDigitVariables(false);
    return isWritten;
}

}  // namespace lumnis
