// The element actor, and actor of processing instructions, that is driven by the token tables of
// a document type. It writes the shortest form that the tables allow, and literal names for what
// they lack.
//
// A director fills the tables once; from then on they are only read. Tokens are those of the
// document type (tags without the bits of the element, attribute starts and attribute values), each
// on its code page.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "XaWbxmlActor.h"

namespace lumnis {

class XaWbxmlTokenizer : public XaWbxmlActor, public XaWbxmlCtrl::SimplePiActor {
  public:
    XaWbxmlTokenizer();
    ~XaWbxmlTokenizer() override;

    void addTagToken(const char* theName, int theToken, unsigned theCodePage);
    // theValuePrefix is what the token says of the value; it may be empty.
    void addAttrToken(const char* theName, const char* theValuePrefix, int theToken,
                      unsigned theCodePage);
    // theText may stand anywhere in a value.
    void addAttrValueToken(const char* theText, int theToken, unsigned theCodePage);
    // In front of the first element whose text is not longer: of equal lengths the newest is first.
    static void insertNonincreasingLength(TextToken theToken, TokenList& theList);

    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
               int theContentKind, void* theContext) override;
    // The target is written as an attribute, the data as its value.
    void operator()(const CpsString& theTarget, const CpsString& theData,
                    void* theContext) override;

    // The current page first, then the others from page 0 on.
    void tokenizeTag(const CpsString& theName, bool theHasAttributes, bool theHasContent,
                     XaWbxmlCtrl& theCtrl) const;
    // The longest prefix on any page; of equal ones that on the current page, else the lowest one.
    void tokenizeAttr(const CpsString& theName, const CpsString& theValue, XaWbxmlCtrl& theCtrl);
    // Writes what follows behind the start token; theValue is not empty.
    virtual void tokenizeAttrValue(const CpsString& theValue, XaWbxmlCtrl& theCtrl);

  private:
    using TagTokens = std::map<CpsString, unsigned char>;
    using PagedTokenList = std::vector<TokenList>;
    struct AttrStart {
        const TextToken* token = nullptr;  // null: the name is literal
        unsigned page = 0;
    };

    AttrStart findStart(const CpsString& theName, const CpsString& theValue,
                        unsigned theCurrentPage) const;

    std::vector<TagTokens> tagTokensM;                // by code page
    std::map<CpsString, PagedTokenList> attrTokensM;  // value prefixes by code page
    PagedTokenList attrValueTokensM;
};

}  // namespace lumnis
