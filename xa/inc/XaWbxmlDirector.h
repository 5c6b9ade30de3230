// The application for XML of any kind (text/xml and application/xml): WBXML with literal names,
// without DTD.
#pragma once

#include "XaDirector.h"

namespace lumnis {

class XaWbxmlDirector final : public XaDirector {
  public:
    // Makes the one object, which registers itself, if there is none. Any number of threads.
    static void init();

    std::unique_ptr<XaOutput> process(XpParser& theParser, XaPrologOutput& theProlog,
                                      int theMediaType, HedCharsetId theCharset,
                                      int* theOutputMediaType, CpsString& theOutput) override;

  private:
    XaWbxmlDirector();
    ~XaWbxmlDirector() override;
};

}  // namespace lumnis
