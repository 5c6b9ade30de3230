// An array of plain values for what grows by one value at a time, to a handful in most scripts and
// to a million in some.
//
// The first values live in the object, so that a small array costs no allocation. A larger one is
// a block that the C library lengthens, in place where it can: no second block stands beside it
// while it grows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace lumnis {

// theLocalCount: how many values fit into the object itself.
template <class Value, std::size_t theLocalCount>
class CpsArray {
    static_assert(std::is_trivially_copyable_v<Value> && std::is_trivially_destructible_v<Value>);
    static_assert(alignof(Value) <= alignof(std::max_align_t));

  public:
    CpsArray() noexcept : valuesM(local()) {}
    CpsArray(const CpsArray&) = delete;
    CpsArray& operator=(const CpsArray&) = delete;
    ~CpsArray() { release(); }

    // Appends; what it returns stays where it is until the array grows again. theArguments must not
    // lie in the array. Throws std::bad_alloc, and then nothing has changed; so do the other
    // growing operations.
    template <class... Arguments>
    Value& append(Arguments&&... theArguments) {
        return appendAs<Value>(std::forward<Arguments>(theArguments)...);
    }
    // The same for a class derived from Value that adds no data to it.
    template <class Derived, class... Arguments>
    Derived& appendAs(Arguments&&... theArguments) {
        static_assert(sizeof(Derived) == sizeof(Value));
        if (sizeM == capacityM) [[unlikely]] {
            lengthen();
        }
        return *new (valuesM + sizeM++) Derived(std::forward<Arguments>(theArguments)...);
    }
    // Makes room for theCount values in all.
    void reserve(std::size_t theCount) {
        if (theCount <= capacityM) {
            return;
        }
        if (theCount > static_cast<std::size_t>(-1) / sizeof(Value)) {
            throw std::bad_alloc();
        }
        void* old = isLocal() ? nullptr : valuesM;
        void* block = std::realloc(old, theCount * sizeof(Value));
        if (block == nullptr) {
            throw std::bad_alloc();
        }
        if (isLocal()) {
            std::memcpy(block, static_cast<const void*>(valuesM), sizeM * sizeof(Value));
        }
        valuesM = static_cast<Value*>(block);
        capacityM = theCount;
    }
    // Appends copies of theValue, or drops values at the end, until there are theCount.
    void resize(std::size_t theCount, Value theValue = {}) {
        if (theCount > capacityM) {
            reserve(std::max(theCount, capacityM + capacityM / 2));
        }
        if (theCount > sizeM) {
            std::uninitialized_fill(valuesM + sizeM, valuesM + theCount, theValue);
        }
        sizeM = theCount;
    }
    void swap(CpsArray& theOther) noexcept {
        const bool isMineLocal = isLocal();
        const bool isTheirsLocal = theOther.isLocal();
        std::swap(valuesM, theOther.valuesM);
        std::swap(sizeM, theOther.sizeM);
        std::swap(capacityM, theOther.capacityM);
        std::swap(localM, theOther.localM);
        if (isTheirsLocal) {
            valuesM = local();
        }
        if (isMineLocal) {
            theOther.valuesM = theOther.local();
        }
    }
    // Drops values at the end until there are theCount, at most as many as there are.
    void truncate(std::size_t theCount) noexcept { sizeM = theCount; }
    void pop() noexcept { --sizeM; }
    // Drops all values. The memory stays for what comes.
    void clear() noexcept { sizeM = 0; }
    // Drops all values and gives back the memory.
    void release() noexcept {
        if (!isLocal()) {
            std::free(valuesM);
        }
        valuesM = local();
        sizeM = 0;
        capacityM = theLocalCount;
    }

    std::size_t size() const noexcept { return sizeM; }
    bool empty() const noexcept { return sizeM == 0; }
    Value& operator[](std::size_t theIndex) noexcept { return valuesM[theIndex]; }
    const Value& operator[](std::size_t theIndex) const noexcept { return valuesM[theIndex]; }
    Value& back() noexcept { return valuesM[sizeM - 1]; }
    const Value& back() const noexcept { return valuesM[sizeM - 1]; }
    Value* begin() noexcept { return valuesM; }
    Value* end() noexcept { return valuesM + sizeM; }
    const Value* begin() const noexcept { return valuesM; }
    const Value* end() const noexcept { return valuesM + sizeM; }
    std::span<Value> values() noexcept { return {valuesM, sizeM}; }
    std::span<const Value> values() const noexcept { return {valuesM, sizeM}; }

  private:
    static constexpr std::size_t theLargeSize = 65536;  // in bytes

    Value* local() noexcept { return reinterpret_cast<Value*>(localM); }
    bool isLocal() const noexcept {
        return static_cast<const void*>(valuesM) == static_cast<const void*>(localM);
    }
    // By a half, and a large array by a quarter: the block mostly grows in place.
    [[gnu::noinline]] void lengthen() {
        const std::size_t part = capacityM * sizeof(Value) < theLargeSize ? 2 : 4;
        reserve(capacityM + std::max<std::size_t>(capacityM / part, 16));
    }

    Value* valuesM;  // localM or a block of the C library
    std::size_t sizeM = 0;
    std::size_t capacityM = theLocalCount;
    alignas(Value) std::byte localM[theLocalCount * sizeof(Value)];
};

}  // namespace lumnis
