// The root of what the choice of an XML application can fail with. It stands outside of
// std::exception, so that a caller tells it from all others by its name.
#pragma once

#include "CpsString.h"

namespace lumnis {

class XaException {
  public:
    XaException() = default;
    XaException(const XaException& theOther) = default;
    XaException& operator=(const XaException& theOther) = default;
    virtual ~XaException();

    // The message for the user.
    virtual CpsString toString() const;
    // toString as characters, valid until the next call. Not for an exception that several
    // threads look at.
    virtual const char* what() const;

  private:
    mutable CpsString whatM;
};

}  // namespace lumnis
