// What other parsers make of a document. Each one ends the program if it refuses the input.
#pragma once

#include <string>

namespace lumnis::bench {

[[noreturn]] void refuse(const char* theWho, const char* theWhat);

// The DTD of WML 1.3 from its text (WmlDtd.h), and away with it.
void readDtdWithLibxml2(const std::string& theIgnored);
// To a tree, and validated against that DTD, which has been read before.
void validateWithLibxml2(const std::string& theDocument);
// Well-formedness alone: events to handlers that do nothing.
void readWithLibxml2(const std::string& theDocument);
void readWithExpat(const std::string& theDocument);
// Without a handler expat leaves half of its work out.
void readWithBareExpat(const std::string& theDocument);

}  // namespace lumnis::bench
