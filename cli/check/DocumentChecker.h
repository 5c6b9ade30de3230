// Parses and validates XML documents that are in memory: what the command line's check does,
// without files and output.
#pragma once

#include <memory>
#include <optional>
#include <ostream>

#include "EventPrinter.h"
#include "XpDtd.h"
#include "XpEntityResolver.h"

namespace lumnis {

class DocumentChecker {
  public:
    struct Fault {
        CpsString message;
        unsigned line;  // from 1
    };

    // The events of each document go to theEvents, up to its fault if it has one; nothing is
    // printed if it is null. theEvents must outlive the checker.
    explicit DocumentChecker(std::ostream* theEvents);
    ~DocumentChecker();

    // Documents are validated against the DTD of theText from now on. After a fault, which is one
    // of theText, the checker is as it was.
    std::optional<Fault> setDtd(const CpsString& theText);
    // What a document uses is implied, and no DTD but its own internal subset is looked at.
    void setNonvalidating(bool theFlag) { isNonvalidatingM = theFlag; }

    // Nothing if theDocument is valid. Without theResolver nothing external is read.
    std::optional<Fault> check(const CpsString& theDocument, XpEntityResolver* theResolver);

  private:
    EventPrinter printerM;
    std::unique_ptr<XpDtd> dtdM;
    bool isNonvalidatingM = false;
};

}  // namespace lumnis
