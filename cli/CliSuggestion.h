// What somebody may have meant who has mistyped a name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumnis {

// The fewest letters to insert, delete, replace or swap with a neighbour that turn theLeft into
// theRight. ASCII letters in either case count as the same.
std::size_t editDistance(std::string_view theLeft, std::string_view theRight);

// That of theKnown which is nearest to theName, the first of several; empty when none is near
// enough to be a slip of the fingers: a letter in three, at least one.
std::string_view nearestName(std::string_view theName,
                             const std::vector<std::string_view>& theKnown);

// A line to append to a message: "\nDid you mean \"NAME\"?", or nothing.
std::string suggestion(std::string_view theName, const std::vector<std::string_view>& theKnown);

}  // namespace lumnis
