// Comparison and hashing of short texts, such as names, in words and in place: most are so short
// that a call costs more than the work.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lumnis {

class CpsBytes {
  public:
    static bool areSame(std::string_view theLeft, std::string_view theRight) noexcept {
        return theLeft.size() == theRight.size() &&
               areSame(theLeft.data(), theRight.data(), theLeft.size());
    }
    static bool beginsWith(std::string_view theText, std::string_view thePrefix) noexcept {
        return theText.size() >= thePrefix.size() &&
               areSame(theText.data(), thePrefix.data(), thePrefix.size());
    }
    // Differs between machines: not for anything that is written.
    static std::uint32_t hashOf(std::string_view theText) noexcept {
        const char* at = theText.data();
        std::size_t rest = theText.size();
        std::uint64_t hash = rest;
        for (; rest > 8; rest -= 8, at += 8) {
            hash = mix(hash ^ load<std::uint64_t>(at));
        }
        return static_cast<std::uint32_t>(mix(hash ^ tail(at, rest)) >> 32);
    }

  private:
    template <typename Word>
    static Word load(const char* theBytes) noexcept {
        Word word;
        std::memcpy(&word, theBytes, sizeof word);
        return word;
    }
    static std::uint64_t mix(std::uint64_t theHash) noexcept {
        theHash *= 0x9E3779B97F4A7C15u;
        return theHash ^ (theHash >> 29);
    }
    // Up to eight bytes as one number. Two words that overlap hold four to eight of them.
    static std::uint64_t tail(const char* theBytes, std::size_t theSize) noexcept {
        if (theSize >= 4) {
            return std::uint64_t{load<std::uint32_t>(theBytes)} << 32 |
                   load<std::uint32_t>(theBytes + theSize - 4);
        }
        std::uint64_t word = 0;
        for (std::size_t i = 0; i < theSize; ++i) {
            word = word << 8 | static_cast<unsigned char>(theBytes[i]);
        }
        return word;
    }
    static bool areSame(const char* theLeft, const char* theRight, std::size_t theSize) noexcept {
        if (theSize > 16) {
            return std::memcmp(theLeft, theRight, theSize) == 0;
        }
        if (theSize > 8) {
            return load<std::uint64_t>(theLeft) == load<std::uint64_t>(theRight) &&
                   tail(theLeft + 8, theSize - 8) == tail(theRight + 8, theSize - 8);
        }
        return tail(theLeft, theSize) == tail(theRight, theSize);
    }
};

}  // namespace lumnis
