#include "WmlContentActors.h"

#include "WmlActorException.h"
#include "WmlTokens.h"

namespace lumnis {

bool PreTagActor::tokenizeSpecial(unsigned char, const XpDtd::Attribute& theAttr,
                                  const XpDtd::AttributeMap& theAttributes,
                                  WmlCtrl& theCtrl) const {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    if (value == nullptr) {
        return false;
    }
    const bool isPreserved = value->toString() == "preserve";
    theCtrl.setPreserveWhiteSpaceFlag(isPreserved);
    addAttrToken(wmlAttrToken("xml:space", isPreserved ? "preserve" : "default"), theCtrl);
    return true;
}

bool TableTagActor::tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                                    const XpDtd::AttributeMap& theAttributes,
                                    WmlCtrl& theCtrl) const {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    // Exactly "0": another way to write zero passes.
    if (value != nullptr && value->toString() == "0") {
        throw WmlActorException("The number of columns in a table tag mustnot be set to zero");
    }
    return tokenizeNumber(theToken, theAttr, theAttributes, theCtrl);
}

}  // namespace lumnis
