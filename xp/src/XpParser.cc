#include "XpParser.h"

#include "FwTraceScope.h"
#include "XpContentNode.h"
#include "XpDtdParser.h"
#include "XpLexer.h"

namespace lumnis {

XpParser::XpParser(const CpsString* theInput, XpDtd::PiActor* thePrologPiActor,
                   XpDtd::WhitespaceActor* thePrologWhitespaceActor, void* theContext)
    : XpParserBase(theInput, theContext) {
    prologPiActorM = thePrologPiActor;
    prologWhitespaceActorM = thePrologWhitespaceActor;
}

XpParser::~XpParser() = default;

void XpParser::parseProlog() {
    const FwTraceScope scope("XpParser::parseProlog");
    lexerM->startProlog();
    parse();
}

CpsString XpParser::getPublicIdentifier() const {
    const CpsString* id = externalIdM == nullptr ? nullptr : externalIdM->getPublicId();
    return id == nullptr ? CpsString() : *id;
}

void XpParser::makeNonvalidating(XpDtd* theDtd, XpDtd::ElementActor* theDefaultActor,
                                 void* theContext) {
    activeDtdM = theDtd;
    buildingDtdM = theDtd;
    defaultActorM = theDefaultActor;
    contextM = theContext;
}

// True if the external subset is there and complete.
bool XpParser::readExternalSubset(void* theContext) {
    ownedDtdM = std::make_unique<XpDtd>();
    const ExternalText text = fetch(*externalIdM);
    if (text == nullptr) {
        return false;
    }
    try {
        XpDtdParser parser(text.get(), ownedDtdM.get(), theContext);
        parser.setEntityResolver(resolverM);
        parser.parseDtd();
    } catch (const XpException& error) {
        fail("in external subset: " + error.toString());
    }
    return !ownedDtdM->isIncomplete();
}

void XpParser::mergeInternalSubset(const XpDtd& theExternal) {
    try {
        internalSubsetM->mergeWith(theExternal, !internalSubsetM->isIncomplete());
    } catch (const XpException& error) {
        fail("merging with external subset: " + error.toString());
    }
}

void XpParser::setDtd(const XpDtd* theDtd, void* theContext, XpDtd::ElementActor* theDefaultActor,
                      XpDtd::PcDataActor* thePcData, XpDtd::PcDataActor* theCdSection,
                      XpDtd::WhitespaceActor* theWhitespace, XpDtd::PiActor* thePi) {
    const FwTraceScope scope("XpParser::setDtd");
    const XpDtd* active = theDtd;
    XpDtd* building = nullptr;  // what has to be implied goes there
    if (active == nullptr && externalIdM != nullptr) {
        const bool isComplete = readExternalSubset(theContext);
        active = ownedDtdM.get();
        building = isComplete ? nullptr : ownedDtdM.get();
    }
    if (internalSubsetM != nullptr) {
        const bool isComplete = !internalSubsetM->isIncomplete();
        if (active != nullptr) {
            mergeInternalSubset(*active);
        }
        active = internalSubsetM.get();
        building = isComplete && building == nullptr ? nullptr : internalSubsetM.get();
    }
    if (active == nullptr) {
        ownedDtdM = std::make_unique<XpDtd>();
        active = building = ownedDtdM.get();
    }
    contextM = theContext;
    activeDtdM = active;
    if (building != nullptr) {
        buildingDtdM = building;
        defaultActorM = theDefaultActor;
    }
    // A complete external subset alone stays without actors.
    if (XpDtd* const own = building != nullptr ? building : internalSubsetM.get()) {
        own->setElementActors(theDefaultActor);
        own->setPcDataActor(thePcData);
        own->setCdSectionActor(theCdSection);
        own->setWhitespaceActor(theWhitespace);
        own->setPiActor(thePi);
    }
}

void XpParser::makeRoot() {
    const XpDtd::Element* root = nullptr;
    if (doctypeNameM == nullptr) {
        rootNodeM = std::make_unique<XpDtd::AnyNode>();
        return;
    }
    if (buildingDtdM != nullptr) {
        XpDtd::Element& element = buildingDtdM->obtainElement(*doctypeNameM);
        imply(element);
        root = &element;
    } else {
        root = &activeDtdM->obtainElement(*doctypeNameM);
    }
    auto node = std::make_unique<XpDtd::FsmNode>();
    node->addTransition(root, &XpDtd::FsmNode::finalNode());
    rootNodeM = std::move(node);
}

void XpParser::parseDocument() {
    const FwTraceScope scope("XpParser::parseDocument");
    try {
        makeRoot();
    } catch (const XpException& error) {
        fail("doctype error: " + error.toString());
    }
    currentNodeM = rootNodeM.get();
    lexerM->startDocument();
    parse();
}

}  // namespace lumnis
