// An XML application: turns the documents of one kind into a compact form.
//
// A director is made once, registers with XaProducer, and stays for the life of the process. All
// that belongs to one document lives in the call of process.
#pragma once

#include <memory>
#include <string_view>

#include "CpsString.h"
#include "HedCharsetId.h"
#include "XaOutput.h"
#include "XaPrologOutput.h"
#include "XpParser.h"

namespace lumnis {

class XaDirector {
  public:
    XaDirector() = default;
    XaDirector(const XaDirector&) = delete;
    XaDirector& operator=(const XaDirector&) = delete;
    virtual ~XaDirector();

    // theParser has read the prolog and stands in front of the root element; theProlog holds what
    // its actors have seen. On return theOutput is the complete result and *theOutputMediaType its
    // media type; when the call throws, theOutput is as it was.
    virtual std::unique_ptr<XaOutput> process(XpParser& theParser, XaPrologOutput& theProlog,
                                              int theMediaType, HedCharsetId theCharset,
                                              int* theOutputMediaType, CpsString& theOutput) = 0;

    // Parses the text of a DTD into theDtd, which is empty. A fault is logged and thrown on, as
    // XpParserError or XpInternalError.
    static void setupDtd(std::string_view theDtdText, XpDtd& theDtd);
    // Reads the rest of the document; all output arises in the actors.
    static void parse(XpParser& theParser);
};

}  // namespace lumnis
