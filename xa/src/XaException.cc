#include "XaException.h"

namespace lumnis {

XaException::~XaException() = default;

CpsString XaException::toString() const {
    return "XML application error";
}

const char* XaException::what() const {
    whatM = toString();
    return whatM.c_str();
}

}  // namespace lumnis
