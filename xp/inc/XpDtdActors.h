// The interfaces by which a parse tells an application what it reads.
//
// theContext is the pointer that the application gave to the parser. What an actor throws as an
// XpException ends the parse and becomes an XpParserError with the current line.
#pragma once

#include "XpDtd.h"

namespace lumnis {

class XpDtd::ElementActor {
  public:
    enum ContentKind {
        PAIR,        // start and end tag with nothing between
        EMPTY_TAG,   // empty-element tag
        SPACE_ONLY,  // white space alone between the tags
        CONTENT      // other content follows
    };

    virtual ~ElementActor() = default;
    // A start tag has been validated and the first token of the content been read.
    // theAttributes holds what stands in the tag, no defaults, and only during the call.
    virtual void begin(const Element* theElement, const AttributeMap& theAttributes,
                       int theContentKind, void* theContext) = 0;
    virtual void end(const Element* theElement, void* theContext);
};

// Gets text in one piece up to the next tag, comment, CDATA section or processing instruction.
class XpDtd::PcDataActor {
  public:
    virtual ~PcDataActor() = default;
    virtual void operator()(const CpsString& theText, void* theContext) = 0;
};

// Gets white space where no character data is allowed.
class XpDtd::WhitespaceActor : public XpDtd::PcDataActor {};

class XpDtd::PiActor {
  public:
    virtual ~PiActor() = default;
    virtual void operator()(const CpsString& theTarget, const CpsString& theData,
                            void* theContext) = 0;
};

}  // namespace lumnis
