// The root of the exceptions that a document, its DTD or an application's actor can cause.
#pragma once

#include <exception>

#include "CpsString.h"

namespace lumnis {

class XpException : public std::exception {
  public:
    ~XpException() override;

    // The message for the user, without place.
    virtual CpsString toString() const = 0;
    // toString as characters, valid until the next call. Not for an exception that several
    // threads look at.
    const char* what() const noexcept override;

  private:
    mutable CpsString bufferM;
};

}  // namespace lumnis
