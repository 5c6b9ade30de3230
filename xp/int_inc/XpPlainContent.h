// Reads the plain part of a document's body in one loop: elements, attributes, and text without
// references to entities, which is nearly all of a deck. The generated parser takes some five steps
// a token for the same.
//
// It is a short cut through that parser, not another one. It calls the same actions in the same
// order, each when the same text has been read, and leaves the same states on the parser's stack.
// What is not plain, and every fault, it leaves unread, and the generated parser goes on there.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lumnis {

class XpParserBase;
struct XpPlainText;

class XpPlainContent {
  public:
    using State = std::int16_t;

    // The states of the generated parser that are on the stack inside of an element, from the
    // content of its parent on.
    struct States {
        State content;        // behind moreContent
        State flushed;        // behind flushCharData, in front of an element
        State beginStag;      // behind BEGIN_STAG
        State begun;          // behind its action
        State attributes;     // in the tag: entry
        State rangle;         // behind its end
        State opened;         // behind its action, nothing of the content read: entry
        State singleContent;  // in the content, something of it read: entry
    };

    explicit XpPlainContent(const States& theStates) : statesM(theStates) {}

    // True if read may be called in theState, with no lookahead read.
    bool isEntry(int theState) const {
        return theState == statesM.attributes || theState == statesM.opened ||
               theState == statesM.singleContent;
    }
    // Reads as far as the text is plain. theTop is the top of the parser's stack, theEnd the end of
    // the room for it. Gives the new top, whose state is an entry again; there is no lookahead.
    State* read(XpParserBase& theParser, State* theTop, const State* theEnd) const;

  private:
    // Where states of an element and of its parent lie on the stack, seen from its attributes.
    static constexpr std::ptrdiff_t theParentContentOffset = -4;
    static constexpr std::ptrdiff_t theParentFlushedOffset = -3;
    static constexpr std::ptrdiff_t theOpenedOffset = 2;
    static constexpr std::ptrdiff_t theSingleContentOffset = 4;

    // Each of these gives false if what comes is not plain; then it has taken nothing.

    bool readInTag(XpParserBase& theParser, State*& theTop) const;
    // The attribute whose name begins at theName, behind theLineFeeds that are not taken yet.
    static bool readAttribute(XpParserBase& theParser, const unsigned char* theName,
                              unsigned theLineFeeds);
    bool readInContent(XpParserBase& theParser, State*& theTop) const;
    void takeReferences(XpParserBase& theParser, const XpPlainText& theText, bool isOpened) const;
    bool readEndTag(XpParserBase& theParser, State*& theTop, const XpPlainText& theText) const;
    bool readStartTag(XpParserBase& theParser, State*& theTop, const XpPlainText& theText) const;
    // True if the element whose attributes state is at theTag stands in the content of another.
    bool isInContent(const State* theTag) const {
        return theTag[theParentContentOffset] == statesM.content &&
               theTag[theParentFlushedOffset] == statesM.flushed;
    }
    // The top behind an element, which has become a part of its parent's content.
    State* leave(State* theTag) const {
        State* const top = theTag + theParentFlushedOffset;
        *top = statesM.singleContent;
        return top;
    }

    States statesM;
};

}  // namespace lumnis
