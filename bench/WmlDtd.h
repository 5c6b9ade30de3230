// The DTD of WML 1.3, which the benchmark of the XML parser validates with.
#pragma once

namespace lumnis::bench {

extern const char* const theWmlDtd;

}  // namespace lumnis::bench
