#include "WmlTextActors.h"

#include <string_view>

#include "WmlActorException.h"
#include "WmlCtrl.h"

namespace lumnis {

void WmlPcDataActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    const bool isPreserved = ctrl.getPreserveWhiteSpaceFlag();
    const bool hasVariables = theText.view().find('$') != std::string_view::npos;
    if (!isPreserved && !hasVariables) {
        ctrl.addCollapsedPcData(theText);  // most text, and nothing in it can be refused
        return;
    }
    // Elsewhere the ends go the way of all white space; and a message about a variable may quote
    // the text.
    CpsString text(theText);
    WmlCtrl::removePrecedingWhitespaces(text, true);
    WmlCtrl::removeWhitespacesAtEnd(text, true);
    if (!hasVariables) {
        ctrl.addInlineStringToPcData(text);
        return;
    }
    CpsString error;
    if (!ctrl.parsePcData(text, error, isPreserved)) {
        throw WmlActorException(error);
    }
}

void WmlCdataSectionActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl::wmlContextOf(theContext).addInlineStringToPcData(theText);
}

}  // namespace lumnis
