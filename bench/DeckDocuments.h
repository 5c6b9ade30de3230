// WML decks to parse and to encode.
#pragma once

#include <cstddef>
#include <string>

namespace lumnis::bench {

// A deck of cards with text, links, forms and tables until theSize bytes are reached.
std::string makeDeck(std::size_t theSize);

}  // namespace lumnis::bench
