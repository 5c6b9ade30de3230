// What is wrong with a document or a DTD text, and where: the one exception of the XML parser
// that its users see for bad input.
#pragma once

#include "XpException.h"

namespace lumnis {

class XpParserError : public XpException {
  public:
    // theLine counts from 1.
    XpParserError(CpsString theMessage, unsigned theLine);

    CpsString toString() const override { return messageM; }
    unsigned getLine() const { return lineM; }

  private:
    CpsString messageM;
    unsigned lineM;
};

}  // namespace lumnis
