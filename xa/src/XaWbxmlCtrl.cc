#include "XaWbxmlCtrl.h"

#include <algorithm>

#include "CpsAscii.h"
#include "FwTraceScope.h"
#include "XaMbUInt.h"
#include "XaWbxmlStringTable.h"

namespace lumnis {

CpsString XaWbxmlCtrl::ConversionFailure::toString() const {
    return "character conversion failed";
}

XaWbxmlCtrl::XaWbxmlCtrl(HedCharsetId theCharset, int theTrimMode)
    : stringTableM(std::make_unique<StringTable>()), charsetM(theCharset), trimModeM(theTrimMode) {}

XaWbxmlCtrl::~XaWbxmlCtrl() = default;

void XaWbxmlCtrl::popLastOutputByte() {
    if (bodyM.size() > slotM) {
        bodyM.dropLast();
    }
}

void XaWbxmlCtrl::addStringToOutput(std::string_view theText) {
    const StringTable::Number number = numberOf(theText);
    stringTableM->count(number);
    blocksM.push_back({static_cast<std::uint32_t>(bodyM.size() - slotM), number});
    slotM = bodyM.size();
}

CpsString XaWbxmlCtrl::addStringToStringtable(std::string_view theText) {
    return getAsMbUInt(stringTableM->addString(numberOf(theText)));
}

void XaWbxmlCtrl::addOffsetToOutput(std::string_view theText) {
    XaMbUInt(stringTableM->addString(numberOf(theText))).appendTo(bodyM);
}

std::uint32_t XaWbxmlCtrl::numberOf(std::string_view theText) {
    return charsetM == theUtf8Charset ? stringTableM->obtainNumber(theText, true)
                                      : stringTableM->obtainNumber(convert(theText), false);
}

const CpsString& XaWbxmlCtrl::convert(std::string_view theText) {
    // The terminator goes through the conversion with the text, so that it gets the width of the
    // charset.
    if (charsetM == theUtf8Charset) {
        convertedM = theText;
        convertedM += '\0';
        return convertedM;
    }
    CpsString terminated;
    terminated.reserve(static_cast<std::uint32_t>(theText.size() + 1));
    terminated = theText;
    terminated += '\0';
    if (!converterM.convertFromUtf8(terminated, convertedM, charsetM, true)) {
        throw ConversionFailure();
    }
    return convertedM;
}

void XaWbxmlCtrl::flushPcData() {
    if (!pcDataM.empty()) {
        trimSpace(pcDataM);
        addStringToOutput(pcDataM);
        pcDataM.clear();
    }
}

void XaWbxmlCtrl::trimSpace(std::string& theText) const {
    if ((trimModeM & theOuterSpaceBit) != 0) {
        theText.erase(std::find_if_not(theText.rbegin(), theText.rend(), isXmlSpace).base(),
                      theText.end());
        theText.erase(theText.begin(),
                      std::find_if_not(theText.begin(), theText.end(), isXmlSpace));
    }
    if ((trimModeM & theInnerSpaceBit) != 0) {
        bool wasSpace = false;
        std::size_t length = 0;
        for (const char byte : theText) {
            const bool isSpace = isXmlSpace(byte);
            if (!isSpace || !wasSpace) {
                theText[length++] = isSpace ? ' ' : byte;
            }
            wasSpace = isSpace;
        }
        theText.resize(length);
    }
}

bool XaWbxmlCtrl::emptyContent(bool theValue) {
    return std::exchange(emptyContentM, theValue);
}

void XaWbxmlCtrl::switchPage(unsigned& theCurrent, unsigned thePage) {
    if (theCurrent != thePage) {
        theCurrent = thePage;
        addToOutput(XaWbxmlToken::SWITCH_PAGE);
        addToOutput(static_cast<unsigned char>(thePage));
    }
}

CpsString XaWbxmlCtrl::makeOutput() {
    const FwTraceScope scope("XaWbxmlCtrl::makeOutput");
    const std::string_view tokens = bodyM.view();
    XaByteBuffer body;
    body.reserve(2 * bodyM.size());
    std::size_t position = 0;
    for (const OutputStringBlock& block : blocksM) {
        body.append(tokens.substr(position, block.distance));
        position += block.distance;
        stringTableM->conditionalAddString(block.string, body);
    }
    body.append(tokens.substr(position));

    const std::string& table = stringTableM->getStringTableContent();
    CpsString output = prologM + stringTableM->getLength();
    const std::size_t length = output.length() + table.size() + body.size();
    output.reserve(static_cast<std::uint32_t>(std::min<std::size_t>(length, UINT32_MAX)));
    output += table;
    output += body.view();
    return output;
}

CpsString XaWbxmlCtrl::getAsMbUInt(std::uint32_t theValue) {
    return XaMbUInt(theValue).view();
}

void XaWbxmlCtrl::SimplePcDataActor::operator()(const CpsString& theText, void* theContext) {
    contextOf(theContext).addPcData(theText);
}

void XaWbxmlCtrl::SimplePiActor::operator()(const CpsString& theTarget, const CpsString& theData,
                                            void* theContext) {
    XaWbxmlCtrl& ctrl = contextOf(theContext);
    ctrl.flushPcData();
    ctrl.addToOutput(XaWbxmlToken::PI);
    ctrl.addToOutput(XaWbxmlToken::LITERAL);
    ctrl.addOffsetToOutput(theTarget);
    if (!theData.empty()) {
        ctrl.addToOutput(XaWbxmlToken::STR_T);
        ctrl.addOffsetToOutput(theData);
    }
    ctrl.addToOutput(XaWbxmlToken::END);
}

}  // namespace lumnis
