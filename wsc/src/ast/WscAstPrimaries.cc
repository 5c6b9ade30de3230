#include "WscAstPrimaries.h"

#include <bit>
#include <charconv>
#include <string>

namespace lumnis {

void WscAstLiteral::setDecimalValue(std::int32_t theValue) noexcept {
    set(Kind::Integer, static_cast<std::uint32_t>(theValue));
}

void WscAstLiteral::setFloatingPointValue(float theValue) noexcept {
    set(Kind::Float, std::bit_cast<std::uint32_t>(theValue));
}

float WscAstLiteral::getFloatingPointValue() const noexcept {
    return std::bit_cast<float>(getValue());
}

void WscAstLiteral::setStringLiteralValue(std::size_t theNumber) noexcept {
    set(Kind::String, static_cast<std::uint32_t>(theNumber));
}

const WscSimpleNode* WscAstLiteral::semanticAction(WscCompilerData& theData,
                                                   WscActionFrame&) const {
    switch (getKind()) {
        case Kind::Invalid:
            theData.generateInvalid();
            break;
        case Kind::Boolean:
            theData.generateBoolean(getValue() != 0);
            break;
        case Kind::Float:
            theData.generateFloat(getFloatingPointValue());
            break;
        case Kind::Integer:
            theData.generateInteger(getDecimalValue());
            break;
        case Kind::String:
            theData.generateString(stringOf(theData, this));
            break;
    }
    return nullptr;
}

CpsString WscAstLiteral::getDumpText(const WscSourceTexts& theTexts) const {
    switch (getKind()) {
        case Kind::Boolean:
            return getValue() != 0 ? " BOOLEAN:1" : " BOOLEAN:0";
        case Kind::Float: {
            // Six digits, as a stream prints a float, in every locale.
            char text[32];
            const auto end = std::to_chars(text, text + sizeof text, getFloatingPointValue(),
                                           std::chars_format::general, 6);
            return " FLOAT:" + CpsString(std::string_view(text, end.ptr));
        }
        case Kind::Integer:
            return " INTEGER:" + CpsString(std::to_string(getDecimalValue()));
        case Kind::String:
            return " STRING:" + CpsString(theTexts.getString(getStringLiteralValue()));
        case Kind::Invalid:
            break;
    }
    return " INVALID";
}

const WscSimpleNode* WscAstIdentifier::semanticAction(WscCompilerData& theData,
                                                      WscActionFrame&) const {
    theData.generateLoadVar(requireVariable(nameOf(theData, this)));
    return nullptr;
}

CpsString WscAstIdentifier::getDumpText(const WscSourceTexts& theTexts) const {
    return " IDENTIFIER:" + CpsString(theTexts.getName(getName()).text);
}

const WscSimpleNode* WscAstOperator::semanticAction(WscCompilerData&, WscActionFrame&) const {
    fail("Internal error: Operator semanticAction() should not be called!");
}

}  // namespace lumnis
