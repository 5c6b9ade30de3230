#include "WmlTextActors.h"

#include "WmlActorException.h"
#include "WmlCtrl.h"

namespace lumnis {

void WmlPcDataActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl& ctrl = WmlCtrl::wmlContextOf(theContext);
    CpsString text = theText;
    WmlCtrl::removePrecedingWhitespaces(text, true);
    WmlCtrl::removeWhitespacesAtEnd(text, true);
    CpsString error;
    if (!ctrl.parsePcData(text, error, ctrl.getPreserveWhiteSpaceFlag())) {
        throw WmlActorException(error);
    }
}

void WmlCdataSectionActor::operator()(const CpsString& theText, void* theContext) {
    WmlCtrl::wmlContextOf(theContext).addInlineStringToPcData(theText);
}

}  // namespace lumnis
