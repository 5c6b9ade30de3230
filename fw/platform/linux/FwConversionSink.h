// Where a conversion writes to: a buffer of fixed size.
#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

namespace lumnis {

struct FwConversionSink {
    explicit FwConversionSink(std::span<char> theBuffer)
        : beginM(theBuffer.data()), atM(beginM), endM(beginM + theBuffer.size()) {}

    void put(char theByte) {
        if (atM == endM) {
            isFullM = true;
        } else {
            *atM++ = theByte;
        }
    }
    void put(std::string_view theBytes) {
        if (theBytes.size() > room()) {
            isFullM = true;
        } else if (!theBytes.empty()) {
            std::memcpy(atM, theBytes.data(), theBytes.size());
            atM += theBytes.size();
        }
    }
    void substitute(std::string_view theBytes) {
        isSubstitutedM = true;
        put(theBytes);
    }

    std::size_t room() const { return static_cast<std::size_t>(endM - atM); }
    std::size_t size() const { return static_cast<std::size_t>(atM - beginM); }

    char* const beginM;
    char* atM;
    char* const endM;
    bool isFullM = false;  // something did not fit; what has been written is of no use
    bool isSubstitutedM = false;
};

}  // namespace lumnis
