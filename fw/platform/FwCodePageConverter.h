// Service of the platform: conversion of text between UTF-8 and a code page.
//
// Code pages are named by their Windows numbers; 65001 is UTF-8. Properties that hold on every
// platform:
// - The destination is complete in itself: a stateful encoding begins and ends in its initial
//   state, and so does every control character, a terminating NUL among them.
// - NUL bytes are content.
// - A character that the destination lacks is substituted and the conversion goes on to the end
//   of the text; the result says so. A code page gets one "?" (0x3F) for the character.
// - Malformed input is substituted in the same way: one "?" in a code page for each ill-formed
//   sequence of UTF-8; U+FFFD in UTF-8 for a byte that begins no character of the source.
// - The bytes that code page 1252 leaves undefined (81, 8D, 8F, 90, 9D) are the characters of
//   the same number, in both directions.
// - A destination of four bytes for a byte of the source is always large enough.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace lumnis {

class FwCodePageConverter {
  public:
    enum class Result {
        converted = 0,    // everything, and nothing was substituted
        unsupported = 1,  // the pair of code pages cannot be converted on this system
        substituted,      // everything, with substitutions
        failed,           // nothing usable: no room, or the system lacks a resource
    };

    // Null when the system lacks the memory. The object begins with UTF-8 on both sides.
    static std::unique_ptr<FwCodePageConverter> create() noexcept;

    FwCodePageConverter(const FwCodePageConverter&) = delete;
    FwCodePageConverter& operator=(const FwCodePageConverter&) = delete;
    virtual ~FwCodePageConverter() = default;

    // Sets the pair of code pages: at least one of them is UTF-8, else the pair is unsupported.
    // Never gives substituted. After another result than converted every convert gives that
    // result, until a pair has been set.
    virtual Result initialize(std::uint32_t theSource, std::uint32_t theDestination) = 0;

    // Converts all of theSource. theSize receives the bytes written to theDestination; it is 0
    // with the results unsupported and failed.
    virtual Result convert(std::string_view theSource, std::span<char> theDestination,
                           std::size_t& theSize) = 0;

  protected:
    FwCodePageConverter() = default;
};

}  // namespace lumnis
