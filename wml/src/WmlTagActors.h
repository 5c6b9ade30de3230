// The actors of the elements of WML and WTA-WML.
#pragma once

#include <memory>
#include <vector>

#include "XpDtd.h"

namespace lumnis {

// Gives each element of theDtd, one of the known document types, its actor. theVersion is 1 for
// WML 1.1, 2 for WML 1.2 and WTA-WML 1.2, 3 for WML 1.3. The actors refer to theDtd, and have to
// live as long as it is used. Throws XpDtd::UndefinedException if theDtd lacks an attribute.
std::vector<std::unique_ptr<XpDtd::ElementActor>> makeWmlTagActors(XpDtd& theDtd, int theVersion);

}  // namespace lumnis
