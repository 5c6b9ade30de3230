// The actor of an element whose behaviour is a row of rules: token, content, flushes, attributes
// in the order of writing. A derived class states the rules in its constructor, so that it reads
// like a row of a table:
//
//     class OptgroupTagActor final : public WmlRuledActor {
//       public:
//         explicit OptgroupTagActor(const Setup& theSetup)
//             : WmlRuledActor(theSetup, Content::ALWAYS, Flush::NONE) {
//             vdata("title");
//             nmToken("xml:lang");
//             core();
//         }
//     };
//
// and overrides an operation only for what rules cannot say.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "WmlActor.h"

namespace lumnis {

class WmlRuledActor : public WmlActor {
  public:
    // What an actor is made from. An actor keeps attributes and enumeration values of the DTD,
    // so there is one for each element of each DTD.
    struct Setup {
        const XpDtd& dtd;
        const XpDtd::Element& element;
        int version;  // 1 for WML 1.1, 2 for WML 1.2 and WTA-WML 1.2, 3 for WML 1.3
    };

    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
               int theContentKind, void* theContext) override;
    void end(const XpDtd::Element* theElement, void* theContext) override;

  protected:
    enum class Content {
        OPTIONAL,  // no content if nothing stands between the tags
        PAIRED,    // no content if it is an empty-element tag
        ALWAYS,    // content and END: the DTD wants content, so a tag without it is refused
        NEVER      // declared EMPTY: neither bit nor END
    };
    // Where text in front is written. END is in front of the END token.
    enum class Flush { NONE, BEGIN, END, BOTH };
    // What becomes of the bit for attributes when all those of a tag are at their defaults.
    enum class Bit {
        KEPT,   // an END follows at once
        TAKEN,  // the token is written without it
        FIXED   // it is there even if the tag has no attributes
    };

    WmlRuledActor(const Setup& theSetup, Content theContent, Flush theFlush,
                  Bit theBit = Bit::KEPT);

    // The rules of attributes, to be called in the order of writing. Start tokens are those of
    // WmlTokens.h without value prefix.

    void vdata(std::string_view theName);
    // A variable without conversion is escaped: URIs.
    void escapedVdata(std::string_view theName);
    void prefixedVdata(std::string_view theName,
                       std::initializer_list<std::string_view> thePrefixes);
    void escapedPrefixedVdata(std::string_view theName,
                              std::initializer_list<std::string_view> thePrefixes);
    // In a document with the media type of WTA-WML with the prefixes of page 1 as well.
    void pagedEscapedVdata(std::string_view theName,
                           std::initializer_list<std::string_view> thePrefixes);
    void pagedCdata(std::string_view theName, std::initializer_list<std::string_view> thePrefixes);
    void cdata(std::string_view theName);
    void nmToken(std::string_view theName);
    void enumeration(std::string_view theName, std::initializer_list<std::string_view> theValues);
    void number(std::string_view theName);
    void length(std::string_view theName);
    // Written by tokenizeSpecial.
    void special(std::string_view theName);
    // "id" and "class".
    void core();

    // Called in front of the token, behind the flush. Does nothing unless overridden.
    virtual void enter(WmlCtrl& theCtrl) const;
    // Called at the end tag, behind the END. Does nothing unless overridden.
    virtual void leave(WmlCtrl& theCtrl) const;
    // Writes an attribute that rules cannot; true if it wrote anything. theToken is the start
    // token without prefix, or 0 if there is none.
    virtual bool tokenizeSpecial(unsigned char theToken, const XpDtd::Attribute& theAttr,
                                 const XpDtd::AttributeMap& theAttributes, WmlCtrl& theCtrl) const;

    // What begin does behind the flush and enter, for an actor that decides otherwise.
    void writeElement(const XpDtd::AttributeMap& theAttributes, int theContentKind,
                      WmlCtrl& theCtrl) const;

  private:
    enum class Kind {
        VDATA,
        PREFIXED_VDATA,
        PAGED_VDATA,
        CDATA,
        PAGED_CDATA,
        NMTOKEN,
        ENUMERATION,
        NUMBER,
        LENGTH,
        SPECIAL,
        CORE
    };
    struct AttributeRule {
        Kind kind;
        unsigned char token = 0;
        const XpDtd::Attribute* attribute = nullptr;
        bool escapeDefault = false;
        PagedPrefixTable prefixes = {};  // page 0 alone for the forms without pages
        EnumTokenMap values = {};
    };

    AttributeRule& addRule(Kind theKind, std::string_view theName);
    bool writeAttribute(const AttributeRule& theRule, const XpDtd::AttributeMap& theAttributes,
                        WmlCtrl& theCtrl) const;

    const XpDtd& dtdM;
    const XpDtd::Element& elementM;
    unsigned char tokenM;
    Content contentM;
    Flush flushM;
    Bit bitM;
    std::vector<AttributeRule> attributeRulesM;
};

}  // namespace lumnis
