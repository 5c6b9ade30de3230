// Remembers which elements and attributes a document has used: a deck uses few of them often.
// Behind it stand the maps of the DTD, so a document whose names collide here is only as slow as
// without it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "CpsBytes.h"
#include "XpDtd.h"

namespace lumnis {

class XpLookupCache {
  public:
    // As XpDtd::obtainElement.
    const XpDtd::Element& obtainElement(const XpDtd& theDtd, std::string_view theName) {
        return *recall(
            elementsM[CpsBytes::hashOf(theName) % theSize],
            [&](const XpDtd::Element* theElement) {
                return theElement != nullptr && CpsBytes::areSame(theElement->getName(), theName);
            },
            [&] { return &theDtd.obtainElement(theName); });
    }
    // As XpDtd::Element::getAttribute.
    const XpDtd::Attribute& getAttribute(const XpDtd::Element& theElement,
                                         std::string_view theName) {
        return *recall(
                    attributesM[(CpsBytes::hashOf(theName) + theElement.getCreation() * theSpread) %
                                theSize],
                    [&](const Use& theUse) {
                        return theUse.element == &theElement &&
                               CpsBytes::areSame(theUse.attribute->getName(), theName);
                    },
                    [&] {
                        return Use{&theElement, &theElement.getAttribute(theName)};
                    })
                    .attribute;
    }

  private:
    struct Use {
        const XpDtd::Element* element;
        const XpDtd::Attribute* attribute;
    };
    // Two that share a place, the one that was used last in front.
    template <typename T>
    using Pair = std::array<T, 2>;

    static constexpr std::size_t theSize = 128;
    // Elements are numbered one by one; their attributes go to places that are far from each other.
    static constexpr std::size_t theSpread = 37;

    template <typename T, typename Matches, typename Find>
    static const T& recall(Pair<T>& thePair, Matches theMatches, Find theFind) {
        if (!theMatches(thePair[0])) {
            if (!theMatches(thePair[1])) {
                thePair[1] = theFind();
            }
            std::swap(thePair[0], thePair[1]);
        }
        return thePair[0];
    }

    std::array<Pair<const XpDtd::Element*>, theSize> elementsM{};
    std::array<Pair<Use>, theSize> attributesM{};
};

}  // namespace lumnis
