// The actions for the body of a document: text, processing instructions, elements.
//
// currentNodeM is the state of the innermost open element. A start tag moves it in the model of
// the parent, keeps that state on nodeStackM, and goes to the start of the element's own model.
#include <utility>

#include "CpsBytes.h"
#include "XpAttValueProcessor.h"
#include "XpContentNode.h"
#include "XpLexer.h"
#include "XpLookupCache.h"
#include "XpParserBase.h"
#include "XpTextRules.h"

namespace lumnis {

void XpParserBase::addSpace(std::string_view theText) {
    XpTextRules::appendWithLineEnds(textM, theText);
}

void XpParserBase::addCharData(std::string_view theText) {
    XpTextRules::appendWithLineEnds(textM, theText);
    textHasDataM = true;
}

void XpParserBase::addCharacter(std::size_t theCodePoint) {
    XpTextRules::appendUtf8(textM, static_cast<unsigned>(theCodePoint));
    textHasDataM = true;
}

// Follows "#PCDATA", which must be allowed here.
void XpParserBase::takeText(const char* theMessage) {
    currentNodeM = currentNodeM->next(&pseudoM.pcData);
    if (currentNodeM == nullptr) {
        fail(theMessage);
    }
}

// Follows "#PCDATA" if it is allowed here.
bool XpParserBase::takeOptionalText() {
    const XpDtd::ContentNode* node =
        currentNodeM == nullptr ? nullptr : currentNodeM->next(&pseudoM.pcData);
    if (node == nullptr) {
        return false;
    }
    currentNodeM = node;
    return true;
}

void XpParserBase::addCdSection() {
    takeText("unexpected CDATA section");
    cdSectionM.clear();
    XpTextRules::appendWithLineEnds(cdSectionM, lexerM->getTokenText());
    XpDtd::PcDataActor* actor = activeDtdM->getCdSectionActor();
    if (actor == nullptr) {
        actor = activeDtdM->getPcDataActor();
    }
    if (actor != nullptr) {
        (*actor)(cdSectionM, contextM);
    }
}

void XpParserBase::flushCharData() {
    XpDtd::PcDataActor* actor = nullptr;
    if (textHasDataM) {
        takeText("unexpected character data");
        actor = activeDtdM->getPcDataActor();
    } else if (textM.empty()) {
        return;
    } else if (takeOptionalText()) {
        actor = activeDtdM->getPcDataActor();
    } else if (activeDtdM != nullptr) {
        actor = activeDtdM->getWhitespaceActor();
    } else {
        actor = prologWhitespaceActorM;
    }
    if (actor != nullptr) {
        (*actor)(textM, contextM);
    }
    textM.clear();
    textHasDataM = false;
}

void XpParserBase::processInstruction(const CpsString& theTarget, const CpsString& theData) {
    XpDtd::PiActor* actor = activeDtdM != nullptr ? activeDtdM->getPiActor() : prologPiActorM;
    if (actor != nullptr) {
        (*actor)(theTarget, theData, contextM);
    }
    lexerM->releaseString(theData);
    lexerM->releaseString(theTarget);
}

// An element that is only known by its use may hold anything.
void XpParserBase::imply(XpDtd::Element& theElement) {
    if (theElement.getContent() == nullptr) {
        theElement.define(std::make_unique<XpDtd::GrammarUnit>(std::make_unique<XpDtd::AnyNode>()));
        theElement.setActor(defaultActorM);
    }
}

void XpParserBase::beginElement(std::string_view theName) {
    elementStackM.push_back(currentElementM);
    if (buildingDtdM != nullptr) {
        impliedElementM = &buildingDtdM->obtainElement(theName);
        imply(*impliedElementM);
        currentElementM = impliedElementM;
    } else {
        currentElementM = &lookupCacheM->obtainElement(*activeDtdM, theName);
    }
    currentNodeM = currentNodeM->next(currentElementM);
    if (currentNodeM == nullptr) {
        fail("unexpected element");
    }
    nodeStackM.push_back(currentNodeM);
    const XpDtd::GrammarUnit* content = currentElementM->getContent();
    if (content == nullptr) {
        fail(currentElementM->getName() + " undeclared");
    }
    currentNodeM = content->getFirst();
    lexerM->yy_push_state(XpLexer::TAG);
    attributesM.clear();
}

const XpDtd::Attribute& XpParserBase::obtainAttribute(std::string_view theName) {
    if (impliedElementM == nullptr) {
        return lookupCacheM->getAttribute(*currentElementM, theName);
    }
    const XpDtd::Attribute* attribute = impliedElementM->findAttribute(theName);
    return attribute != nullptr
               ? *attribute
               : impliedElementM->implyAttribute(std::make_unique<XpDtd::Attribute>(
                     theName, std::make_unique<XpCDataProcessor>(), XpDtd::Attribute::IMPLIED,
                     nullptr));
}

void XpParserBase::addAttribute(const CpsString& theName, const CpsString& theLiteral) {
    const XpDtd::Attribute& attribute = obtainAttribute(theName);
    addValue(attribute, processAttValue(theLiteral));
}

void XpParserBase::addPlainAttribute(std::string_view theName, std::string_view theLiteral) {
    addValue(obtainAttribute(theName), theLiteral);
}

void XpParserBase::addValue(const XpDtd::Attribute& theAttribute, std::string_view theText) {
    theAttribute.getProcessor().add(attributesM, theAttribute, theText,
                                    {*lexerM, *activeDtdM, buildingDtdM});
}

void XpParserBase::endStartTag() {
    lexerM->yy_pop_state();
    attributesM.sort();
    currentElementM->checkRequired(attributesM);
}

void XpParserBase::callBegin(int theKind) {
    if (XpDtd::ElementActor* actor = currentElementM->getActor()) {
        actor->begin(currentElementM, attributesM, theKind, contextM);
    }
}

void XpParserBase::beginWithoutContent(bool hasSpace) {
    const XpDtd::ContentNode* node = currentNodeM->next(&pseudoM.empty);
    if (node != nullptr) {
        if (hasSpace && currentNodeM->next(&pseudoM.pcData) == nullptr) {
            fail("empty element must not contain space");
        }
        currentNodeM = node;
    }
    callBegin(hasSpace ? XpDtd::ElementActor::SPACE_ONLY : XpDtd::ElementActor::PAIR);
}

void XpParserBase::beginWithContent() {
    callBegin(XpDtd::ElementActor::CONTENT);
}

// The model must allow the end here, if need be behind an empty text.
void XpParserBase::takeEnd(const char* theMessage) {
    takeOptionalText();
    currentNodeM = currentNodeM->next(&pseudoM.end);
    if (currentNodeM == nullptr) {
        fail(theMessage);
    }
}

void XpParserBase::finishElement() {
    if (XpDtd::ElementActor* actor = currentElementM->getActor()) {
        actor->end(currentElementM, contextM);
    }
    currentElementM = elementStackM.back();
    elementStackM.pop_back();
    currentNodeM = nodeStackM.back();
    nodeStackM.pop_back();
}

void XpParserBase::endEmptyElement() {
    endStartTag();
    takeEnd("element must not be empty");
    callBegin(XpDtd::ElementActor::EMPTY_TAG);
    finishElement();
}

void XpParserBase::endElement(std::string_view theName) {
    takeEnd("unexpected end of element");
    const std::string_view name = currentElementM->getName();
    const bool isItself = theName.data() == name.data();  // from who has compared already
    if (!isItself && !CpsBytes::areSame(name, theName)) {
        fail("element tag mismatch: <" + currentElementM->getName() + "> ... </" + theName + ">");
    }
    finishElement();
}

}  // namespace lumnis
