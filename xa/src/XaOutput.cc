#include "XaOutput.h"

namespace lumnis {

XaOutput::XaOutput(const CpsString& theDoctype) : doctypeM(theDoctype) {}

XaOutput::~XaOutput() = default;

}  // namespace lumnis
