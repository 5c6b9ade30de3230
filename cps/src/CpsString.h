// The byte string of the whole system: source text, byte code, names and messages.
//
// It holds bytes, not characters: NUL is content, and the charset of the content is known only to
// the code that uses it. Most strings are short names and live wholly inside the object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace lumnis {

class CpsString {
  public:
    // Bytes that fit into the object itself; one of them is kept for the terminator of c_str.
    static constexpr std::uint32_t theLocalSize = 64;

    CpsString() noexcept : endM(localM), beginM(localM), limitM(localM + theLocalSize) {}
    // Takes all bytes of theText. A literal or another NUL-terminated text counts up to its
    // terminator. Throws std::length_error above 4294967039 bytes, as every operation that makes a
    // content (append and insert at 4294967039: they count the terminator).
    CpsString(std::string_view theText);  // NOLINT(google-explicit-constructor): text is a string
    CpsString(const char* theText);       // NOLINT(google-explicit-constructor): text is a string
    // Takes exactly theLength bytes, NUL bytes included.
    CpsString(const char* theBytes, std::uint32_t theLength);
    CpsString(const CpsString& theOther);
    // Leaves theOther empty.
    CpsString(CpsString&& theOther) noexcept;
    // min(theCount, length - thePosition) bytes from thePosition.
    // Throws std::out_of_range when thePosition is above the length.
    CpsString(const CpsString& theOther, std::uint32_t thePosition, std::uint32_t theCount);
    // Both contents, theLeft first: the form behind operator+.
    CpsString(std::string_view theLeft, std::string_view theRight);
    virtual ~CpsString() { release(); }

    CpsString& operator=(const CpsString& theOther) { return assign(theOther); }
    CpsString& operator=(CpsString&& theOther) noexcept;
    CpsString& operator=(std::string_view theText) { return assign(theText); }
    CpsString& operator=(const char* theText) { return assign(std::string_view(theText)); }

    // Replaces the content. theText must not lie inside this string, unless it is the string.
    CpsString& assign(const CpsString& theOther);
    CpsString& assign(std::string_view theText);
    // The range as in the constructor, and the same exception.
    CpsString& assign(const CpsString& theOther, std::uint32_t thePosition, std::uint32_t theCount);

    // Appends. theText may lie inside this string.
    CpsString& append(std::string_view theText) {
        if (theText.size() < static_cast<std::size_t>(limitM - endM)) {
            endM += theText.copy(endM, theText.size());
            return *this;
        }
        return appendGrowing(theText);
    }
    CpsString& append(const CpsString& theOther) { return append(theOther.view()); }
    CpsString& append(const char* theText) { return append(std::string_view(theText)); }
    CpsString& append(char theByte) {
        if (endM + 1 >= limitM) {
            growBy(1);
        }
        *endM++ = theByte;
        return *this;
    }
    // Appends, and doubles a buffer that is too small: for a content of many pieces, whose blocks
    // of 256 bytes would be copied again and again. theText must not lie inside this string.
    CpsString& appendPiece(std::string_view theText) {
        if (theText.size() > capacity() - length()) {
            doubleFor(theText.size());
        }
        return append(theText);
    }
    CpsString& operator+=(const CpsString& theOther) { return append(theOther.view()); }
    CpsString& operator+=(std::string_view theText) { return append(theText); }
    CpsString& operator+=(const char* theText) { return append(std::string_view(theText)); }
    CpsString& operator+=(char theByte) { return append(theByte); }

    // Stores theByte at thePosition, the rest moves up.
    // Throws std::out_of_range when thePosition is above the length.
    CpsString& insert(std::uint32_t thePosition, char theByte);
    // Removes min(theCount, length - thePosition) bytes; the buffer stays. Throws as insert.
    CpsString& erase(std::uint32_t thePosition, std::uint32_t theCount);
    // Makes room for a content of theLength bytes without further allocation.
    void reserve(std::uint32_t theLength);
    void clear() noexcept { endM = beginM; }

    std::uint32_t length() const noexcept { return static_cast<std::uint32_t>(endM - beginM); }
    bool empty() const noexcept { return endM == beginM; }
    // Bytes that the content may take before the next allocation.
    std::uint32_t capacity() const noexcept {
        return static_cast<std::uint32_t>(limitM - beginM - 1);
    }
    // Not terminated.
    const char* data() const noexcept { return beginM; }
    char* data() noexcept { return beginM; }
    // Terminated. Writes the terminator behind the content, so it counts as a change of the
    // buffer: not for strings that several threads read.
    const char* c_str() const noexcept {
        *endM = '\0';
        return beginM;
    }
    std::string_view view() const noexcept {
        return {beginM, static_cast<std::size_t>(endM - beginM)};
    }
    operator std::string_view() const noexcept { return view(); }  // NOLINT: a view is free

    // No range test.
    char operator[](std::uint32_t thePosition) const noexcept { return beginM[thePosition]; }
    char& operator[](std::uint32_t thePosition) noexcept { return beginM[thePosition]; }

    // Friends, so that they are found for an operand of this class alone.

    friend bool operator==(const CpsString& theLeft, const CpsString& theRight) noexcept {
        return theLeft.view() == theRight.view();
    }
    friend bool operator==(const CpsString& theLeft, std::string_view theRight) noexcept {
        return theLeft.view() == theRight;
    }
    friend bool operator==(const CpsString& theLeft, const char* theRight) noexcept {
        return theLeft.view() == std::string_view(theRight);
    }
    // Of unsigned bytes; of two that agree on the common prefix the shorter is the lesser.
    friend bool operator<(const CpsString& theLeft, const CpsString& theRight) noexcept {
        return theLeft.view() < theRight.view();
    }
    friend CpsString operator+(const CpsString& theLeft, const CpsString& theRight) {
        return {theLeft.view(), theRight.view()};
    }
    friend CpsString operator+(const CpsString& theLeft, std::string_view theRight) {
        return {theLeft.view(), theRight};
    }
    friend CpsString operator+(const CpsString& theLeft, const char* theRight) {
        return {theLeft.view(), std::string_view(theRight)};
    }
    friend CpsString operator+(std::string_view theLeft, const CpsString& theRight) {
        return {theLeft, theRight.view()};
    }
    friend CpsString operator+(const char* theLeft, const CpsString& theRight) {
        return {std::string_view(theLeft), theRight.view()};
    }

  private:
    // Takes a block of the next multiple of 256 above theLength in place of the buffer. The first
    // theKept bytes move to it.
    void reallocate(std::size_t theLength, std::size_t theKept);
    void growBy(std::size_t theCount);
    void doubleFor(std::size_t theCount);
    CpsString& appendGrowing(std::string_view theText);
    void takeFrom(CpsString& theOther) noexcept;
    void release() noexcept {
        if (beginM != localM) {
            delete[] beginM;
        }
    }

    char* endM;    // one past the content; always below limitM
    char* beginM;  // localM or a heap block whose size is a multiple of 256
    char* limitM;  // one past the buffer
    char localM[theLocalSize];
};

}  // namespace lumnis

template <>
struct std::hash<lumnis::CpsString> {
    std::size_t operator()(const lumnis::CpsString& theString) const noexcept {
        return std::hash<std::string_view>()(theString.view());
    }
};
