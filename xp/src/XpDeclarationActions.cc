// The actions for declarations of elements and attributes.
//
// The parts of a content model stand on unitStackM when they are finished, and on choiceStackM
// and seqStackM while names are still added, so that nesting of any depth needs no recursion.
#include <algorithm>
#include <set>
#include <utility>

#include "XpAttValueProcessor.h"
#include "XpFsm.h"
#include "XpLexer.h"
#include "XpParserBase.h"
#include "XpTokenValue.h"

namespace lumnis {

namespace {

bool isOptional(std::size_t theModifier) {
    return (theModifier & XpModifier::OPTIONAL) != 0;
}

bool isRepeated(std::size_t theModifier) {
    return (theModifier & XpModifier::REPEATED) != 0;
}

template <typename T>
T popFrom(std::vector<T>& theStack) {
    T top = std::move(theStack.back());
    theStack.pop_back();
    return top;
}

}  // namespace

void XpParserBase::beginNesting() {
    peNestStackM.push_back(currentPeM);
}

void XpParserBase::endNesting() {
    if (peNestStackM.back() != currentPeM) {
        fail("improper nesting of parameter entities");
    }
    peNestStackM.pop_back();
}

void XpParserBase::beginIgnored() {
    lexerM->yy_push_state(XpLexer::IGNORESECT);
}

void XpParserBase::endIgnored() {
    lexerM->yy_pop_state();
}

void XpParserBase::declareElement(const CpsString& theName) {
    buildingDtdM->obtainElement(theName).define(std::exchange(contentSpecM, nullptr));
}

void XpParserBase::specifyEmpty() {
    contentSpecM = std::make_unique<XpDtd::GrammarUnit>(std::make_unique<XpDtd::EmptyNode>());
}

void XpParserBase::specifyAny() {
    contentSpecM = std::make_unique<XpDtd::GrammarUnit>(std::make_unique<XpDtd::AnyNode>());
}

void XpParserBase::specifyMixed() {
    contentSpecM = std::exchange(currentChoiceM, nullptr);
}

void XpParserBase::specifyChildren() {
    contentSpecM = popFrom(unitStackM);
}

void XpParserBase::finishModel(std::size_t theModifier) {
    unitStackM.back()->finish(isOptional(theModifier), isRepeated(theModifier));
}

void XpParserBase::addName(const CpsString& theName, std::size_t theModifier) {
    unitStackM.push_back(std::make_unique<XpDtd::Fsm>(&buildingDtdM->obtainElement(theName),
                                                      isOptional(theModifier),
                                                      isRepeated(theModifier), *modelSizeM));
    lexerM->releaseString(theName);
}

void XpParserBase::modifyGroup(std::size_t theModifier) {
    unitStackM.back()->applyModifier(isOptional(theModifier), isRepeated(theModifier));
}

void XpParserBase::choiceToUnit() {
    unitStackM.push_back(popFrom(choiceStackM));
}

void XpParserBase::seqToUnit() {
    unitStackM.push_back(popFrom(seqStackM));
}

void XpParserBase::beginChoice() {
    choiceStackM.push_back(std::make_unique<XpDtd::ChoiceFsm>(*modelSizeM));
    addToChoice();
}

void XpParserBase::addToChoice() {
    choiceStackM.back()->addAlternative(*popFrom(unitStackM));
}

void XpParserBase::beginSeq() {
    seqStackM.push_back(std::make_unique<XpDtd::SeqFsm>(*modelSizeM));
    addToSeq();
}

void XpParserBase::addToSeq() {
    seqStackM.back()->appendSequence(*popFrom(unitStackM));
}

void XpParserBase::mixText(bool isOptionalText) {
    currentChoiceM = std::make_unique<XpDtd::Choice>();
    currentChoiceM->addItem(&XpPseudoElements::instance().pcData);
    currentChoiceM->closeChoice(isOptionalText, true);
}

void XpParserBase::mixFirstElement(const CpsString& theName) {
    currentChoiceM = std::make_unique<XpDtd::Choice>();
    modelSizeM->addNode();
    modelSizeM->addNode();
    countMixed(currentChoiceM->addItem(&XpPseudoElements::instance().pcData));
    mixElement(theName);
}

// Both nodes of mixed content get each transition.
void XpParserBase::countMixed(bool isNew) {
    modelSizeM->add(isNew ? 2 : 0);
}

void XpParserBase::mixElement(const CpsString& theName) {
    countMixed(currentChoiceM->addItem(&buildingDtdM->obtainElement(theName)));
    lexerM->releaseString(theName);
}

void XpParserBase::closeMixed() {
    countMixed(true);
    modelSizeM->endModel(currentChoiceM->closeChoice(true, true));
}

void XpParserBase::declareAttributes(const CpsString& theElement) {
    buildingDtdM->obtainElement(theElement).addAttributes(attDefsM);
    attDefsM.clear();
    attDefsLimitM = theAttDefsLimit;
}

// Of definitions of one name in one declaration the last one holds. The others are dropped as soon
// as there are many, so that a long row of them does not hold memory.
void XpParserBase::dropRepeatedDefinitions() {
    std::set<std::string_view> names;
    auto kept = attDefsM.end();
    for (auto definition = attDefsM.end(); definition != attDefsM.begin();) {
        --definition;
        if (names.insert((*definition)->getName()).second) {
            --kept;
            std::swap(*kept, *definition);
        }
    }
    attDefsM.erase(attDefsM.begin(), kept);
    attDefsLimitM = std::max(theAttDefsLimit, 2 * attDefsM.size());
}

// What an incomplete DTD says of types may be wrong, so there every attribute is CDATA.
void XpParserBase::defineAttribute(const CpsString& theName) {
    const bool isIncomplete = buildingDtdM->isIncomplete();
    if (isIncomplete) {
        attProcessorM = std::make_unique<XpCDataProcessor>();
        if (!attDefaultTextM) {
            attDefaultKindM = XpDtd::Attribute::IMPLIED;
        }
    }
    std::unique_ptr<const XpDtd::AttValue> value;
    if (attDefaultTextM) {
        value = attProcessorM->process(
            *attDefaultTextM, {*lexerM, *buildingDtdM, isIncomplete ? buildingDtdM : nullptr});
        attDefaultTextM.reset();
    }
    if (!attProcessorM->checkDefault(value.get(), attDefaultKindM)) {
        fail("illegal default declaration for " + theName);
    }
    attDefsM.push_back(std::make_unique<XpDtd::Attribute>(
        theName, std::exchange(attProcessorM, nullptr), attDefaultKindM, std::move(value)));
    lexerM->releaseString(theName);
    if (attDefsM.size() >= attDefsLimitM) {
        dropRepeatedDefinitions();
    }
}

void XpParserBase::typeCData() {
    attProcessorM = std::make_unique<XpCDataProcessor>();
}

void XpParserBase::typeId() {
    attProcessorM = std::make_unique<XpIdProcessor>();
}

void XpParserBase::typeIdRef() {
    attProcessorM = std::make_unique<XpIdRefProcessor>();
}

void XpParserBase::typeIdRefs() {
    attProcessorM = std::make_unique<XpIdRefsProcessor>();
}

void XpParserBase::typeEntity() {
    attProcessorM = std::make_unique<XpEntityProcessor>();
}

void XpParserBase::typeEntities() {
    attProcessorM = std::make_unique<XpEntitiesProcessor>();
}

void XpParserBase::typeNmToken() {
    attProcessorM = std::make_unique<XpNmTokenProcessor>();
}

void XpParserBase::typeNmTokens() {
    attProcessorM = std::make_unique<XpNmTokensProcessor>();
}

std::unique_ptr<XpDtd::Choice> XpParserBase::closeTokens() {
    currentChoiceM->closeChoice(false, false);
    return std::exchange(currentChoiceM, nullptr);
}

void XpParserBase::typeNotation() {
    attProcessorM = std::make_unique<XpNotationProcessor>(closeTokens());
}

void XpParserBase::typeEnum() {
    attProcessorM = std::make_unique<XpEnumProcessor>(closeTokens());
}

void XpParserBase::chooseFirstNotation(const CpsString& theName) {
    currentChoiceM = std::make_unique<XpDtd::Choice>();
    chooseNotation(theName);
}

void XpParserBase::chooseNotation(const CpsString& theName) {
    currentChoiceM->addItem(&buildingDtdM->obtainNotation(theName));
    lexerM->releaseString(theName);
}

void XpParserBase::chooseFirstEnum(const CpsString& theToken) {
    currentChoiceM = std::make_unique<XpDtd::Choice>();
    chooseEnum(theToken);
}

void XpParserBase::chooseEnum(const CpsString& theToken) {
    currentChoiceM->addItem(&buildingDtdM->obtainEnum(theToken));
    lexerM->releaseString(theToken);
}

void XpParserBase::defaultRequired() {
    attDefaultKindM = XpDtd::Attribute::REQUIRED;
    attDefaultTextM.reset();
}

void XpParserBase::defaultImplied() {
    attDefaultKindM = XpDtd::Attribute::IMPLIED;
    attDefaultTextM.reset();
}

void XpParserBase::defaultFixed(const CpsString& theLiteral) {
    attDefaultKindM = XpDtd::Attribute::FIXED;
    attDefaultTextM = processAttValue(theLiteral);
    lexerM->releaseString(theLiteral);
}

void XpParserBase::defaultValue(const CpsString& theLiteral) {
    attDefaultKindM = XpDtd::Attribute::DEFAULT;
    attDefaultTextM = processAttValue(theLiteral);
    lexerM->releaseString(theLiteral);
}

}  // namespace lumnis
