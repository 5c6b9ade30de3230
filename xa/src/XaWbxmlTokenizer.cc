#include "XaWbxmlTokenizer.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace lumnis {

namespace {

// The element for a code page, made with all in front of it.
template <typename T>
T& atPage(std::vector<T>& thePages, unsigned thePage) {
    if (thePages.size() <= thePage) {
        thePages.resize(thePage + 1);
    }
    return thePages[thePage];
}

}  // namespace

XaWbxmlTokenizer::XaWbxmlTokenizer() = default;

XaWbxmlTokenizer::~XaWbxmlTokenizer() = default;

void XaWbxmlTokenizer::addTagToken(const char* theName, int theToken, unsigned theCodePage) {
    atPage(tagTokensM, theCodePage)[theName] = static_cast<unsigned char>(theToken);
}

void XaWbxmlTokenizer::addAttrToken(const char* theName, const char* theValuePrefix, int theToken,
                                    unsigned theCodePage) {
    insertNonincreasingLength({theValuePrefix, static_cast<unsigned char>(theToken)},
                              atPage(attrTokensM[theName], theCodePage));
}

void XaWbxmlTokenizer::addAttrValueToken(const char* theText, int theToken, unsigned theCodePage) {
    insertNonincreasingLength({theText, static_cast<unsigned char>(theToken)},
                              atPage(attrValueTokensM, theCodePage));
}

void XaWbxmlTokenizer::insertNonincreasingLength(TextToken theToken, TokenList& theList) {
    const auto place =
        std::find_if(theList.begin(), theList.end(), [&theToken](const TextToken& theOther) {
            return theOther.text.length() <= theToken.text.length();
        });
    theList.insert(place, std::move(theToken));
}

void XaWbxmlTokenizer::begin(const XpDtd::Element* theElement,
                             const XpDtd::AttributeMap& theAttributes, int theContentKind,
                             void* theContext) {
    XaWbxmlCtrl& ctrl = XaWbxmlCtrl::contextOf(theContext);
    ctrl.flushPcData();
    const bool hasContent = theContentKind >= SPACE_ONLY;
    tokenizeTag(theElement->getName(), !theAttributes.empty(), hasContent, ctrl);
    if (!theAttributes.empty()) {
        for (const auto& [attribute, value] : theAttributes) {
            tokenizeAttr(attribute->getName(), value->toString(), ctrl);
        }
        ctrl.addToOutput(XaWbxmlToken::END);
    }
    if (!hasContent) {
        ctrl.emptyContent(true);
    }
}

void XaWbxmlTokenizer::operator()(const CpsString& theTarget, const CpsString& theData,
                                  void* theContext) {
    XaWbxmlCtrl& ctrl = XaWbxmlCtrl::contextOf(theContext);
    ctrl.flushPcData();
    ctrl.addToOutput(XaWbxmlToken::PI);
    tokenizeAttr(theTarget, theData, ctrl);
    ctrl.addToOutput(XaWbxmlToken::END);
}

void XaWbxmlTokenizer::tokenizeTag(const CpsString& theName, bool theHasAttributes,
                                   bool theHasContent, XaWbxmlCtrl& theCtrl) const {
    const auto findOn = [this, &theName](std::size_t thePage) -> const unsigned char* {
        if (thePage >= tagTokensM.size()) {
            return nullptr;
        }
        const auto place = tagTokensM[thePage].find(theName);
        return place != tagTokensM[thePage].end() ? &place->second : nullptr;
    };
    const unsigned char* known = findOn(theCtrl.getTagPage());
    for (std::size_t page = 0; known == nullptr && page < tagTokensM.size(); ++page) {
        known = findOn(page);
        if (known != nullptr) {
            theCtrl.switchTagPage(static_cast<unsigned>(page));
        }
    }
    const unsigned token = (known != nullptr ? *known : XaWbxmlToken::LITERAL) |
                           (theHasAttributes ? XaWbxmlToken::HAS_ATTRIBUTES : 0U) |
                           (theHasContent ? XaWbxmlToken::HAS_CONTENT : 0U);
    theCtrl.addToOutput(static_cast<unsigned char>(token));
    if (known == nullptr) {
        theCtrl.addOffsetToOutput(theName);
    }
}

XaWbxmlTokenizer::AttrStart XaWbxmlTokenizer::findStart(const CpsString& theName,
                                                        const CpsString& theValue,
                                                        unsigned theCurrentPage) const {
    AttrStart best;
    const auto pages = attrTokensM.find(theName);
    if (pages == attrTokensM.end()) {
        return best;
    }
    for (unsigned page = 0; page < pages->second.size(); ++page) {
        // The first that matches is the longest of its page.
        const TokenList& tokens = pages->second[page];
        const auto token =
            std::find_if(tokens.begin(), tokens.end(), [&theValue](const TextToken& theToken) {
                return theValue.view().starts_with(theToken.text);
            });
        if (token == tokens.end()) {
            continue;
        }
        const std::uint32_t length = token->text.length();
        const std::uint32_t bestLength = best.token == nullptr ? 0 : best.token->text.length();
        if (best.token == nullptr || length > bestLength ||
            (length == bestLength && page == theCurrentPage)) {
            best = {&*token, page};
        }
    }
    return best;
}

void XaWbxmlTokenizer::tokenizeAttr(const CpsString& theName, const CpsString& theValue,
                                    XaWbxmlCtrl& theCtrl) {
    const AttrStart start = findStart(theName, theValue, theCtrl.getAttrPage());
    std::uint32_t written = 0;  // bytes of the value, by the prefix of the start token
    if (start.token != nullptr) {
        theCtrl.switchAttrPage(start.page);
        theCtrl.addToOutput(start.token->token);
        written = start.token->text.length();
    } else {
        theCtrl.addToOutput(XaWbxmlToken::LITERAL);
        theCtrl.addOffsetToOutput(theName);
    }
    if (theValue.length() > written) {
        tokenizeAttrValue(CpsString(theValue, written, theValue.length() - written), theCtrl);
    }
}

void XaWbxmlTokenizer::tokenizeAttrValue(const CpsString& theValue, XaWbxmlCtrl& theCtrl) {
    if (theCtrl.getAttrPage() < attrValueTokensM.size()) {
        tokenizeString(theValue, attrValueTokensM[theCtrl.getAttrPage()], theCtrl);
    } else {
        theCtrl.addStringToOutput(theValue);
    }
}

}  // namespace lumnis
