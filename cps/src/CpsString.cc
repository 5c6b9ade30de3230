#include "CpsString.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "CpsBytes.h"

namespace lumnis {

namespace {

// The largest content: its block of the next multiple of 256 must have a size of 32 bits.
constexpr std::size_t theMaximumLength = 0xFFFFFEFF;

std::string_view range(const CpsString& theString, std::uint32_t thePosition,
                       std::uint32_t theCount, const char* theOperation) {
    if (thePosition > theString.length()) {
        throw std::out_of_range(theOperation);
    }
    return theString.view().substr(thePosition, theCount);
}

}  // namespace

CpsString::CpsString(std::string_view theText) : CpsString(theText, std::string_view()) {}

CpsString::CpsString(const char* theText) : CpsString(std::string_view(theText)) {}

CpsString::CpsString(const char* theBytes, std::uint32_t theLength)
    : CpsString(std::string_view(theBytes, theLength)) {}

CpsString::CpsString(const CpsString& theOther) : CpsString(theOther.view()) {}

CpsString::CpsString(CpsString&& theOther) noexcept : CpsString() {
    takeFrom(theOther);
}

CpsString::CpsString(const CpsString& theOther, std::uint32_t thePosition, std::uint32_t theCount)
    : CpsString(range(theOther, thePosition, theCount, "CpsString::CpsString()")) {}

CpsString::CpsString(std::string_view theLeft, std::string_view theRight) : CpsString() {
    const std::size_t length = theLeft.size() + theRight.size();
    if (length >= theLocalSize) {
        reallocate(length, 0);
    }
    CpsBytes::copy(beginM, theLeft);
    CpsBytes::copy(beginM + theLeft.size(), theRight);
    endM = beginM + length;
}

CpsString& CpsString::operator=(CpsString&& theOther) noexcept {
    if (this == &theOther) {
        return *this;
    }
    if (theOther.beginM == theOther.localM) {
        // Fits into every buffer, and this one stays where it is.
        assign(theOther.view());
        theOther.clear();
    } else {
        release();
        takeFrom(theOther);
    }
    return *this;
}

CpsString& CpsString::assign(const CpsString& theOther) {
    return assign(theOther.view());
}

CpsString& CpsString::assign(std::string_view theText) {
    if (theText.data() == beginM) {
        endM = beginM + theText.size();  // this string itself: nothing to copy
        return *this;
    }
    if (theText.size() + 1 > static_cast<std::size_t>(limitM - beginM)) {
        reallocate(theText.size(), 0);
    }
    CpsBytes::copy(beginM, theText);
    endM = beginM + theText.size();
    return *this;
}

CpsString& CpsString::assign(const CpsString& theOther, std::uint32_t thePosition,
                             std::uint32_t theCount) {
    const std::string_view part = range(theOther, thePosition, theCount, "CpsString::assign()");
    if (this == &theOther) {
        return erase(thePosition + static_cast<std::uint32_t>(part.size()), length())
            .erase(0, thePosition);
    }
    return assign(part);
}

CpsString& CpsString::appendGrowing(std::string_view theText) {
    // The text may be a part of the buffer that is about to go.
    const char* source = theText.data();
    const bool isInside = !std::less<>()(source, static_cast<const char*>(beginM)) &&
                          std::less<>()(source, static_cast<const char*>(endM));
    const std::ptrdiff_t offset = isInside ? source - beginM : 0;
    growBy(theText.size());
    if (isInside) {
        source = beginM + offset;
    }
    CpsBytes::copy(endM, {source, theText.size()});
    endM += theText.size();
    return *this;
}

CpsString& CpsString::insert(std::uint32_t thePosition, char theByte) {
    if (thePosition > length()) {
        throw std::out_of_range("CpsString::insert()");
    }
    if (endM + 1 >= limitM) {
        growBy(1);
    }
    std::memmove(beginM + thePosition + 1, beginM + thePosition, length() - thePosition);
    beginM[thePosition] = theByte;
    ++endM;
    return *this;
}

CpsString& CpsString::erase(std::uint32_t thePosition, std::uint32_t theCount) {
    if (thePosition > length()) {
        throw std::out_of_range("CpsString::erase()");
    }
    const std::uint32_t removed = std::min(theCount, length() - thePosition);
    std::memmove(beginM + thePosition, beginM + thePosition + removed,
                 length() - thePosition - removed);
    endM -= removed;
    return *this;
}

void CpsString::reserve(std::uint32_t theLength) {
    if (theLength > capacity()) {
        reallocate(theLength, length());
    }
}

void CpsString::reallocate(std::size_t theLength, std::size_t theKept) {
    if (theLength > theMaximumLength) {
        throw std::length_error("CpsString: content too long");
    }
    const std::size_t size = ((theLength >> 8) + 1) << 8;
    char* block = new char[size];
    CpsBytes::copy(block, {beginM, theKept});
    release();
    beginM = block;
    endM = block + theKept;
    limitM = block + size;
}

void CpsString::doubleFor(std::size_t theCount) {
    constexpr std::size_t theMostAhead = 1u << 30;
    if (theCount > theMaximumLength - length()) {
        return;  // append will refuse it
    }
    const std::size_t ahead = std::min<std::size_t>(length(), theMostAhead);
    const std::size_t wanted = length() + theCount + ahead;
    reserve(static_cast<std::uint32_t>(std::min(wanted, theMaximumLength)));
}

void CpsString::growBy(std::size_t theCount) {
    // The terminator counts as well here; reserve and assign do not count it.
    reallocate(length() + theCount + 1, length());
}

void CpsString::takeFrom(CpsString& theOther) noexcept {
    if (theOther.beginM == theOther.localM) {
        std::memcpy(localM, theOther.localM, theOther.length());
        endM = localM + theOther.length();
    } else {
        beginM = theOther.beginM;
        endM = theOther.endM;
        limitM = theOther.limitM;
        theOther.beginM = theOther.localM;
        theOther.limitM = theOther.localM + theLocalSize;
    }
    theOther.endM = theOther.beginM;
}

}  // namespace lumnis
