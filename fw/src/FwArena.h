// Memory for what dies with a compilation or a document: taken a piece at a time,
// given back all at once, without a call for each.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "FwLargePages.h"

namespace lumnis {

class FwArena {
  public:
    FwArena() noexcept = default;
    // Takes pieces of theFirst, which must outlive the arena, before it takes memory of its own.
    explicit FwArena(std::span<std::byte> theFirst) noexcept
        : nextM(theFirst.data()), limitM(nextM + theFirst.size()) {}

    // An object that lives until the arena's end. Its destructor is not called.
    template <class Object, class... Arguments>
    Object* make(Arguments&&... theArguments) {
        static_assert(alignof(Object) <= theAlignment);
        return new (allocate(sizeof(Object))) Object(std::forward<Arguments>(theArguments)...);
    }

    // theSize bytes, aligned for pointers and numbers of eight bytes.
    void* allocate(std::size_t theSize) {
        const std::size_t size = (theSize + theAlignment - 1) / theAlignment * theAlignment;
        if (size > static_cast<std::size_t>(limitM - nextM)) {
            addChunk(size);
        }
        void* result = nextM;
        nextM += size;
        return result;
    }

  private:
    static constexpr std::size_t theAlignment = 8;
    // Chunks double from the first size to the largest: small scripts take little, and of a
    // large one's memory only a part of one chunk is left over. After that many chunks it is
    // megabytes that are needed, and these come in large pages.
    static constexpr std::size_t theFirstChunk = 2048;
    static constexpr std::size_t theLargestChunk = 65536;
    static constexpr std::size_t theManyChunks = 24;

    void addChunk(std::size_t theSize) {
        if (chunksM.size() >= theManyChunks && theSize <= theLargePageSize) {
            largeM.push_back(fwAllocateLargePage());
            useChunk(largeM.back().get(), theLargePageSize);
            return;
        }
        const std::size_t size = std::max(theSize, chunkSizeM);
        chunksM.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
        useChunk(chunksM.back().get(), size);
        chunkSizeM = std::min(2 * chunkSizeM, theLargestChunk);
    }

    void useChunk(std::byte* theChunk, std::size_t theSize) noexcept {
        nextM = theChunk;
        limitM = theChunk + theSize;
    }

    std::vector<std::unique_ptr<std::byte[]>> chunksM;
    std::vector<FwLargePageBlock> largeM;
    std::byte* nextM = nullptr;  // the free part of the last chunk
    std::byte* limitM = nullptr;
    std::size_t chunkSizeM = theFirstChunk;
};

}  // namespace lumnis
