#include "XpDtdParser.h"

#include "FwTraceScope.h"
#include "XpLexer.h"

namespace lumnis {

XpDtdParser::XpDtdParser(const CpsString* theText, XpDtd* theDtd, void* theContext)
    : XpParserBase(theText, theContext) {
    activeDtdM = theDtd;
    buildingDtdM = theDtd;
}

XpDtdParser::~XpDtdParser() = default;

void XpDtdParser::parseDtd() {
    const FwTraceScope scope("XpDtdParser::parseDtd");
    lexerM->startDtd();
    parse();
}

}  // namespace lumnis
