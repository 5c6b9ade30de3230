#include "XpException.h"

namespace lumnis {

XpException::~XpException() = default;

const char* XpException::what() const noexcept {
    try {
        bufferM = toString();
        return bufferM.c_str();
    } catch (...) {
        return "out of memory";
    }
}

}  // namespace lumnis
