#include "XaDirector.h"

#include "FwTraceScope.h"
#include "XaLog.h"
#include "XpDtdParser.h"
#include "XpInternalError.h"

namespace lumnis {

XaDirector::~XaDirector() = default;

void XaDirector::setupDtd(std::string_view theDtdText, XpDtd& theDtd) {
    const FwTraceScope scope("XaDirector::setupDtd");
    const XpDtd::Item::Beforehand beforehand;
    const CpsString text(theDtdText);
    try {
        XpDtdParser parser(&text, &theDtd, nullptr);
        parser.parseDtd();
    } catch (const XpParserError& error) {
        const CpsString message = error.toString();
        XaLog::trace("DTD parsing error: ", message);
        XaLog::report(message.c_str());
        throw;
    } catch (const XpInternalError& error) {
        XaLog::trace("Fatal internal parser error: ", error.what());
        XaLog::report(error.what());
        throw;
    }
}

void XaDirector::parse(XpParser& theParser) {
    theParser.parseDocument();
}

}  // namespace lumnis
