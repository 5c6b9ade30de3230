// The actions for entities and notations: their declarations, their references, and the texts of
// literals, in which references stand.
#include <utility>

#include "XpContentNode.h"
#include "XpGrammar.h"
#include "XpLexer.h"
#include "XpParserBase.h"
#include "XpTextRules.h"
#include "XpTokenValue.h"

namespace lumnis {

namespace {

// More levels than there are parameter entities mean that one holds itself. Mostly that comes to
// another fault at the second level, which is the better message: so many levels are let go on.
constexpr std::size_t thePeDepthReserve = 100'000;

std::unique_ptr<CpsString> copyOf(const CpsString& theText) {
    return std::make_unique<CpsString>(theText);
}

// Stands for an entity that is not known: its own reference, as text.
CpsString dummyText(std::string_view theName) {
    return CpsString("&#38;", theName) + ";";
}

}  // namespace

const XpDtd::Entity& XpParserBase::obtainReferenced(std::string_view theName) {
    if (buildingDtdM == nullptr || standaloneM) {
        return activeDtdM->obtainEntity(theName);
    }
    XpDtd::Entity& entity = buildingDtdM->obtainEntity(theName);
    if (entity.getValue() == nullptr) {
        entity.setValue(std::make_unique<XpDtd::DummyEntityValue>(dummyText(theName)));
    }
    return entity;
}

void XpParserBase::expand(const CpsString& theText, int theEndToken) {
    lexerM->countExpansion(theText.length());
    lexerM->pushInput(&theText, theEndToken);
}

void XpParserBase::markInProgress(const XpDtd::Entity& theEntity) {
    if (!entitiesInProgressM.insert(&theEntity).second) {
        fail("circular reference to entity " + theEntity.getName());
    }
}

void XpParserBase::enterEntity() {
    const std::string_view name = lexerM->getTokenText();
    const XpDtd::Entity& entity = obtainReferenced(name);
    const XpDtd::ItemValue* value = entity.getValue();
    if (value != nullptr && value->isExternal()) {
        const auto& id = static_cast<const XpDtd::ExternalId&>(*value);
        if (id.getNotation() != nullptr) {
            fail(CpsString("reference to unparsed entity ", name));
        }
        if (ExternalText text = fetch(id)) {
            expand(*text, XP_END_EXT_REFERENCE);
            externalTextsM.push_back(std::move(text));
        } else {
            dummyTextM = dummyText(name);
            dummyTextM.c_str();
            expand(dummyTextM, XP_END_REFERENCE);
            currentNodeM = &XpDtd::AnyNode::shared();  // what it holds is not known
        }
    } else {
        expand(entity.getTextValue(), XP_END_REFERENCE);
        if (value->isDummy()) {
            currentNodeM = &XpDtd::AnyNode::shared();
        }
    }
    markInProgress(entity);
    entityStackM.push_back(&entity);
}

void XpParserBase::leaveEntity() {
    entitiesInProgressM.erase(entityStackM.back());
    entityStackM.pop_back();
}

void XpParserBase::leaveExternalEntity() {
    releaseExternalText();
    leaveEntity();
}

void XpParserBase::releaseExternalText() {
    externalTextsM.pop_back();
}

void XpParserBase::expandParameterEntity() {
    ++peCounterM;
    const XpDtd::Entity& entity = activeDtdM->obtainParameterEntity(lexerM->getTokenText());
    const XpDtd::ItemValue* value = entity.getValue();
    if (value == nullptr || !value->isExternal()) {
        expand(entity.getTextValue(), XP_END_EXPANSION);
    } else if (ExternalText text = fetch(static_cast<const XpDtd::ExternalId&>(*value))) {
        expand(*text, XP_END_EXT_EXPANSION);
        externalTextsM.push_back(std::move(text));
    } else {
        buildingDtdM->setIncomplete(true);
        lexerM->pushNothing(XP_END_EXPANSION);
    }
}

void XpParserBase::enterParameterEntity() {
    if (inInternalSubsetM) {
        fail("PE reference within internal subset markup declaration");
    }
    // Entities inside of entities are as many as are declared, or have no end.
    if (peStackM.size() > thePeDepthReserve + activeDtdM->countParameterEntities()) {
        lexerM->failToExpand();
    }
    peStackM.push_back(currentPeM);
    currentPeM = peCounterM;
}

// In an internal subset an entity may end inside of a declaration that it did not begin in. The
// declaration fails at its own end then; there is nothing to go back to here.
void XpParserBase::leaveParameterEntity() {
    if (!peStackM.empty()) {
        currentPeM = peStackM.back();
        peStackM.pop_back();
    }
}

// Entities inside of entities of any depth are read without recursion: each is one input more.
CpsString XpParserBase::processAttValue(const CpsString& theLiteral) {
    CpsString result;
    if (theLiteral.view().find('&') == std::string_view::npos &&
        theLiteral.view().find('<') == std::string_view::npos) {
        // The scanner would give it back in one piece.
        XpTextRules::appendWithBlanks(result, theLiteral);
        return result;
    }
    std::vector<const XpDtd::Entity*> openEntities;
    theLiteral.c_str();
    lexerM->yy_push_state(XpLexer::ATTVALUE);
    lexerM->pushInput(&theLiteral, XP_END_EXPANSION);
    for (;;) {
        switch (lexerM->yylex()) {
            case XP_NORMAL_CHARS:
                XpTextRules::appendWithBlanks(result, lexerM->getText());
                break;
            case XP_CHARREF:
                XpTextRules::appendUtf8(result,
                                        static_cast<unsigned>(lexerM->getValue().codePoint));
                break;
            case XP_ENTITY_REFERENCE: {
                const XpDtd::Entity& entity = obtainReferenced(lexerM->getTokenText());
                markInProgress(entity);
                expand(entity.getTextValue(), XP_END_EXPANSION);
                openEntities.push_back(&entity);
                break;
            }
            case XP_END_EXPANSION:
                if (openEntities.empty()) {
                    lexerM->yy_pop_state();
                    return result;
                }
                entitiesInProgressM.erase(openEntities.back());
                openEntities.pop_back();
                break;
            default:
                fail("error parsing attribute value string");
        }
    }
}

CpsString XpParserBase::processEntityValue(const CpsString& theLiteral) {
    CpsString result;
    theLiteral.c_str();
    lexerM->yy_push_state(XpLexer::ENTITYVALUE);
    lexerM->pushInput(&theLiteral, XP_END_EXPANSION);
    for (;;) {
        switch (lexerM->yylex()) {
            case XP_NORMAL_CHARS:
            case XP_ENTITY_REFERENCE:
                result.appendPiece(lexerM->getText());
                break;
            case XP_PE_REFERENCE: {
                const CpsString& text =
                    activeDtdM->obtainParameterEntity(lexerM->getTokenText()).getTextValue();
                lexerM->countExpansion(text.length());
                result.appendPiece(text);
                break;
            }
            case XP_CHARREF:
                XpTextRules::appendUtf8(result,
                                        static_cast<unsigned>(lexerM->getValue().codePoint));
                break;
            case XP_END_EXPANSION:
                lexerM->yy_pop_state();
                return result;
            default:
                fail("error parsing entity value string");
        }
    }
}

void XpParserBase::setEntityText(const CpsString& theLiteral) {
    pendingValueM = std::make_unique<XpDtd::EntityValue>(processEntityValue(theLiteral));
}

void XpParserBase::setUnparsed(const CpsString& theNotation) {
    static_cast<XpDtd::ExternalId&>(*pendingValueM)
        .setNotation(&buildingDtdM->obtainNotation(theNotation));
}

void XpParserBase::setSystemId(const CpsString& theSystemId) {
    pendingValueM = std::make_unique<XpDtd::SystemId>(copyOf(theSystemId));
}

void XpParserBase::setPublicId(const CpsString& thePublicId, const CpsString& theSystemId) {
    pendingValueM = std::make_unique<XpDtd::PublicId>(
        std::make_unique<CpsString>(XpTextRules::collapseSpace(thePublicId)), copyOf(theSystemId));
}

void XpParserBase::setPublicId(const CpsString& thePublicId) {
    pendingValueM = std::make_unique<XpDtd::PublicId>(copyOf(thePublicId), nullptr);
}

// A second declaration of an entity has no effect, but of a predefined one it must say the same.
void XpParserBase::testRedeclaration(const CpsString& theName) {
    struct Predefined {
        std::string_view name;
        std::string_view accepted[3];
        const char* message;
    };
    // The two blanks in the message for amp are meant so.
    static constexpr Predefined thePredefined[] = {
        {"lt",
         {"&#60;", "&#x3c;", "&#x3C;"},
         "entity lt must be character entity like \"&#38;#60;\""},
        {"gt", {">", ">", ">"}, "entity gt must be character entity like \"&#62;\""},
        {"amp",
         {"&#38;", "&#x26;", "&#38;"},
         "entity amp must be character entity like  \"&#38;#38;\""},
        {"apos", {"'", "'", "'"}, "entity apos must be character entity like \"&#39;\""},
        {"quot", {"\"", "\"", "\""}, "entity quot must be character entity like \"&#34;\""},
    };
    const std::string_view text = pendingValueM->getText();
    for (const Predefined& entity : thePredefined) {
        if (theName == entity.name && text != entity.accepted[0] && text != entity.accepted[1] &&
            text != entity.accepted[2]) {
            fail(entity.message);
        }
    }
}

void XpParserBase::declareEntity(const CpsString& theName) {
    XpDtd::Entity& entity = buildingDtdM->obtainEntity(theName);
    if (entity.getValue() != nullptr) {
        testRedeclaration(theName);
    }
    entity.setValue(std::exchange(pendingValueM, nullptr));
}

void XpParserBase::declareParameterEntity(const CpsString& theName) {
    buildingDtdM->obtainParameterEntity(theName).setValue(std::exchange(pendingValueM, nullptr));
}

void XpParserBase::declareNotation(const CpsString& theName) {
    buildingDtdM->obtainNotation(theName).setValue(std::exchange(pendingValueM, nullptr));
}

}  // namespace lumnis
