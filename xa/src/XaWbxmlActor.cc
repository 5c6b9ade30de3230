#include "XaWbxmlActor.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace lumnis {

void XaWbxmlActor::begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
                         int theContentKind, void* theContext) {
    XaWbxmlCtrl& ctrl = XaWbxmlCtrl::contextOf(theContext);
    ctrl.flushPcData();
    const bool hasContent = theContentKind >= SPACE_ONLY;
    if (!hasContent) {
        ctrl.emptyContent(true);
    }
    if (theAttributes.empty()) {
        ctrl.addToOutput(hasContent ? XaWbxmlToken::LITERAL_C : XaWbxmlToken::LITERAL);
        ctrl.addOffsetToOutput(theElement->getName());
        return;
    }
    ctrl.addToOutput(hasContent ? XaWbxmlToken::LITERAL_AC : XaWbxmlToken::LITERAL_A);
    ctrl.addOffsetToOutput(theElement->getName());
    CpsString buffer;
    for (const auto& [attribute, value] : theAttributes) {
        ctrl.addToOutput(XaWbxmlToken::LITERAL);
        ctrl.addOffsetToOutput(attribute->getName());
        ctrl.addToOutput(XaWbxmlToken::STR_T);
        ctrl.addOffsetToOutput(value->text(buffer));
    }
    ctrl.addToOutput(XaWbxmlToken::END);
}

void XaWbxmlActor::end(const XpDtd::Element*, void* theContext) {
    XaWbxmlCtrl& ctrl = XaWbxmlCtrl::contextOf(theContext);
    if (!ctrl.emptyContent(false)) {
        ctrl.flushPcData();
        ctrl.addToOutput(XaWbxmlToken::END);
    }
}

const XpDtd::AttValue* XaWbxmlActor::findStated(const XpDtd::Attribute& theAttr,
                                                const XpDtd::AttributeMap& theAttributes) {
    const XpDtd::AttValue* value = theAttributes.find(&theAttr);
    if (value == nullptr) {
        return nullptr;
    }
    const XpDtd::AttValue* byDefault = theAttr.getDefault();
    return byDefault != nullptr && *value == *byDefault ? nullptr : value;
}

bool XaWbxmlActor::tokenizeNmToken(unsigned char theToken, const XpDtd::Attribute* theAttr,
                                   const XpDtd::AttributeMap& theAttributes, XaWbxmlCtrl& theCtrl) {
    const XpDtd::AttValue* value = findStated(*theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    theCtrl.switchAttrPage(0);
    theCtrl.addToOutput(theToken);
    CpsString buffer;
    const std::string_view text = value->text(buffer);
    if (!text.empty()) {
        theCtrl.addStringToOutput(text);
    }
    return true;
}

bool XaWbxmlActor::tokenizeEnum(const EnumTokenMap& theTokens, const XpDtd::Attribute* theAttr,
                                const XpDtd::AttributeMap& theAttributes, XaWbxmlCtrl& theCtrl) {
    const XpDtd::AttValue* value = findStated(*theAttr, theAttributes);
    if (value == nullptr) {
        return false;
    }
    const auto* choice = dynamic_cast<const XpDtd::AttValueEnum*>(value);
    const auto token = choice != nullptr ? theTokens.find(choice->getEnum()) : theTokens.end();
    if (token == theTokens.end()) {
        throw std::runtime_error("Internal error: no token for an attribute's value");
    }
    theCtrl.switchAttrPage(0);
    theCtrl.addToOutput(token->second);
    return true;
}

void XaWbxmlActor::tokenizeString(std::string_view theText, const TokenList& theTokens,
                                  XaWbxmlCtrl& theCtrl) {
    struct Occurrence {
        std::size_t begin;
        std::size_t end;
        unsigned char token;
    };
    std::vector<Occurrence> occurrences;
    // What a token stands for is overwritten by NUL bytes, which no text of a list holds: a
    // shorter one is not found in it again. NUL bytes of the text itself do no harm.
    std::string rest(theText);
    for (const TextToken& token : theTokens) {
        const std::string_view text = token.text.view();
        std::size_t position = text.empty() ? std::string::npos : rest.find(text);
        while (position != std::string::npos) {
            rest.replace(position, text.size(), text.size(), '\0');
            occurrences.push_back({position, position + text.size(), token.token});
            position = rest.find(text, position + text.size());
        }
    }
    std::sort(occurrences.begin(), occurrences.end(),
              [](const Occurrence& theLeft, const Occurrence& theRight) {
                  return theLeft.begin < theRight.begin;
              });
    std::size_t position = 0;
    for (const Occurrence& occurrence : occurrences) {
        if (position < occurrence.begin) {
            theCtrl.addStringToOutput(theText.substr(position, occurrence.begin - position));
        }
        theCtrl.addToOutput(occurrence.token);
        position = occurrence.end;
    }
    if (position < theText.size()) {
        theCtrl.addStringToOutput(theText.substr(position));
    }
}

std::uint32_t XaWbxmlActor::beginsWith(std::string_view theText, std::string_view thePrefix) {
    return theText.starts_with(thePrefix) ? static_cast<std::uint32_t>(thePrefix.size()) : 0;
}

}  // namespace lumnis
