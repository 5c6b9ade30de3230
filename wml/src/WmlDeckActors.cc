#include "WmlDeckActors.h"

#include "WmlActorException.h"
#include "WmlTokens.h"

namespace lumnis {

void WtaWmlTagActor::enter(WmlCtrl& theCtrl) const {
    theCtrl.setInWtaWml(true);
    theCtrl.switchTagPage(theWtaCodePage);
}

void WtaWmlTagActor::leave(WmlCtrl& theCtrl) const {
    theCtrl.setInWtaWml(false);
}

void AccessTagActor::enter(WmlCtrl& theCtrl) const {
    if (theCtrl.getAccessElementDeclaredFlag()) {
        throw WmlActorException("error: multiple declarations of access elements");
    }
    theCtrl.setAccessElementDeclaredFlag(true);
}

MetaTagActor::MetaTagActor(const Setup& theSetup)
    : WmlRuledActor(theSetup, Content::NEVER, Flush::NONE),
      httpEquivAttrM(&theSetup.element.getAttribute("http-equiv")),
      nameAttrM(&theSetup.element.getAttribute("name")),
      foruaAttrM(&theSetup.element.getAttribute("forua")),
      contentAttrM(&theSetup.element.getAttribute("content")) {
    cdata("name");
    special("forua");
    cdata("content");
    cdata("scheme");
    core();
}

void MetaTagActor::begin(const XpDtd::Element*, const XpDtd::AttributeMap& theAttributes,
                         int theContentKind, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    const auto textOf = [&](const XpDtd::Attribute* attr) {
        const XpDtd::AttValue* value = theAttributes.find(attr);
        return value == nullptr ? CpsString() : value->toString();
    };
    const CpsString httpEquiv = textOf(httpEquivAttrM);
    const bool isForBoth = !httpEquiv.empty() && !textOf(nameAttrM).empty();
    // A missing forua does not count as "false", whatever the default says.
    if (theAttributes.empty() || isForBoth || textOf(foruaAttrM) == "false") {
        return;
    }
    if (httpEquiv.empty()) {
        writeElement(theAttributes, theContentKind, ctrl);
        return;
    }
    XaMetaData metaData;
    metaData.setHttpEquiv(httpEquiv);
    metaData.setContent(textOf(contentAttrM));
    metaData.setMetaDataForward();
    ctrl.insertMetaData(metaData);
}

bool MetaTagActor::tokenizeSpecial(unsigned char, const XpDtd::Attribute&,
                                   const XpDtd::AttributeMap&, WmlCtrl& theCtrl) const {
    addAttrToken(wmlAttrToken("forua", "true"), theCtrl);
    return true;
}

}  // namespace lumnis
