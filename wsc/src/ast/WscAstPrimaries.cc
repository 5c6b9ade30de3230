#include "WscAstPrimaries.h"

#include <charconv>
#include <string>

#include "WscCompilerData.h"

namespace lumnis {

void WscAstLiteral::setBooleanValue(bool theValue) noexcept {
    literalKindM = Kind::Boolean;
    booleanValueM = theValue;
}

void WscAstLiteral::setDecimalValue(std::int32_t theValue) noexcept {
    literalKindM = Kind::Integer;
    decimalValueM = theValue;
}

void WscAstLiteral::setFloatingPointValue(float theValue) noexcept {
    literalKindM = Kind::Float;
    floatingPointValueM = theValue;
}

void WscAstLiteral::setStringLiteralValue(const CpsString* theValue) noexcept {
    literalKindM = Kind::String;
    stringLiteralValueM = theValue;
}

const WscSimpleNode* WscAstLiteral::semanticAction(WscCompilerData& theData,
                                                   WscActionFrame&) const {
    switch (literalKindM) {
        case Kind::Invalid:
            theData.generateInvalid();
            break;
        case Kind::Boolean:
            theData.generateBoolean(booleanValueM);
            break;
        case Kind::Float:
            theData.generateFloat(floatingPointValueM);
            break;
        case Kind::Integer:
            theData.generateInteger(decimalValueM);
            break;
        case Kind::String:
            theData.generateString(*stringLiteralValueM);
            break;
    }
    return nullptr;
}

CpsString WscAstLiteral::getDumpText() const {
    switch (literalKindM) {
        case Kind::Boolean:
            return booleanValueM ? " BOOLEAN:1" : " BOOLEAN:0";
        case Kind::Float: {
            // Six digits, as a stream prints a float, in every locale.
            char text[32];
            const auto end = std::to_chars(text, text + sizeof text, floatingPointValueM,
                                           std::chars_format::general, 6);
            return " FLOAT:" + CpsString(std::string_view(text, end.ptr));
        }
        case Kind::Integer:
            return " INTEGER:" + CpsString(std::to_string(decimalValueM));
        case Kind::String:
            return " STRING:" + *stringLiteralValueM;
        case Kind::Invalid:
            break;
    }
    return " INVALID";
}

const WscSimpleNode* WscAstIdentifier::semanticAction(WscCompilerData& theData,
                                                      WscActionFrame&) const {
    const int variable = theData.searchVariable(*nameM);
    if (variable < 0) {
        fail("Semantic Error: Variable \"" + nameM->text + "\" not found");
    }
    theData.generateLoadVar(variable);
    return nullptr;
}

const WscSimpleNode* WscAstOperator::semanticAction(WscCompilerData&, WscActionFrame&) const {
    fail("Internal error: Operator semanticAction() should not be called!");
}

}  // namespace lumnis
