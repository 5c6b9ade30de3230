#include "XaMetaData.h"

#include <utility>

namespace lumnis {

XaMetaData::XaMetaData() = default;

XaMetaData::~XaMetaData() = default;

void XaMetaData::setContent(CpsString theContent) {
    contentM = std::move(theContent);
}

void XaMetaData::setHttpEquiv(CpsString theHttpEquiv) {
    httpEquivM = std::move(theHttpEquiv);
}

}  // namespace lumnis
