// The element actor for documents without token tables: every name is literal. Its static
// operations write values for the actors that know more.
//
// Actors have no state of a document: one object serves any number of documents and threads. The
// context of their calls is an XaWbxmlCtrl.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "CpsString.h"
#include "XaWbxmlCtrl.h"
#include "XpDtd.h"

namespace lumnis {

class XaWbxmlActor : public XpDtd::ElementActor {
  public:
    // A text, or a prefix of one, and the token that stands for it.
    struct TextToken {
        CpsString text;
        unsigned char token;
    };
    // By length of the text, the longest first (XaWbxmlTokenizer::insertNonincreasingLength).
    using TokenList = std::vector<TextToken>;
    // From the values of an enumerated attribute.
    using EnumTokenMap = std::map<const XpDtd::Enum*, unsigned char, XpDtd::ByCreation>;

    void begin(const XpDtd::Element* theElement, const XpDtd::AttributeMap& theAttributes,
               int theContentKind, void* theContext) override;
    void end(const XpDtd::Element* theElement, void* theContext) override;

    // These two write theAttr if it is in theAttributes with a value other than its default, on
    // attribute page 0, and return true if they did. A name token is theToken and its text, if
    // there is one.
    static bool tokenizeNmToken(unsigned char theToken, const XpDtd::Attribute* theAttr,
                                const XpDtd::AttributeMap& theAttributes, XaWbxmlCtrl& theCtrl);
    // The token stands for attribute and value together. theAttr must be of an enumerated type.
    static bool tokenizeEnum(const EnumTokenMap& theTokens, const XpDtd::Attribute* theAttr,
                             const XpDtd::AttributeMap& theAttributes, XaWbxmlCtrl& theCtrl);

    // Writes theText, with a token for every occurrence of a text of theTokens; where occurrences
    // overlap, those of the text that stands first in theTokens win.
    static void tokenizeString(std::string_view theText, const TokenList& theTokens,
                               XaWbxmlCtrl& theCtrl);

    // The value of theAttr if it is in theAttributes and differs from its default, else null.
    static const XpDtd::AttValue* findStated(const XpDtd::Attribute& theAttr,
                                             const XpDtd::AttributeMap& theAttributes);
    // The length of thePrefix if theText begins with it, byte for byte, else 0.
    static std::uint32_t beginsWith(std::string_view theText, std::string_view thePrefix);
};

}  // namespace lumnis
