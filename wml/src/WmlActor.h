// The base of the actors of WML elements: one writer for each kind of attribute.
//
// A writer takes the start token of the attribute without value prefix, the attribute and the
// attributes of the start tag. It writes the attribute if it stands there and returns true if it
// did. Tokens of attribute page 0 come behind a switch to that page where another one is current.
//
// What the value may hold follows from the kind: variables in vdata, none in CDATA (a dollar sign
// is written twice there), digits in numbers. A value that breaks this throws WmlActorException.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "WmlCtrl.h"
#include "XaWbxmlActor.h"

namespace lumnis {

class WmlActor : public XaWbxmlActor {
  public:
    // A beginning of a value, and the token that stands for attribute and beginning together. The
    // text is a literal. By the bytes of the texts: of two that begin alike the shorter is first.
    struct Prefix {
        std::string_view text;
        unsigned char token;
    };
    using PrefixTable = std::vector<Prefix>;
    // By code page.
    using PagedPrefixTable = std::vector<PrefixTable>;

    // The rows of WmlTokens.h for these prefixes of theName on page 0.
    static PrefixTable makePrefixTable(std::string_view theName,
                                       std::initializer_list<std::string_view> thePrefixes);
    // All prefixes of theName on page 1.
    static PrefixTable makeWtaPrefixTable(std::string_view theName);

  protected:
    // Throws XpDtd::UndefinedException if theElement has no attributes "id" and "class".
    explicit WmlActor(const XpDtd::Element& theElement);

    // vdata and CDATA: a value that equals the default of the DTD is not written. Which of the
    // start tokens with a prefix is taken depends on the last argument:
    //
    //     none               none, the whole value stands behind theToken
    //     PrefixTable        the first prefix that fits
    //     PagedPrefixTable   the longest one on the current page, else the longest of all pages

    static bool tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                              bool theEscapeDefault);
    static bool tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                              const PrefixTable& thePrefixes, bool theEscapeDefault);
    static bool tokenizeVdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                              const PagedPrefixTable& thePrefixes, bool theEscapeDefault);
    static bool tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl);
    static bool tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                              const PrefixTable& thePrefixes);
    static bool tokenizeCdata(unsigned char theToken, const XpDtd::Attribute& theAttr,
                              const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl,
                              const PagedPrefixTable& thePrefixes);

    // Defaults are written.
    static bool tokenizeNumber(unsigned char theToken, const XpDtd::Attribute& theAttr,
                               const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl);
    static bool tokenizeLength(unsigned char theToken, const XpDtd::Attribute& theAttr,
                               const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl);
    // "id" and "class": neither variables nor value tokens.
    bool tokenizeCoreAttrs(const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const;

    // A token of attribute page 0.
    static void addAttrToken(unsigned char theToken, WmlCtrl& theCtrl);

  private:
    const XpDtd::Attribute* idAttrM;
    const XpDtd::Attribute* classAttrM;
};

}  // namespace lumnis
