// Turns XML text into the tokens of the grammar.
//
// It reads UTF-8 bytes in place: every text that it is given must stay unchanged, and must have
// a terminator behind it (CpsString::c_str), while it is being read. It has a stack of texts, so
// that the replacement of an entity or the value of an attribute is scanned like the document,
// and a stack of start conditions, by which the parser switches between the contexts of XML. It
// also keeps the table of IDs of the parse.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "XpDtd.h"
#include "XpTokenValue.h"

namespace lumnis {

class XpLexer {
  public:
    enum Condition {
        DTD = 1,      // declarations, internal or external
        PROLOG,       // from the start of a document to its root element
        CONTENT,      // between tags
        TAG,          // inside a start tag
        PITARGET,     // just behind the target of a processing instruction
        PIDATA,       // the text of a processing instruction
        ENTITYVALUE,  // the literal of an entity's value
        ATTVALUE,     // the literal of an attribute's value
        ATTNAME,      // names inside an attribute's value
        ATTNMTOKEN,   // name tokens inside an attribute's value
        IGNORESECT    // inside an IGNORE section
    };

    // theInput must outlive the scanner; a terminator is written behind it.
    explicit XpLexer(const CpsString* theInput);
    XpLexer(const XpLexer&) = delete;
    XpLexer& operator=(const XpLexer&) = delete;

    // The next token, 0 at the end of all input. Throws XpParserError.
    int yylex();
    int readToken(XpTokenValue& theValue) {
        const int token = yylex();
        theValue = yylvalM;
        return token;
    }
    // Of the last token.
    const XpTokenValue& getValue() const { return yylvalM; }
    std::string_view getText() const { return yytextM; }
    // What a token of text stands for, valid until the next token.
    std::string_view getTokenText() const { return tokenTextM; }

    // Make the entry token of a parse the next one and set the condition that it begins with.
    void startDtd();
    void startProlog();
    void startDocument();
    // Reads theText from its start, then delivers theEndToken and goes on with what is being read
    // now. theText is not owned.
    void pushInput(const CpsString* theText, int theEndToken);
    // The same for an input that has ended at once.
    void pushNothing(int theEndToken);
    // Counts theLength bytes of replacement text. Throws XpParserError when a document grows
    // beyond all measure by its entities: when all that has been counted is more than 8 MiB and
    // more than 100 times the text that this scanner was made for.
    //
    // Counted is each text when a reference to it begins to be read, or is put into the value of
    // an entity; so an entity inside of another one counts each time that its own reference is
    // reached, and the reference, being a part of the text around it, counts there. A text that a
    // resolver gives counts like one that was declared. Bytes of the document itself, character
    // references and the result of putting texts together do not count.
    void countExpansion(std::uint64_t theLength);
    // What countExpansion throws.
    [[noreturn]] void failToExpand() const;
    void yy_push_state(Condition theCondition);
    // Throws XpInternalError if nothing was pushed.
    void yy_pop_state();

    // A string with a copy of theText that is valid until the next resetStrings.
    CpsString* internString(std::string_view theText) {
        if (stringsUsedM == stringsM.size()) {
            addString();
        }
        CpsString* string = stringsM[stringsUsedM++].get();
        string->assign(theText);
        return string;
    }
    // Frees all strings, or while there is a mark those behind it.
    void resetStrings() { stringsUsedM = stringsMarkM; }
    // What is in use now outlives resetStrings until unmarkStrings.
    void markStrings() { stringsMarkM = stringsUsedM; }
    void unmarkStrings() { stringsMarkM = 0; }
    // Frees theString if it is the newest one and not marked. A list of any length then needs a
    // single string.
    void releaseString(const CpsString& theString) {
        if (stringsUsedM != stringsMarkM && stringsM[stringsUsedM - 1].get() == &theString) {
            --stringsUsedM;
        }
    }

    // The table of IDs of this parse.
    XpDtd::IdTable& getIds() { return *idsM; }
    std::shared_ptr<const XpDtd::IdTable> shareIds() const { return idsM; }
    // Appends a blank and the name for each ID that is not defined, in name order. True if any.
    bool getUndefinedIds(CpsString& theOutput) const;

    // For those who read plain text past yylex.

    const unsigned char* getCursor() const { return cursorM; }
    const unsigned char* getLimit() const { return limitM; }  // where the terminator is
    // Takes what is in front of theCursor as read; theLineFeeds are in it, and count in the document
    // itself.
    void skipTo(const unsigned char* theCursor, unsigned theLineFeeds) {
        cursorM = theCursor;
        lineM += inputStackM.empty() ? theLineFeeds : 0;
    }

    // What the digits of a character reference name, if XML allows that character.
    static std::optional<unsigned> characterOf(std::string_view theDigits, unsigned theRadix);

    // The line of the document, from 1, up to which it has been read. Line feeds inside of
    // replacement texts and attribute values do not count.
    unsigned getLine() const { return lineM; }
    // Throws XpParserError with the current line.
    [[noreturn]] void fail(CpsString theMessage) const;

  private:
    // What was being read when another input was pushed.
    struct Frame {
        const unsigned char* cursor;
        const unsigned char* limit;
        int endToken;
    };

    void pushBytes(const unsigned char* theBegin, const unsigned char* theEnd, int theEndToken);
    void addString();
    // Goes back to the input below; the end token of the one that has ended.
    int endInput();
    // Ends a token in front of theCursor: it becomes yytext, and its line feeds count.
    void take(const unsigned char* theCursor) {
        takeWord(theCursor);
        if (inputStackM.empty()) {
            for (const char c : yytextM) {
                lineM += c == '\n';
            }
        }
    }
    // The same for a token that holds no line feed.
    void takeWord(const unsigned char* theCursor) {
        yytextM = {reinterpret_cast<const char*>(cursorM),
                   static_cast<std::size_t>(theCursor - cursorM)};
        cursorM = theCursor;
    }
    // The same for a token that may be long.
    void takeRun(const unsigned char* theCursor);
    // yytext without theHead and theTail bytes at its ends.
    std::string_view inner(std::size_t theHead, std::size_t theTail) const {
        return {yytextM.data() + theHead, yytextM.size() - theHead - theTail};
    }
    int textToken(int theToken, std::string_view theText) {
        tokenTextM = theText;
        return theToken;
    }
    int stringToken(int theToken, std::string_view theText) {
        yylvalM.string = internString(theText);
        return theToken;
    }
    // A character reference; theDigits are those of yytext.
    int characterToken(std::string_view theDigits, unsigned theRadix);
    [[noreturn]] void failAtText(std::string_view theMessage) const;

    const unsigned char* cursorM;
    const unsigned char* limitM;
    std::string_view yytextM;
    std::string_view tokenTextM;
    XpTokenValue yylvalM{};
    Condition conditionM = PROLOG;
    unsigned lineM = 1;
    std::vector<Frame> inputStackM;
    std::vector<Condition> conditionStackM;
    std::vector<std::unique_ptr<CpsString>> stringsM;
    std::size_t stringsUsedM = 0;
    std::size_t stringsMarkM = 0;
    std::shared_ptr<XpDtd::IdTable> idsM;
    // 64 bits, since each may come near the largest length of a string.
    std::uint64_t documentSizeM;
    std::uint64_t expandedM = 0;
};

}  // namespace lumnis
