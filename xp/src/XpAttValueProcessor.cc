#include "XpAttValueProcessor.h"

#include <algorithm>
#include <utility>

#include "XpByteClass.h"
#include "XpFsm.h"
#include "XpGrammar.h"
#include "XpLexer.h"

namespace lumnis {

namespace {

using Environment = XpDtd::AttValueProcessor::Environment;

// Reads the tokens of one value, the whole of which mostly is one: such a value passes the scanner.
class TokenReader {
  public:
    TokenReader(XpLexer& theLexer, std::string_view theText, XpLexer::Condition theCondition,
                const char* theType)
        : lexerM(theLexer),
          tokenM(theCondition == XpLexer::ATTNAME ? XP_NAME : XP_NAME_TOKEN),
          typeM(theType),
          isSingleM(isPlainToken(theText, theCondition)) {
        if (isSingleM) {
            singleM = theText;
            return;
        }
        textM = theText;
        textM.c_str();
        lexerM.yy_push_state(theCondition);
        lexerM.pushInput(&textM, XP_END_EXPANSION);
    }

    // The tokens are valid as long as the text and this object.
    std::string_view first() {
        if (!next()) {
            fail();
        }
        return token();
    }
    // False at the end of the text.
    bool next() {
        if (isSingleM) {
            return !std::exchange(isReadM, true);
        }
        const int token = lexerM.yylex();
        if (token == tokenM) {
            return true;
        }
        if (token != XP_END_EXPANSION) {
            fail();
        }
        lexerM.yy_pop_state();
        return false;
    }
    std::string_view token() const { return isSingleM ? singleM : lexerM.getTokenText(); }
    void finish() {
        if (next()) {
            fail();
        }
    }
    std::string_view only() {
        const std::string_view token = first();
        finish();
        return token;
    }

  private:
    // Of ASCII alone.
    static bool isPlainToken(std::string_view theText, XpLexer::Condition theCondition) {
        return !theText.empty() &&
               (theCondition != XpLexer::ATTNAME ||
                XpByteClass::isNameStart(static_cast<unsigned char>(theText[0]))) &&
               std::all_of(theText.begin(), theText.end(), XpByteClass::isName);
    }
    [[noreturn]] void fail() {
        lexerM.fail(CpsString("error parsing ") + typeM + " attribute value");
    }

    XpLexer& lexerM;
    int tokenM;
    const char* typeM;
    bool isSingleM;
    bool isReadM = false;
    std::string_view singleM;
    CpsString textM;  // for the scanner
};

const XpDtd::Id& defineId(std::string_view theText, XpLexer& theLexer) {
    TokenReader reader(theLexer, theText, XpLexer::ATTNAME, "ID");
    XpDtd::Id& id = theLexer.getIds().obtain(reader.first());
    if (id.isDefined()) {
        theLexer.fail("ID multiply defined: " + id.getName());
    }
    id.setDefined();
    reader.finish();
    return id;
}

const XpDtd::Entity* unparsedEntity(std::string_view theName, const Environment& theEnvironment) {
    const bool isImplying = theEnvironment.buildingDtd != nullptr;
    const XpDtd::Entity& entity = isImplying ? theEnvironment.buildingDtd->obtainEntity(theName)
                                             : theEnvironment.activeDtd.obtainEntity(theName);
    const XpDtd::ItemValue* value = entity.getValue();
    const bool isImplied = isImplying && value == nullptr;
    const bool isUnparsed = value != nullptr && value->isExternal() &&
                            static_cast<const XpDtd::ExternalId*>(value)->getNotation() != nullptr;
    if (!isImplied && !isUnparsed) {
        theEnvironment.lexer.fail(CpsString("entity ", theName) + " is not NDATA");
    }
    return &entity;
}

}  // namespace

XpDtd::AttValueProcessor::~AttValueProcessor() = default;

bool XpDtd::AttValueProcessor::checkDefault(const AttValue*, Attribute::DefaultKind) const {
    return true;
}

void XpDtd::AttValueProcessor::add(AttributeMap& theAttributes, const Attribute& theAttribute,
                                   std::string_view theText,
                                   const Environment& theEnvironment) const {
    theAttributes.add(theAttribute, process(theText, theEnvironment));
}

std::unique_ptr<const XpDtd::AttValue> XpCDataProcessor::process(std::string_view theText,
                                                                 const Environment&) const {
    return std::make_unique<XpDtd::AttValueCData>(theText);
}

void XpCDataProcessor::add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
                           std::string_view theText, const Environment&) const {
    theAttributes.addCData(theAttribute, theText);
}

std::unique_ptr<const XpDtd::AttValue> XpIdProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    return std::make_unique<XpDtd::AttValueId>(&defineId(theText, theEnvironment.lexer),
                                               theEnvironment.lexer.shareIds());
}

void XpIdProcessor::add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
                        std::string_view theText, const Environment& theEnvironment) const {
    theAttributes.addId(theAttribute, defineId(theText, theEnvironment.lexer),
                        theEnvironment.lexer.shareIds());
}

bool XpIdProcessor::checkDefault(const XpDtd::AttValue* theValue,
                                 XpDtd::Attribute::DefaultKind theKind) const {
    return theValue == nullptr &&
           (theKind == XpDtd::Attribute::IMPLIED || theKind == XpDtd::Attribute::REQUIRED);
}

std::unique_ptr<const XpDtd::AttValue> XpIdRefProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNAME, "IDREF");
    const XpDtd::Id& id = theEnvironment.lexer.getIds().obtain(reader.first());
    reader.finish();
    return std::make_unique<XpDtd::AttValueIdRef>(&id, theEnvironment.lexer.shareIds());
}

std::unique_ptr<const XpDtd::AttValue> XpIdRefsProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNAME, "IDREFS");
    XpDtd::AttValueIdRefs::Ids ids;
    while (reader.next()) {
        ids.push_back(&theEnvironment.lexer.getIds().obtain(reader.token()));
    }
    return std::make_unique<XpDtd::AttValueIdRefs>(std::move(ids), theEnvironment.lexer.shareIds());
}

std::unique_ptr<const XpDtd::AttValue> XpEntityProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNAME, "ENTITY");
    const XpDtd::Entity* entity = unparsedEntity(reader.first(), theEnvironment);
    reader.finish();
    return std::make_unique<XpDtd::AttValueEntity>(entity);
}

std::unique_ptr<const XpDtd::AttValue> XpEntitiesProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNAME, "ENTITIES");
    XpDtd::AttValueEntities::Entities entities;
    while (reader.next()) {
        entities.push_back(unparsedEntity(reader.token(), theEnvironment));
    }
    return std::make_unique<XpDtd::AttValueEntities>(std::move(entities));
}

std::unique_ptr<const XpDtd::AttValue> XpNmTokenProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNMTOKEN, "NMTOKEN");
    return std::make_unique<XpDtd::AttValueNmToken>(reader.only());
}

void XpNmTokenProcessor::add(XpDtd::AttributeMap& theAttributes,
                             const XpDtd::Attribute& theAttribute, std::string_view theText,
                             const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNMTOKEN, "NMTOKEN");
    theAttributes.addNmToken(theAttribute, reader.only());
}

std::unique_ptr<const XpDtd::AttValue> XpNmTokensProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNMTOKEN, "NMTOKENS");
    CpsString tokens;
    while (reader.next()) {
        if (!tokens.empty()) {
            tokens.appendPiece(" ");
        }
        tokens.appendPiece(reader.token());
    }
    return std::make_unique<XpDtd::AttValueNmTokens>(std::move(tokens));
}

XpNotationProcessor::XpNotationProcessor(std::unique_ptr<XpDtd::Choice> theChoice)
    : choiceM(std::move(theChoice)) {}

XpNotationProcessor::~XpNotationProcessor() = default;

std::unique_ptr<const XpDtd::AttValue> XpNotationProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNAME, "NOTATION");
    const XpDtd::Notation& notation = theEnvironment.activeDtd.obtainNotation(reader.first());
    if (choiceM->getFirst()->next(&notation) == nullptr) {
        theEnvironment.lexer.fail("Unexpected notation in NOTATION attribute value");
    }
    reader.finish();
    return std::make_unique<XpDtd::AttValueNotation>(&notation);
}

XpEnumProcessor::XpEnumProcessor(std::unique_ptr<XpDtd::Choice> theChoice)
    : choiceM(std::move(theChoice)) {}

XpEnumProcessor::~XpEnumProcessor() = default;

const XpDtd::Enum& XpEnumProcessor::read(std::string_view theText,
                                         const Environment& theEnvironment) const {
    TokenReader reader(theEnvironment.lexer, theText, XpLexer::ATTNMTOKEN, "enumerated");
    const XpDtd::Enum& token = theEnvironment.activeDtd.obtainEnum(reader.first());
    if (choiceM->getFirst()->next(&token) == nullptr) {
        theEnvironment.lexer.fail("Unexpected token in enumerated attribute value");
    }
    reader.finish();
    return token;
}

std::unique_ptr<const XpDtd::AttValue> XpEnumProcessor::process(
    std::string_view theText, const Environment& theEnvironment) const {
    return std::make_unique<XpDtd::AttValueEnum>(&read(theText, theEnvironment));
}

void XpEnumProcessor::add(XpDtd::AttributeMap& theAttributes, const XpDtd::Attribute& theAttribute,
                          std::string_view theText, const Environment& theEnvironment) const {
    theAttributes.addEnum(theAttribute, read(theText, theEnvironment));
}

}  // namespace lumnis
