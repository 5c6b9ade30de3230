#include "WmlTextActors.h"

#include <string_view>

#include "WmlActorException.h"
#include "WmlCtrl.h"

namespace lumnis {

void WmlPcDataActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    const bool isPreserved = ctrl.getPreserveWhiteSpaceFlag();
    CpsString text;
    std::string_view rest = theText;
    // Elsewhere the ends go the way of all white space; and a message about a variable may quote
    // the text.
    if (isPreserved || rest.find('$') != std::string_view::npos) {
        text = theText;
        WmlCtrl::removePrecedingWhitespaces(text, true);
        WmlCtrl::removeWhitespacesAtEnd(text, true);
        rest = text;
    }
    CpsString error;
    if (!ctrl.parsePcData(rest, error, isPreserved)) {
        throw WmlActorException(error);
    }
}

void WmlCdataSectionActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl::wmlContextOf(theContext).addInlineStringToPcData(theText);
}

}  // namespace lumnis
