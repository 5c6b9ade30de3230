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

// theOperator: ++ or --.
void generateStep(WscCompilerData& theData, int theOperator, int theVariable) {
    if (theOperator == WSC_INCREMENT) {
        theData.generateIncrVar(theVariable);
    } else {
        theData.generateDecrVar(theVariable);
    }
}

// Steps of && and ||: every operand but the first stands behind a short-circuit test that
// leaves for theFrame.first. Null when all operands are done.
const WscSimpleNode* nextOperand(const WscSimpleNode& theSequence, WscCompilerData& theData,
                                 WscActionFrame& theFrame, WscOpcode theTest) {
    if (theFrame.currentChild == nullptr) {
        theFrame.first = theData.newLabel();
        return theFrame.currentChild = theSequence.getFirstChild();
    }
    theFrame.currentChild = theSequence.getNextChild(theFrame.currentChild);
    if (theFrame.currentChild != nullptr) {
        theData.generate(theTest);
        theData.generateTJump(theFrame.first);
    }
    return theFrame.currentChild;
}

}  // namespace

const WscSimpleNode* WscAstExpression::semanticAction(WscCompilerData&,
                                                      WscActionFrame& theFrame) const {
    return nextChild(theFrame);
}

const WscSimpleNode* WscAstExpressionList::semanticAction(WscCompilerData& theData,
                                                          WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextChild(theFrame);
    if (next != nullptr && theFrame.step != 0) {
        theData.generate(WscOpcode::Pop);
    }
    return next;
}

const WscSimpleNode* WscAstBinaryExpressionSequence::semanticAction(
    WscCompilerData& theData, WscActionFrame& theFrame) const {
    const WscSimpleNode* operand = theFrame.currentChild;
    if (operand == nullptr) {
        return nextChild(theFrame);
    }
    // first is the operator in front of the operand that has just been done.
    if (theFrame.first != 0) {
        theData.generateOperator(theFrame.first);
    }
    const WscSimpleNode* anOperator = getNextChild(operand);
    if (anOperator == nullptr) {
        return nullptr;
    }
    theFrame.first = operatorOf(anOperator);
    return theFrame.currentChild = getNextChild(anOperator);
}

const WscSimpleNode* WscAstAndExpressionSequence::semanticAction(WscCompilerData& theData,
                                                                 WscActionFrame& theFrame) const {
    const WscSimpleNode* next = nextOperand(*this, theData, theFrame, WscOpcode::Scand);
    if (next == nullptr) {
        theData.generateToBool();
        theData.generateLabel(theFrame.first);
    }
    return next;
}

const WscSimpleNode* WscAstOrExpressionSequence::semanticAction(WscCompilerData& theData,
                                                                WscActionFrame& theFrame) const {
    const WscSimpleNode* last = theFrame.currentChild;
    const WscSimpleNode* next = nextOperand(*this, theData, theFrame, WscOpcode::Scor);
    if (next == nullptr) {
        // The code of an And sequence ends with the conversion already.
        if (!last->isA(WscNodeType::AndExpressionSequence)) {
            theData.generateToBool();
        }
        theData.generateLabel(theFrame.first);
    }
    return next;
}

const WscSimpleNode* WscAstConditionalExpression::semanticAction(WscCompilerData& theData,
                                                                 WscActionFrame& theFrame) const {
    std::int32_t& end = theFrame.first;
    std::int32_t& otherwise = theFrame.second;
    switch (theFrame.step) {
        case 0:
            end = theData.newLabel();
            otherwise = theData.newLabel();
            return getChild(0);
        case 1:
            theData.generateTJump(otherwise);
            return getChild(1);
        case 2:
            theData.generateJump(end);
            theData.generateLabel(otherwise);
            return getChild(2);
        default:
            theData.generateLabel(end);
            return nullptr;
    }
}

const WscSimpleNode* WscAstAssignmentExpression::semanticAction(WscCompilerData& theData,
                                                                WscActionFrame& theFrame) const {
    const int assignment = operatorOf(getChild(1));
    std::int32_t& variable = theFrame.first;
    if (theFrame.step == 0) {
        variable = requireVariable(nameOf(theData, getChild(0)));
        if (!isPlainAssignment(assignment)) {
            theData.generateLoadVar(variable);
        }
        return getChild(2);
    }
    switch (assignment) {
        case '=':
            theData.generateStoreVar(variable);
            break;
        case WSC_ADD_ASSIGN:
            theData.generateAddAssign(variable);
            break;
        case WSC_SUB_ASSIGN:
            theData.generateSubAssign(variable);
            break;
        default:
            theData.generateOperator(binaryOperatorOf(assignment));
            theData.generateStoreVar(variable);
            break;
    }
    theData.generateLoadVar(variable);
    return nullptr;
}

const WscSimpleNode* WscAstPostfixExpression::semanticAction(WscCompilerData& theData,
                                                             WscActionFrame&) const {
    const int variable = requireVariable(nameOf(theData, getChild(0)));
    theData.generateLoadVar(variable);
    generateStep(theData, operatorOf(getChild(1)), variable);
    return nullptr;
}

const WscSimpleNode* WscAstUnaryExpression::semanticAction(WscCompilerData& theData,
                                                           WscActionFrame& theFrame) const {
    const int anOperator = operatorOf(getChild(0));
    if (anOperator == WSC_INCREMENT || anOperator == WSC_DECREMENT) {
        // The operand is a variable, and not loaded first.
        const int variable = requireVariable(nameOf(theData, getChild(1)));
        generateStep(theData, anOperator, variable);
        theData.generateLoadVar(variable);
        return nullptr;
    }
    if (theFrame.step == 0) {
        return getChild(1);
    }
    switch (anOperator) {
        case WSC_TYPEOF:
            theData.generate(WscOpcode::Typeof);
            break;
        case WSC_ISVALID:
            theData.generate(WscOpcode::Isvalid);
            break;
        case '!':
            theData.generate(WscOpcode::Not);
            break;
        case '~':
            theData.generate(WscOpcode::BNot);
            break;
        case WSC_UNARY_MINUS:
            theData.generate(WscOpcode::Uminus);
            break;
        case WSC_UNARY_PLUS:
            // The machine has no such instruction: twice negated is converted to a number.
            theData.generate(WscOpcode::Uminus);
            theData.generate(WscOpcode::Uminus);
            break;
        default:
            fail("Internal error: compiler does not handle operator");
    }
    return nullptr;
}

const WscSimpleNode* WscAstLocalScriptFunctionCall::semanticAction(WscCompilerData& theData,
                                                                   WscActionFrame& theFrame) const {
    std::int32_t& function = theFrame.first;
    if (theFrame.step != 0) {
        theData.generateLocalCall(function);
        return nullptr;
    }
    const WscName& name = nameOf(theData, getChild(0));
    function = theData.searchFunctionNo(name);
    if (function < 0) {
        fail("Semantic Error: Function \"" + CpsString(name.text) + "\" not found");
    }
    const WscSimpleNode* arguments = getChild(1);
    if (static_cast<unsigned>(theData.searchFunctionArgs(name)) != arguments->getNumChildren()) {
        fail("Semantic Error: Wrong number of arguments in call of function \"" +
             CpsString(name.text) + "\"");
    }
    return arguments;
}

const WscSimpleNode* WscAstExternalScriptFunctionCall::semanticAction(
    WscCompilerData& theData, WscActionFrame& theFrame) const {
    std::int32_t& url = theFrame.first;
    std::int32_t& functionName = theFrame.second;
    const WscName& name = nameOf(theData, getChild(1));
    const WscSimpleNode* arguments = getChild(2);
    if (theFrame.step == 0) {
        const WscName& unit = nameOf(theData, getChild(0));
        url = theData.searchUrlConst(unit);
        if (url < 0) {
            fail("URL reference \"" + CpsString(unit.text) + "\" not found");
        }
        functionName = theData.addUtf8Const(name.text);
        return arguments;
    }
    if (arguments->getNumChildren() > 255) {
        fail("Semantic Error: Too many arguments in call of function \"" + CpsString(name.text) +
             "\" (>255)");
    }
    theData.generateExternalCall(url, functionName, arguments->getNumChildren());
    return nullptr;
}

const WscSimpleNode* WscAstLibraryFunctionCall::semanticAction(WscCompilerData& theData,
                                                               WscActionFrame& theFrame) const {
    const WscSimpleNode* arguments = getChild(2);
    if (theFrame.step == 0) {
        return arguments;
    }
    if (!theData.generateLibraryCall(nameOf(theData, getChild(0)).text,
                                     nameOf(theData, getChild(1)).text,
                                     arguments->getNumChildren())) {
        fail("Semantic Error: Library or function not found");
    }
    return nullptr;
}

}  // namespace lumnis
