#include "WscAstStatements.h"

#include "WscAstPrimaries.h"
#include "WscCompilerData.h"

namespace lumnis {

namespace {

// Every other child of a statement is an expression, whose value is to be dropped.
bool leavesNoValue(const WscSimpleNode& theNode) noexcept {
    switch (theNode.getNodeType()) {
        case WscNodeType::VariableDeclaration:
        case WscNodeType::IfStatement:
        case WscNodeType::WhileStatement:
        case WscNodeType::ForStatement:
        case WscNodeType::ContinueStatement:
        case WscNodeType::BreakStatement:
        case WscNodeType::ReturnStatement:
        case WscNodeType::Block:
        case WscNodeType::StatementList:
        case WscNodeType::Empty:
            return true;
        default:
            return false;
    }
}

}  // namespace

const WscSimpleNode* WscAstStatement::semanticAction(WscCompilerData& theData,
                                                     WscActionFrame& theFrame) const {
    if (theFrame.step == 0) {
        return getFirstChild();
    }
    if (!leavesNoValue(*getFirstChild())) {
        theData.generate(WscOpcode::Pop);
    }
    return nullptr;
}

const WscSimpleNode* WscAstStatementList::semanticAction(WscCompilerData& theData,
                                                         WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextChild(theFrame);
    if (next != nullptr && theData.getDebugMode()) {
        theData.generateDebug(next->getLineNumber());
    }
    return next;
}

const WscSimpleNode* WscAstVariableDeclaration::semanticAction(WscCompilerData& theData,
                                                               WscActionFrame& theFrame) const {
    WscName& name = nameOf(theData, getChild(0));
    const WscSimpleNode* initial = getChild(1);
    const bool hasInitial = !initial->isA(WscNodeType::Empty);
    if (theFrame.step == 0) {
        if (theData.searchVariable(name) >= 0) {
            fail("Semantic Error: Variable \"" + CpsString(name.text) + "\" multiply defined");
        }
        if (hasInitial) {
            return initial;
        }
    }
    // Only now, so that the initial value cannot use the variable.
    const int variable = theData.addVariable(name);
    if (hasInitial) {
        theData.generateStoreVar(variable);
    }
    return nullptr;
}

const WscSimpleNode* WscAstIfStatement::semanticAction(WscCompilerData& theData,
                                                       WscActionFrame& theFrame) const {
    const WscSimpleNode* elseStatement = getChild(2);
    const bool hasElse = !elseStatement->isA(WscNodeType::Empty);
    std::int32_t& otherwise = theFrame.first;
    std::int32_t& end = theFrame.second;
    switch (theFrame.step) {
        case 0:
            otherwise = theData.newLabel();
            if (hasElse) {
                end = theData.newLabel();
            }
            return getChild(0);
        case 1:
            theData.generateTJump(otherwise);
            return getChild(1);
        case 2:
            if (!hasElse) {
                theData.generateLabel(otherwise);
                return nullptr;
            }
            theData.generateJump(end);
            theData.generateLabel(otherwise);
            return elseStatement;
        default:
            theData.generateLabel(end);
            return nullptr;
    }
}

const WscSimpleNode* WscAstWhileStatement::semanticAction(WscCompilerData& theData,
                                                          WscActionFrame& theFrame) const {
    std::int32_t& start = theFrame.first;
    std::int32_t& end = theFrame.second;
    switch (theFrame.step) {
        case 0:
            start = theData.newLabel();
            end = theData.newLabel();
            theData.pushLoopLabels(start, end);
            theData.generateLabel(start);
            return getChild(0);
        case 1:
            theData.generateTJump(end);
            return getChild(1);
        default:
            theData.generateJump(start);
            theData.generateLabel(end);
            theData.popLoopLabels();
            return nullptr;
    }
}

const WscSimpleNode* WscAstForStatement::semanticAction(WscCompilerData& theData,
                                                        WscActionFrame& theFrame) const {
    std::int32_t& start = theFrame.first;
    std::int32_t& end = theFrame.second;
    const WscSimpleNode* init = getChild(0);
    const WscSimpleNode* condition = getNextChild(init);
    const WscSimpleNode* increment = getNextChild(condition);
    switch (theFrame.step) {
        case 0: {
            start = theData.newLabel();
            const int continueLabel = theData.newLabel();
            end = theData.newLabel();
            theData.pushLoopLabels(continueLabel, end);
            return init;
        }
        case 1:
            if (!leavesNoValue(*init)) {
                theData.generate(WscOpcode::Pop);
            }
            theData.generateLabel(start);
            return condition;
        case 2:
            if (!condition->isA(WscNodeType::Empty)) {
                theData.generateTJump(end);
            }
            return getNextChild(increment);
        case 3:
            theData.generateLabel(theData.getContinueLabel());
            return increment;
        default:
            if (!increment->isA(WscNodeType::Empty)) {
                theData.generate(WscOpcode::Pop);
            }
            theData.generateJump(start);
            theData.generateLabel(end);
            theData.popLoopLabels();
            return nullptr;
    }
}

const WscSimpleNode* WscAstContinueStatement::semanticAction(WscCompilerData& theData,
                                                             WscActionFrame&) const {
    const int label = theData.getContinueLabel();
    if (label < 0) {
        fail("Semantic Error: Continue without for or while");
    }
    theData.generateJump(label);
    return nullptr;
}

const WscSimpleNode* WscAstBreakStatement::semanticAction(WscCompilerData& theData,
                                                          WscActionFrame&) const {
    const int label = theData.getBreakLabel();
    if (label < 0) {
        fail("Semantic Error: Break without for or while");
    }
    theData.generateJump(label);
    return nullptr;
}

const WscSimpleNode* WscAstReturnStatement::semanticAction(WscCompilerData& theData,
                                                           WscActionFrame& theFrame) const {
    const WscSimpleNode* value = getFirstChild();
    if (value->isA(WscNodeType::Empty)) {
        theData.generate(WscOpcode::ReturnEs);
        return nullptr;
    }
    if (theFrame.step == 0) {
        return value;
    }
    theData.generate(WscOpcode::Return);
    return nullptr;
}

}  // namespace lumnis
