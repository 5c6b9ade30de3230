// Bytes of a document that is being written: they grow at the end, by factors, to less than 4 GiB,
// since a document has no more. A std::string or std::vector would call for each piece that is
// added, and most pieces are short.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "CpsBytes.h"

namespace lumnis {

class XaByteBuffer {
  public:
    XaByteBuffer() = default;

    // Each append throws std::length_error above 4294967295 bytes.
    void append(unsigned char theByte) {
        if (sizeM == capacityM) {
            grow(1);
        }
        bytesM[sizeM++] = static_cast<char>(theByte);
    }
    // theBytes must not lie in this object.
    void append(std::string_view theBytes) {
        if (theBytes.size() > capacityM - sizeM) {
            grow(theBytes.size());
        }
        CpsBytes::copy(bytesM.get() + sizeM, theBytes);
        sizeM += theBytes.size();
    }
    // There must be one.
    void dropLast() { --sizeM; }
    void reserve(std::size_t theSize) {
        const std::size_t size = std::min(theSize, theMost);
        if (size > capacityM) {
            grow(size - sizeM);
        }
    }
    std::size_t size() const { return sizeM; }
    std::string_view view() const { return {bytesM.get(), sizeM}; }

  private:
    void grow(std::size_t theMore) {
        if (theMore > theMost - sizeM) {
            throw std::length_error("XaByteBuffer: content too long");
        }
        const std::size_t capacity =
            std::min(std::max({theLeast, 2 * capacityM, sizeM + theMore}), theMost);
        auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
        CpsBytes::copy(bytes.get(), view());
        bytesM = std::move(bytes);
        capacityM = capacity;
    }

    static constexpr std::size_t theLeast = 256;
    static constexpr std::size_t theMost = UINT32_MAX;

    std::unique_ptr<char[]> bytesM;
    std::size_t sizeM = 0;
    std::size_t capacityM = 0;
};

}  // namespace lumnis
