// The text between the tags of a WML document. Without fields: one object of each serves any
// number of documents and threads.
#pragma once

#include "XpDtd.h"

namespace lumnis {

// Variables, and white space as WML has it: one blank for each run (WML 1.3, 11.8.1). In an element
// that preserves white space only the runs at both ends of a piece of text shrink.
class WmlPcDataActor final : public XpDtd::PcDataActor {
  public:
    void operator()(const CpsString& theText, void* theContext) override;
};

// CDATA sections: every byte as it stands.
class WmlCdataSectionActor final : public XpDtd::PcDataActor {
  public:
    void operator()(const CpsString& theText, void* theContext) override;
};

}  // namespace lumnis
