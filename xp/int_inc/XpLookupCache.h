// Remembers which elements and attributes a document has used: a deck uses few of them often.
// Behind it stand the maps of the DTD, so a document whose names collide here is only as slow as
// without it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "XpDtd.h"

namespace lumnis {

class XpLookupCache {
  public:
    // As XpDtd::obtainElement.
    const XpDtd::Element& obtainElement(const XpDtd& theDtd, std::string_view theName) {
        const XpDtd::Element*& slot = elementsM[hash(theName) % theSize];
        if (slot == nullptr || slot->getName().view() != theName) {
            slot = &theDtd.obtainElement(theName);
        }
        return *slot;
    }
    // As XpDtd::Element::getAttribute.
    const XpDtd::Attribute& getAttribute(const XpDtd::Element& theElement,
                                         std::string_view theName) {
        Slot& slot = attributesM[(hash(theName) + theElement.getCreation()) % theSize];
        if (slot.element != &theElement || slot.attribute->getName().view() != theName) {
            slot = {&theElement, &theElement.getAttribute(theName)};
        }
        return *slot.attribute;
    }

  private:
    static constexpr std::size_t theSize = 128;

    struct Slot {
        const XpDtd::Element* element;
        const XpDtd::Attribute* attribute;
    };

    static std::size_t hash(std::string_view theName) {
        std::size_t result = theName.size();
        for (const char c : theName) {
            result = result * 33 + static_cast<unsigned char>(c);
        }
        return result;
    }

    std::array<const XpDtd::Element*, theSize> elementsM{};
    std::array<Slot, theSize> attributesM{};
};

}  // namespace lumnis
