#include "DeckEncoder.h"

#include <lumnisutil.h>

#include <cstdlib>

#include "XmlPeers.h"

namespace lumnis::bench {

void encodeDeck(const std::string& theDeck) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    const int status =
        WMLEncode(theDeck.data(), static_cast<int>(theDeck.size()), &result, &length, &error);
    // Without a text the result is there and only too long for its length to be told.
    if (status != 0 && error != nullptr) {
        refuse("lumnis", error);
    }
    std::free(result);
}

}  // namespace lumnis::bench
