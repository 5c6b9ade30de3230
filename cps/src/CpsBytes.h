// Comparison, hashing and copies of short texts, such as names, in words and in place: most are so
// short that a call costs more than the work.
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
    // theTarget must have room, and none of it may be a part of theText.
    static void copy(char* theTarget, std::string_view theText) noexcept {
        const char* const source = theText.data();
        const std::size_t size = theText.size();
        if (size > 16) {
            std::memcpy(theTarget, source, size);
        } else if (size >= 8) {
            copyEnds<std::uint64_t>(theTarget, source, size);
        } else if (size >= 4) {
            copyEnds<std::uint32_t>(theTarget, source, size);
        } else if (size != 0) {
            theTarget[0] = source[0];
            theTarget[size / 2] = source[size / 2];
            theTarget[size - 1] = source[size - 1];
        }
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
    // Two words that may overlap.
    template <typename Word>
    static void copyEnds(char* theTarget, const char* theSource, std::size_t theSize) noexcept {
        const Word first = load<Word>(theSource);
        const Word last = load<Word>(theSource + theSize - sizeof(Word));
        std::memcpy(theTarget, &first, sizeof first);
        std::memcpy(theTarget + theSize - sizeof last, &last, sizeof last);
    }
    static std::uint64_t mix(std::uint64_t theHash) noexcept {
        theHash *= 0x9E3779B97F4A7C15u;
        return theHash ^ (theHash >> 29);
    }
    // Up to eight bytes as one number. Two words that overlap hold four to eight of them, three
    // bytes that may be the same one to three.
    static std::uint64_t tail(const char* theBytes, std::size_t theSize) noexcept {
        if (theSize >= 4) {
            return std::uint64_t{load<std::uint32_t>(theBytes)} << 32 |
                   load<std::uint32_t>(theBytes + theSize - 4);
        }
        if (theSize == 0) {
            return 0;
        }
        const auto byte = [&](std::size_t i) -> std::uint64_t {
            return static_cast<unsigned char>(theBytes[i]);
        };
        return byte(0) << 16 | byte(theSize / 2) << 8 | byte(theSize - 1);
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
