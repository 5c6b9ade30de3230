#include "WscAstExpressions.h"

#include "WscAstPrimaries.h"
#include "WscCompilerData.h"
#include "WscGrammar.h"

namespace lumnis {

namespace {

// The binary operator inside an assignment operator that has no instruction of its own.
int binaryOperatorOf(int theAssignmentOperator) noexcept {
    switch (theAssignmentOperator) {
        case WSC_MUL_ASSIGN:
            return '*';
        case WSC_DIVIDE_ASSIGN:
            return '/';
        case WSC_DIV_ASSIGN:
            return WSC_DIV;
        case WSC_REM_ASSIGN:
            return '%';
        case WSC_AND_ASSIGN:
            return '&';
        case WSC_OR_ASSIGN:
            return '|';
        case WSC_XOR_ASSIGN:
            return '^';
        case WSC_SHIFT_LEFT_ASSIGN:
            return WSC_SHIFT_LEFT;
        case WSC_SHIFT_RIGHT_ASSIGN:
            return WSC_SHIFT_RIGHT;
        default:
            return WSC_SHIFT_RIGHT_ZERO;
    }
}

bool isPlainAssignment(int theOperator) noexcept {
    return theOperator == '=' || theOperator == WSC_ADD_ASSIGN || theOperator == WSC_SUB_ASSIGN;
}

// Steps of && and ||: every operand but the first stands behind a short-circuit test that
// leaves for theFrame.first. Null when all operands are done.
const WscSimpleNode* nextOperand(const WscSimpleNode& theSequence, WscActionFrame& theFrame,
                                 WscOpcode theTest) {
    WscCompilerData& data = theSequence.getCompilerData();
    if (theFrame.currentChild == nullptr) {
        theFrame.first = data.newLabel();
        return theFrame.currentChild = theSequence.getFirstChild();
    }
    theFrame.currentChild = theFrame.currentChild->getNextSibling();
    if (theFrame.currentChild != nullptr) {
        data.generate(theTest);
        data.generateTJump(theFrame.first);
    }
    return theFrame.currentChild;
}

}  // namespace

const WscSimpleNode* WscAstExpression::semanticAction(WscActionFrame& theFrame) const {
    return nextChild(theFrame);
}

const WscSimpleNode* WscAstExpressionList::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextChild(theFrame);
    if (next != nullptr && theFrame.step != 0) {
        getCompilerData().generate(WscOpcode::Pop);
    }
    return next;
}

const WscSimpleNode* WscAstBinaryExpressionSequence::semanticAction(
    WscActionFrame& theFrame) const {
    const WscSimpleNode* operand = theFrame.currentChild;
    if (operand == nullptr) {
        return nextChild(theFrame);
    }
    // first is the operator in front of the operand that has just been done.
    if (theFrame.first != 0) {
        getCompilerData().generateOperator(theFrame.first);
    }
    const WscSimpleNode* anOperator = operand->getNextSibling();
    if (anOperator == nullptr) {
        return nullptr;
    }
    theFrame.first = operatorOf(anOperator);
    return theFrame.currentChild = anOperator->getNextSibling();
}

const WscSimpleNode* WscAstAndExpressionSequence::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextOperand(*this, theFrame, WscOpcode::Scand);
    if (next == nullptr) {
        getCompilerData().generateToBool();
        getCompilerData().generateLabel(theFrame.first);
    }
    return next;
}

const WscSimpleNode* WscAstOrExpressionSequence::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* last = theFrame.currentChild;
    const WscSimpleNode* next = nextOperand(*this, theFrame, WscOpcode::Scor);
    if (next == nullptr) {
        // The code of an And sequence ends with the conversion already.
        if (!last->isA(WscNodeType::AndExpressionSequence)) {
            getCompilerData().generateToBool();
        }
        getCompilerData().generateLabel(theFrame.first);
    }
    return next;
}

const WscSimpleNode* WscAstConditionalExpression::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    std::int32_t& end = theFrame.first;
    std::int32_t& otherwise = theFrame.second;
    switch (theFrame.step) {
        case 0:
            end = data.newLabel();
            otherwise = data.newLabel();
            return getChild(0);
        case 1:
            data.generateTJump(otherwise);
            return getChild(1);
        case 2:
            data.generateJump(end);
            data.generateLabel(otherwise);
            return getChild(2);
        default:
            data.generateLabel(end);
            return nullptr;
    }
}

const WscSimpleNode* WscAstAssignmentExpression::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    const int assignment = operatorOf(getChild(1));
    std::int32_t& variable = theFrame.first;
    if (theFrame.step == 0) {
        const CpsString& name = nameOf(getChild(0));
        variable = data.searchVariable(name);
        if (variable < 0) {
            fail("Semantic Error: Variable \"" + name + "\" not found");
        }
        if (!isPlainAssignment(assignment)) {
            data.generateLoadVar(variable);
        }
        return getChild(2);
    }
    switch (assignment) {
        case '=':
            data.generateStoreVar(variable);
            break;
        case WSC_ADD_ASSIGN:
            data.generateAddAssign(variable);
            break;
        case WSC_SUB_ASSIGN:
            data.generateSubAssign(variable);
            break;
        default:
            data.generateOperator(binaryOperatorOf(assignment));
            data.generateStoreVar(variable);
            break;
    }
    data.generateLoadVar(variable);
    return nullptr;
}

const WscSimpleNode* WscAstPostfixExpression::semanticAction(WscActionFrame&) const {
    WscCompilerData& data = getCompilerData();
    const CpsString& name = nameOf(getChild(0));
    const int variable = data.searchVariable(name);
    if (variable < 0) {
        fail("Semantic Error: Variable \"" + name + "\" not found");
    }
    data.generateLoadVar(variable);
    if (operatorOf(getChild(1)) == WSC_INCREMENT) {
        data.generateIncrVar(variable);
    } else {
        data.generateDecrVar(variable);
    }
    return nullptr;
}

const WscSimpleNode* WscAstUnaryExpression::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    const int anOperator = operatorOf(getChild(0));
    if (anOperator == WSC_INCREMENT || anOperator == WSC_DECREMENT) {
        const CpsString& name = nameOf(getChild(1));
        const int variable = data.searchVariable(name);
        if (variable < 0) {
            fail("Semantic Error: Variable \"" + name + "\" not found");
        }
        if (anOperator == WSC_INCREMENT) {
            data.generateIncrVar(variable);
        } else {
            data.generateDecrVar(variable);
        }
        data.generateLoadVar(variable);
        return nullptr;
    }
    if (theFrame.step == 0) {
        return getChild(1);
    }
    switch (anOperator) {
        case WSC_TYPEOF:
            data.generate(WscOpcode::Typeof);
            break;
        case WSC_ISVALID:
            data.generate(WscOpcode::Isvalid);
            break;
        case '!':
            data.generate(WscOpcode::Not);
            break;
        case '~':
            data.generate(WscOpcode::BNot);
            break;
        case WSC_UNARY_MINUS:
            data.generate(WscOpcode::Uminus);
            break;
        case WSC_UNARY_PLUS:
            // The machine has no such instruction: twice negated is converted to a number.
            data.generate(WscOpcode::Uminus);
            data.generate(WscOpcode::Uminus);
            break;
        default:
            fail("Internal error: compiler does not handle operator");
    }
    return nullptr;
}

const WscSimpleNode* WscAstLocalScriptFunctionCall::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    std::int32_t& function = theFrame.first;
    if (theFrame.step != 0) {
        data.generateLocalCall(function);
        return nullptr;
    }
    const CpsString& name = nameOf(getChild(0));
    function = data.searchFunctionNo(name);
    if (function < 0) {
        fail("Semantic Error: Function \"" + name + "\" not found");
    }
    const WscSimpleNode* arguments = getChild(1);
    if (static_cast<unsigned>(data.searchFunctionArgs(name)) != arguments->getNumChildren()) {
        fail("Semantic Error: Wrong number of arguments in call of function \"" + name + "\"");
    }
    return arguments;
}

const WscSimpleNode* WscAstExternalScriptFunctionCall::semanticAction(
    WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    std::int32_t& url = theFrame.first;
    std::int32_t& functionName = theFrame.second;
    const CpsString& name = nameOf(getChild(1));
    const WscSimpleNode* arguments = getChild(2);
    if (theFrame.step == 0) {
        const CpsString& unit = nameOf(getChild(0));
        url = data.searchUrlConst(unit);
        if (url < 0) {
            fail("URL reference \"" + unit + "\" not found");
        }
        functionName = data.addUtf8Const(name);
        return arguments;
    }
    if (arguments->getNumChildren() > 255) {
        fail("Semantic Error: Too many arguments in call of function \"" + name + "\" (>255)");
    }
    data.generateExternalCall(url, functionName, arguments->getNumChildren());
    return nullptr;
}

const WscSimpleNode* WscAstLibraryFunctionCall::semanticAction(WscActionFrame& theFrame) const {
    const WscSimpleNode* arguments = getChild(2);
    if (theFrame.step == 0) {
        return arguments;
    }
    if (!getCompilerData().generateLibraryCall(nameOf(getChild(0)), nameOf(getChild(1)),
                                               arguments->getNumChildren())) {
        fail("Semantic Error: Library or function not found");
    }
    return nullptr;
}

}  // namespace lumnis
