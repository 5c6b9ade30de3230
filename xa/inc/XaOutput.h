// What a run of an XML application returns beside the bytes that it writes.
#pragma once

#include <list>

#include "CpsString.h"
#include "XaMetaData.h"

namespace lumnis {

class XaOutput {
  public:
    explicit XaOutput(const CpsString& theDoctype);
    XaOutput(const XaOutput&) = delete;
    XaOutput& operator=(const XaOutput&) = delete;
    virtual ~XaOutput();

    // The document's transport meta data, in document order. The list is filled through this
    // reference, so the object must outlive whoever fills it.
    std::list<XaMetaData>& getMetaDataList() { return metaDataListM; }
    const CpsString& getDoctype() const { return doctypeM; }

  private:
    std::list<XaMetaData> metaDataListM;
    CpsString doctypeM;
};

}  // namespace lumnis
