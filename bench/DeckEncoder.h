// Our contender for decks: one call of the export.
#pragma once

#include <string>

namespace lumnis::bench {

// Ends the program if theDeck is refused.
void encodeDeck(const std::string& theDeck);

}  // namespace lumnis::bench
