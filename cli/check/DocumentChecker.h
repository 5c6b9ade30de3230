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

    // Documents are validated against the DTD in theText from now on. If that has a fault, which is
    // the result, the checker stays as it was.
    std::optional<Fault> setDtd(const CpsString& theText);
    // With true a document need not be valid: elements and attributes count as declared by their
    // use, and no DTD is read but the document's internal subset.
    void setNonvalidating(bool theFlag) { isNonvalidatingM = theFlag; }

    // Nothing if theDocument is valid. Without theResolver nothing external is read.
    std::optional<Fault> check(const CpsString& theDocument, XpEntityResolver* theResolver);

  private:
    EventPrinter printerM;
    std::unique_ptr<XpDtd> dtdM;
    bool isNonvalidatingM = false;
};

}  // namespace lumnis
