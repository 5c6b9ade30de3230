// Parses an XML document and validates it in the same pass.
//
//     XpParser parser(&document, piActor, whitespaceActor, context);
//     parser.parseProlog();
//     ... look at getPublicIdentifier and getInternalSubset, choose an application ...
//     parser.setDtd(dtd, context, ...);     // or makeNonvalidating
//     parser.parseDocument();
//
// Each step once and in this order. The first fault of the document ends the parse as an
// XpParserError with message and line; the actors may have run by then for what stands in front
// of it. After that the parser can only be destroyed.
//
// A parser is used by one thread. Parsers on several threads may share a DTD that was given to
// setDtd. Nothing outside of the document is read unless setEntityResolver was called.
#pragma once

#include "XpParserBase.h"
#include "XpParserError.h"

namespace lumnis {

class XpParser : private XpParserBase {
  public:
    // theInput is the whole document in UTF-8; it must outlive the parser, and a terminator is
    // written behind it. The actors get what stands in the prolog; they may be null.
    XpParser(const CpsString* theInput, XpDtd::PiActor* thePrologPiActor,
             XpDtd::WhitespaceActor* thePrologWhitespaceActor, void* theContext);
    ~XpParser() override;

    using XpParserBase::setEntityResolver;

    // Stops in front of the root element.
    void parseProlog();
    // Of the DOCTYPE declaration, null if it has none. The parser's own, as the next.
    const XpDtd::ExternalId* getExternalId() const { return externalIdM.get(); }
    // Empty without external identifier or public identifier.
    CpsString getPublicIdentifier() const;
    // Null if the document has none.
    const XpDtd* getInternalSubset() const { return internalSubsetM.get(); }

    // What theDtd lacks will be implied and added to it, elements with theDefaultActor.
    void makeNonvalidating(XpDtd* theDtd, XpDtd::ElementActor* theDefaultActor, void* theContext);
    // Decides what validates: theDtd, an internal subset, both, or, with neither, nothing.
    // theDtd, which may be null, must outlive the parser and keeps its own actors. The actors
    // given here serve an internal subset and a DTD to which the parser adds what it lacks: all
    // its elements get theDefaultActor. A complete external subset alone validates without actors.
    void setDtd(const XpDtd* theDtd, void* theContext, XpDtd::ElementActor* theDefaultActor,
                XpDtd::PcDataActor* thePcData, XpDtd::PcDataActor* theCdSection,
                XpDtd::WhitespaceActor* theWhitespace, XpDtd::PiActor* thePi);
    void parseDocument();

  private:
    bool readExternalSubset(void* theContext);
    void mergeInternalSubset(const XpDtd& theExternal);
    void makeRoot();

    std::unique_ptr<XpDtd::ContentNode> rootNodeM;
    std::unique_ptr<XpDtd> ownedDtdM;
};

}  // namespace lumnis
