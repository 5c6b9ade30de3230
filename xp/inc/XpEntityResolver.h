// Fetches external DTD subsets and external entities for a parser. No parser has one unless its
// user gives it one: without it nothing outside of the document is ever read.
#pragma once

#include "CpsString.h"

namespace lumnis {

class XpEntityResolver {
  public:
    virtual ~XpEntityResolver() = default;

    // The text behind the identifiers, in UTF-8, or null if it is not to be had. Either
    // identifier may be null. The text stays the resolver's and unchanged until it is released;
    // the parser writes a terminator behind it.
    virtual const CpsString* fetch(const CpsString* theSystemId, const CpsString* thePublicId) = 0;
    // Called once for each text that fetch has given.
    virtual void release(const CpsString* theText) = 0;
};

}  // namespace lumnis
