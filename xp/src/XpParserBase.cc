#include "XpParserBase.h"

#include <algorithm>
#include <utility>

#include "FwTraceScope.h"
#include "XpAttValueProcessor.h"
#include "XpFsm.h"
#include "XpGrammar.h"
#include "XpLexer.h"
#include "XpLookupCache.h"
#include "XpParserError.h"

namespace lumnis {

XpParserBase::XpParserBase(const CpsString* theInput, void* theContext)
    : lexerM(std::make_unique<XpLexer>(theInput)),
      contextM(theContext),
      lookupCacheM(std::make_unique<XpLookupCache>()),
      pseudoM(XpPseudoElements::instance()),
      modelSizeM(std::make_unique<XpModelSize>()) {}

XpParserBase::~XpParserBase() = default;

void XpParserBase::parse() {
    const FwTraceScope scope("XpParserBase::parse");
    try {
        if (xpparse(*this) != 0) {
            fail("parse error");
        }
    } catch (const XpParserError&) {
        throw;
    } catch (const XpException& error) {
        fail(error.toString());
    }
    // Its actors were for what has been parsed, the prolog or the body.
    if (internalSubsetM != nullptr) {
        internalSubsetM->setPiActor(nullptr);
        internalSubsetM->setWhitespaceActor(nullptr);
    }
}

void XpParserBase::failToParse(std::string_view theMessage) {
    fail(theMessage == "syntax error" ? "parse error" : "parser stack overflow");
}

void XpParserBase::fail(CpsString theMessage) const {
    lexerM->fail(std::move(theMessage));
}

void* XpParserBase::allocateStack(std::size_t theSize) {
    parserStacksM.push_back(std::make_unique<char[]>(theSize));
    return parserStacksM.back().get();
}

void XpParserBase::freeStack(void* theBlock) {
    const auto place =
        std::find_if(parserStacksM.begin(), parserStacksM.end(),
                     [&](const auto& theStack) { return theStack.get() == theBlock; });
    if (place != parserStacksM.end()) {
        parserStacksM.erase(place);
    }
}

XpParserBase::ExternalText XpParserBase::fetch(const XpDtd::ExternalId& theId) const {
    const CpsString* text =
        resolverM == nullptr ? nullptr : resolverM->fetch(theId.getSystemId(), theId.getPublicId());
    if (text != nullptr) {
        text->c_str();
    }
    return {text, Release{resolverM}};
}

void XpParserBase::endProlog(bool hasLookahead) {
    if (hasLookahead) {
        fail("document start expected");
    }
}

void XpParserBase::endDtd(bool isAtEnd) {
    if (!isAtEnd) {
        fail("end of external DTD, expecting end of file");
    }
    buildingDtdM->checkNotations(!buildingDtdM->isIncomplete());
}

void XpParserBase::endDocument(bool isAtEnd) {
    if (!isAtEnd) {
        fail("end of document, expecting end of file");
    }
    CpsString message("ID reference(s) undefined: ");
    if (lexerM->getUndefinedIds(message)) {
        fail(std::move(message));
    }
}

// A lookahead may have a string of the pool.
void XpParserBase::freeStrings(bool hasLookahead) {
    if (!hasLookahead) {
        lexerM->resetStrings();
    }
}

CpsString* XpParserBase::keyword(std::string_view theText) {
    return lexerM->internString(theText);
}

void XpParserBase::declareVersion(const CpsString& theName, const CpsString& theVersion) {
    if (!(theName == "version")) {
        fail("version expected");
    }
    if (!(theVersion == "1.0")) {
        fail("unsupported XML version");
    }
}

void XpParserBase::declareStandalone(const CpsString& theValue) {
    standaloneM = theValue == "yes";
    if (!standaloneM && !(theValue == "no")) {
        fail("yes or no expected");
    }
}

void XpParserBase::setDoctypeName(const CpsString& theName) {
    doctypeNameM = std::make_unique<CpsString>(theName);
}

void XpParserBase::beginInternalSubset() {
    if (buildingDtdM != nullptr || activeDtdM != nullptr) {
        fail("internal subset present, but DTD is already set");
    }
    internalSubsetM = std::make_unique<XpDtd>();
    internalSubsetM->setPiActor(prologPiActorM);
    internalSubsetM->setWhitespaceActor(prologWhitespaceActorM);
    buildingDtdM = internalSubsetM.get();
    activeDtdM = internalSubsetM.get();
    inInternalSubsetM = true;
    lexerM->markStrings();  // the name of the document type
    lexerM->yy_push_state(XpLexer::DTD);
}

void XpParserBase::endInternalSubset() {
    buildingDtdM = nullptr;
    lexerM->unmarkStrings();
    lexerM->yy_pop_state();
}

void XpParserBase::setExternalId() {
    externalIdM.reset(static_cast<XpDtd::ExternalId*>(pendingValueM.release()));
}

}  // namespace lumnis
