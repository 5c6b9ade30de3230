// Parses the text of a DTD.
//
// Make an empty XpDtd, run the parser over the text, destroy the parser, attach the actors. When
// the parse throws, the DTD holds whatever stood in front of the fault and is of no use.
#pragma once

#include "XpParserBase.h"
#include "XpParserError.h"

namespace lumnis {

class XpDtdParser : private XpParserBase {
  public:
    // theText must outlive the parser, and a terminator is written behind it. theContext goes to
    // the PI actor of theDtd, if it has one.
    XpDtdParser(const CpsString* theText, XpDtd* theDtd, void* theContext);
    ~XpDtdParser() override;

    using XpParserBase::setEntityResolver;

    // Throws XpParserError.
    void parseDtd();
};

}  // namespace lumnis
