// The output controller of a WML document: the syntax of variables, the rules of white space,
// value tokens in attributes, and what must be remembered from element to element.
//
// One lives for one document. Every actor of the document works through it; the actors themselves
// keep nothing of a document.
//
// White space is blank, tab, carriage return and line feed. Letters and digits are those of ASCII.
#pragma once

#include <cstdint>
#include <list>
#include <set>
#include <string_view>

#include "CpsString.h"
#include "HedCharsetId.h"
#include "XaMetaData.h"
#include "XaWbxmlCtrl.h"

namespace lumnis {

class WmlCtrl : public XaWbxmlCtrl {
  public:
    // theMetaDataList receives the document's transport meta data; it must outlive this object.
    WmlCtrl(HedCharsetId theCharset, std::list<XaMetaData>& theMetaDataList);
    ~WmlCtrl() override;

    // The controller behind the context of an actor of a WML document.
    static WmlCtrl& wmlContextOf(void* theContext) {
        return static_cast<WmlCtrl&>(contextOf(theContext));
    }

    // Variables (WML 1.3, 10.3). On a bad one the result is false and theError the text for the
    // user; what stands in front of it has been written.

    // Reads the reference at thePosition, which stands behind the dollar sign. Appends its bytes
    // to theOutput and moves thePosition behind it; on a failure both stay. A reference without
    // conversion is escaped if theEscapeDefault is set. The name goes into the string table.
    virtual bool validateVariableDecl(std::string_view theSource, CpsString& theOutput,
                                      std::uint32_t& thePosition, CpsString& theError,
                                      bool theEscapeDefault);
    // Writes an attribute value, with value tokens if theTokenize is set.
    bool parseVData(std::string_view theSource, CpsString& theError, bool theTokenize,
                    bool theEscapeDefault);
    // Takes text between tags. White space inside of it stays if thePreserve is set.
    bool parsePcData(std::string_view theSource, CpsString& theError, bool thePreserve);

    // Writes a piece of an attribute value: the first occurrence of each text of the value table
    // as its token, if no token covers it already, and strings between.
    void tokenizeAttributeValue(std::string_view theValue);
    // The text from theStart up to theSeparator. Without one the rest, and theError is set.
    static std::string_view getToken(std::string_view theSource, std::uint32_t theStart,
                                     std::string_view theSeparator, CpsString& theError);
    // Digits alone; none at all pass. A length may have a percent sign behind them.
    static bool checkNumber(std::string_view theText);
    static bool validateLength(std::string_view theText);

    // White space at one end goes; one blank takes its place if theKeepOne is set.
    static void removePrecedingWhitespaces(CpsString& theText, bool theKeepOne);
    static void removeWhitespacesAtEnd(CpsString& theText, bool theKeepOne);
    // Each run becomes one blank.
    static void removeWhitespaces(CpsString& theText);

    // Text between tags becomes one string up to the next variable or flush.
    void addInlineStringToPcData(std::string_view theText);
    // The same with each run of white space as one blank.
    void addCollapsedPcData(std::string_view theText);
    void addVarRefToPcData(std::string_view theBytes);
    void flushPcData() override;

    // False if a do element of the card has this name already.
    bool declareDoElement(const CpsString& theName);
    void clearDoElementList() { doElementsM.clear(); }

    bool getAccessElementDeclaredFlag() const { return accessDeclaredM; }
    void setAccessElementDeclaredFlag(bool theFlag) { accessDeclaredM = theFlag; }
    // Inside of an element whose text keeps its white space.
    bool getPreserveWhiteSpaceFlag() const { return preserveWhiteSpaceM; }
    void setPreserveWhiteSpaceFlag(bool theFlag) { preserveWhiteSpaceM = theFlag; }
    // The document came with the media type of WTA-WML.
    bool isWtaWmlDtdUsed() const { return usingWtaWmlDtdM; }
    void setUsingWtaWmlDtd(bool theFlag) { usingWtaWmlDtdM = theFlag; }
    // Inside of a wta-wml element, which a document of any media type can have.
    bool isInWtaWml() const { return inWtaWmlM; }
    void setInWtaWml(bool theFlag) { inWtaWmlM = theFlag; }
    // A variable may be a number. Only WtaWmlCtrl heeds it.
    bool getDigitVariables() const { return digitVariablesM; }
    void setDigitVariables(bool theFlag) { digitVariablesM = theFlag; }

    void insertMetaData(const XaMetaData& theMetaData) { metaDataListM.push_back(theMetaData); }

  protected:
    // Which conversions a reference may name.
    enum class Conversions { LONG_AND_SHORT, LONG };

    // The part of a reference behind its first character: theName reaches from there to
    // theEnd, where the conversion, the bracket or other text stands.
    bool finishVariable(std::string_view theSource, std::string_view theName, std::uint32_t theEnd,
                        bool isBracketed, Conversions theConversions, CpsString& theOutput,
                        std::uint32_t& thePosition, CpsString& theError, bool theEscapeDefault);

  private:
    template <typename Text, typename Variable>
    bool splitAtVariables(std::string_view theSource, CpsString& theError, bool theEscapeDefault,
                          Text theText, Variable theVariable);

    std::set<CpsString> doElementsM;
    bool accessDeclaredM = false;  // in the current head
    CpsString pcDataBufferM;
    bool lastWasVarRefM = false;
    std::list<XaMetaData>& metaDataListM;
    bool preserveWhiteSpaceM = false;
    bool usingWtaWmlDtdM = false;
    bool inWtaWmlM = false;
    bool digitVariablesM = false;
};

}  // namespace lumnis
