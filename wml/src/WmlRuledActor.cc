#include "WmlRuledActor.h"

#include <algorithm>

#include "WmlTokens.h"

namespace lumnis {
namespace {

// The start token without value prefix, 0 for an attribute that has none.
unsigned char findStart(std::string_view theName) {
    const auto row = std::find_if(
        theWmlAttrTokens.begin(), theWmlAttrTokens.end(),
        [&](const WmlAttrToken& each) { return each.name == theName && each.prefix.empty(); });
    return row == theWmlAttrTokens.end() ? static_cast<unsigned char>(0) : row->token;
}

}  // namespace

WmlRuledActor::WmlRuledActor(const Setup& theSetup, Content theContent, Flush theFlush, Bit theBit)
    : WmlActor(theSetup.element),
      dtdM(theSetup.dtd),
      elementM(theSetup.element),
      tokenM(wmlTagToken(theSetup.element.getName())),
      contentM(theContent),
      flushM(theFlush),
      bitM(theBit) {}

// ---- Rules

WmlRuledActor::AttributeRule& WmlRuledActor::addRule(Kind theKind, std::string_view theName) {
    return attributeRulesM.emplace_back(
        AttributeRule{theKind, findStart(theName), &elementM.getAttribute(theName)});
}

void WmlRuledActor::vdata(std::string_view theName) {
    addRule(Kind::VDATA, theName);
}

void WmlRuledActor::escapedVdata(std::string_view theName) {
    addRule(Kind::VDATA, theName).escapeDefault = true;
}

void WmlRuledActor::prefixedVdata(std::string_view theName,
                                  std::initializer_list<std::string_view> thePrefixes) {
    addRule(Kind::PREFIXED_VDATA, theName).prefixes = {makePrefixTable(theName, thePrefixes)};
}

void WmlRuledActor::escapedPrefixedVdata(std::string_view theName,
                                         std::initializer_list<std::string_view> thePrefixes) {
    prefixedVdata(theName, thePrefixes);
    attributeRulesM.back().escapeDefault = true;
}

void WmlRuledActor::pagedEscapedVdata(std::string_view theName,
                                      std::initializer_list<std::string_view> thePrefixes) {
    AttributeRule& rule = addRule(Kind::PAGED_VDATA, theName);
    rule.escapeDefault = true;
    rule.prefixes = {makePrefixTable(theName, thePrefixes), makeWtaPrefixTable(theName)};
}

void WmlRuledActor::pagedCdata(std::string_view theName,
                               std::initializer_list<std::string_view> thePrefixes) {
    addRule(Kind::PAGED_CDATA, theName).prefixes = {makePrefixTable(theName, thePrefixes),
                                                    makeWtaPrefixTable(theName)};
}

void WmlRuledActor::cdata(std::string_view theName) {
    addRule(Kind::CDATA, theName);
}
void WmlRuledActor::nmToken(std::string_view theName) {
    addRule(Kind::NMTOKEN, theName);
}
void WmlRuledActor::number(std::string_view theName) {
    addRule(Kind::NUMBER, theName);
}
void WmlRuledActor::length(std::string_view theName) {
    addRule(Kind::LENGTH, theName);
}
void WmlRuledActor::special(std::string_view theName) {
    addRule(Kind::SPECIAL, theName);
}

void WmlRuledActor::enumeration(std::string_view theName,
                                std::initializer_list<std::string_view> theValues) {
    AttributeRule& rule = addRule(Kind::ENUMERATION, theName);
    for (const std::string_view value : theValues) {
        rule.values.emplace(&dtdM.obtainEnum(value), wmlAttrToken(theName, value));
    }
}

void WmlRuledActor::core() {
    attributeRulesM.emplace_back(AttributeRule{Kind::CORE});
}

void WmlRuledActor::enter(WmlCtrl&) const {}
void WmlRuledActor::leave(WmlCtrl&) const {}

bool WmlRuledActor::tokenizeSpecial(unsigned char, const XpDtd::Attribute&,
                                    const XpDtd::AttributeMap&, WmlCtrl&) const {
    return false;
}

// ---- Writing

void WmlRuledActor::begin(const XpDtd::Element*, const XpDtd::AttributeMap& theAttributes,
                          int theContentKind, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    if (flushM == Flush::BEGIN || flushM == Flush::BOTH) {
        ctrl.flushPcData();
    }
    enter(ctrl);
    writeElement(theAttributes, theContentKind, ctrl);
}

void WmlRuledActor::writeElement(const XpDtd::AttributeMap& theAttributes, int theContentKind,
                                 WmlCtrl& theCtrl) const {
    bool hasContent = contentM != Content::NEVER && theContentKind != EMPTY_TAG;
    if (contentM == Content::OPTIONAL && theContentKind == PAIR) {
        hasContent = false;
    }
    if (!hasContent && (contentM == Content::OPTIONAL || contentM == Content::PAIRED)) {
        theCtrl.emptyContent(true);
    }
    const auto token =
        static_cast<unsigned char>(tokenM | (hasContent ? XaWbxmlToken::HAS_CONTENT : 0));
    if (theAttributes.empty() && bitM != Bit::FIXED) {
        theCtrl.addToOutput(token);
        return;
    }
    theCtrl.addToOutput(static_cast<unsigned char>(token | XaWbxmlToken::HAS_ATTRIBUTES));
    bool isAnyWritten = false;
    for (const AttributeRule& rule : attributeRulesM) {
        // Most rules of most tags are about an attribute that is not there.
        const bool isOfOne = rule.kind != Kind::SPECIAL && rule.kind != Kind::CORE;
        if (isOfOne && theAttributes.find(rule.attribute) == nullptr) {
            continue;
        }
        isAnyWritten = writeAttribute(rule, theAttributes, theCtrl) || isAnyWritten;
    }
    if (isAnyWritten || bitM != Bit::TAKEN) {
        theCtrl.addToOutput(XaWbxmlToken::END);
    } else {
        theCtrl.popLastOutputByte();
        theCtrl.addToOutput(token);
    }
}

bool WmlRuledActor::writeAttribute(const AttributeRule& theRule,
                                   const XpDtd::AttributeMap& theAttributes,
                                   WmlCtrl& theCtrl) const {
    const unsigned char token = theRule.token;
    const XpDtd::Attribute* attr = theRule.attribute;
    const bool escape = theRule.escapeDefault;
    const bool isWta = theCtrl.isWtaWmlDtdUsed();
    switch (theRule.kind) {
        case Kind::VDATA:
            return tokenizeVdata(token, *attr, theAttributes, theCtrl, escape);
        case Kind::PREFIXED_VDATA:
            return tokenizeVdata(token, *attr, theAttributes, theCtrl, theRule.prefixes[0], escape);
        case Kind::PAGED_VDATA:
            return isWta ? tokenizeVdata(token, *attr, theAttributes, theCtrl, theRule.prefixes,
                                         escape)
                         : tokenizeVdata(token, *attr, theAttributes, theCtrl, theRule.prefixes[0],
                                         escape);
        case Kind::CDATA:
            return tokenizeCdata(token, *attr, theAttributes, theCtrl);
        case Kind::PAGED_CDATA:
            return isWta ? tokenizeCdata(token, *attr, theAttributes, theCtrl, theRule.prefixes)
                         : tokenizeCdata(token, *attr, theAttributes, theCtrl, theRule.prefixes[0]);
        case Kind::NMTOKEN:
            return tokenizeNmToken(token, attr, theAttributes, theCtrl);
        case Kind::ENUMERATION:
            return tokenizeEnum(theRule.values, attr, theAttributes, theCtrl);
        case Kind::NUMBER:
            return tokenizeNumber(token, *attr, theAttributes, theCtrl);
        case Kind::LENGTH:
            return tokenizeLength(token, *attr, theAttributes, theCtrl);
        case Kind::SPECIAL:
            return tokenizeSpecial(token, *attr, theAttributes, theCtrl);
        case Kind::CORE:
            return tokenizeCoreAttrs(theAttributes, theCtrl);
    }
    return false;
}

void WmlRuledActor::end(const XpDtd::Element*, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    const bool isEmpty =
        contentM == Content::NEVER || (contentM != Content::ALWAYS && ctrl.emptyContent(false));
    if (!isEmpty) {
        if (flushM == Flush::END || flushM == Flush::BOTH) {
            ctrl.flushPcData();
        }
        ctrl.addToOutput(XaWbxmlToken::END);
    }
    leave(ctrl);
}

}  // namespace lumnis
