// A meta element that is meant for the transport of a document and not for its content.
#pragma once

#include "CpsString.h"

namespace lumnis {

class XaMetaData {
  public:
    XaMetaData();
    XaMetaData(const XaMetaData& theOther) = default;
    XaMetaData& operator=(const XaMetaData& theOther) = default;
    virtual ~XaMetaData();

    // The value of the attribute "content".
    void setContent(CpsString theContent);
    // The value of the attribute "http-equiv".
    void setHttpEquiv(CpsString theHttpEquiv);
    // The entry is to be forwarded.
    void setMetaDataForward() { forwardM = true; }

    const CpsString& getContent() const { return contentM; }
    const CpsString& getHttpEquiv() const { return httpEquivM; }
    bool isMetaDataForward() const { return forwardM; }

  private:
    CpsString contentM;
    CpsString httpEquivM;
    bool forwardM = false;
};

}  // namespace lumnis
