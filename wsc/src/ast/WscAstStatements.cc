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

const WscSimpleNode* WscAstStatement::semanticAction(WscActionFrame& theFrame) const {
    if (theFrame.step == 0) {
        return getFirstChild();
    }
    if (!leavesNoValue(*getFirstChild())) {
        getCompilerData().generate(WscOpcode::Pop);
    }
    return nullptr;
}

const WscSimpleNode* WscAstStatementList::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextChild(theFrame);
    if (next != nullptr && getCompilerData().getDebugMode()) {
        getCompilerData().generateDebug(next->getLineNumber());
    }
    return next;
}

const WscSimpleNode* WscAstVariableDeclaration::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    const CpsString& name = nameOf(getChild(0));
    const WscSimpleNode* initial = getChild(1);
    const bool hasInitial = !initial->isA(WscNodeType::Empty);
    if (theFrame.step == 0) {
        if (data.searchVariable(name) >= 0) {
            fail("Semantic Error: Variable \"" + name + "\" multiply defined");
        }
        if (hasInitial) {
            return initial;
        }
    }
    // Only now, so that the initial value cannot use the variable.
    const int variable = data.addVariable(name);
    if (hasInitial) {
        data.generateStoreVar(variable);
    }
    return nullptr;
}

const WscSimpleNode* WscAstIfStatement::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    const WscSimpleNode* elseStatement = getChild(2);
    const bool hasElse = !elseStatement->isA(WscNodeType::Empty);
    std::int32_t& otherwise = theFrame.first;
    std::int32_t& end = theFrame.second;
    switch (theFrame.step) {
        case 0:
            otherwise = data.newLabel();
            if (hasElse) {
                end = data.newLabel();
            }
            return getChild(0);
        case 1:
            data.generateTJump(otherwise);
            return getChild(1);
        case 2:
            if (!hasElse) {
                data.generateLabel(otherwise);
                return nullptr;
            }
            data.generateJump(end);
            data.generateLabel(otherwise);
            return elseStatement;
        default:
            data.generateLabel(end);
            return nullptr;
    }
}

const WscSimpleNode* WscAstWhileStatement::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    std::int32_t& start = theFrame.first;
    std::int32_t& end = theFrame.second;
    switch (theFrame.step) {
        case 0:
            start = data.newLabel();
            end = data.newLabel();
            data.pushLoopLabels(start, end);
            data.generateLabel(start);
            return getChild(0);
        case 1:
            data.generateTJump(end);
            return getChild(1);
        default:
            data.generateJump(start);
            data.generateLabel(end);
            data.popLoopLabels();
            return nullptr;
    }
}

const WscSimpleNode* WscAstForStatement::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    std::int32_t& start = theFrame.first;
    std::int32_t& end = theFrame.second;
    const WscSimpleNode* init = getChild(0);
    const WscSimpleNode* condition = init->getNextSibling();
    const WscSimpleNode* increment = condition->getNextSibling();
    switch (theFrame.step) {
        case 0: {
            start = data.newLabel();
            const int continueLabel = data.newLabel();
            end = data.newLabel();
            data.pushLoopLabels(continueLabel, end);
            return init;
        }
        case 1:
            if (!leavesNoValue(*init)) {
                data.generate(WscOpcode::Pop);
            }
            data.generateLabel(start);
            return condition;
        case 2:
            if (!condition->isA(WscNodeType::Empty)) {
                data.generateTJump(end);
            }
            return increment->getNextSibling();
        case 3:
            data.generateLabel(data.getContinueLabel());
            return increment;
        default:
            if (!increment->isA(WscNodeType::Empty)) {
                data.generate(WscOpcode::Pop);
            }
            data.generateJump(start);
            data.generateLabel(end);
            data.popLoopLabels();
            return nullptr;
    }
}

const WscSimpleNode* WscAstContinueStatement::semanticAction(WscActionFrame&) const {
    const int label = getCompilerData().getContinueLabel();
    if (label < 0) {
        fail("Semantic Error: Continue without for or while");
    }
    getCompilerData().generateJump(label);
    return nullptr;
}

const WscSimpleNode* WscAstBreakStatement::semanticAction(WscActionFrame&) const {
    const int label = getCompilerData().getBreakLabel();
    if (label < 0) {
        fail("Semantic Error: Break without for or while");
    }
    getCompilerData().generateJump(label);
    return nullptr;
}

const WscSimpleNode* WscAstReturnStatement::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* value = getFirstChild();
    if (value->isA(WscNodeType::Empty)) {
        getCompilerData().generate(WscOpcode::ReturnEs);
        return nullptr;
    }
    if (theFrame.step == 0) {
        return value;
    }
    getCompilerData().generate(WscOpcode::Return);
    return nullptr;
}

}  // namespace lumnis
