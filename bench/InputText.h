// Sources of a given size out of a unit that is repeated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumnis::bench {

// theUnit theCount times, each @ in it the number of the repetition, from 0.
std::string repeat(std::string_view theUnit, std::size_t theCount);

// The same, as often as it fits into theSize bytes; theCount gets how often. The numbers begin
// again at theNumbers.
std::string fill(std::size_t theSize, std::string_view theUnit, std::size_t theNumbers = SIZE_MAX,
                 std::size_t* theCount = nullptr);

// theHead and theTail, and between them as much of theUnit as theSize allows.
std::string filled(std::size_t theSize, std::string_view theHead, std::string_view theUnit,
                   std::string_view theTail);

// One half repeats theFirst, which declares something, the other half theSecond, which uses it.
std::string halves(std::size_t theSize, std::string_view theHead, std::string_view theFirst,
                   std::string_view theMiddle, std::string_view theSecond,
                   std::string_view theTail);

// theOpen and theClose around each other, theLevels at most, innermost as much of theFilling as
// fits.
std::string nested(std::size_t theSize, std::size_t theLevels, std::string_view theHead,
                   std::string_view theOpen, std::string_view theFilling, std::string_view theClose,
                   std::string_view theTail);

// A script of one function that repeats theUnit.
std::string functionOf(std::size_t theSize, std::string_view theUnit,
                       std::string_view theTail = "");

}  // namespace lumnis::bench
