#include "ChConfigData.h"

namespace lumnis {

const ChConfigData& ChConfigData::instance() {
    // Never destroyed: a call may come while the process ends.
    static const ChConfigData& theData = *new ChConfigData;
    return theData;
}

ChConfigData::ChConfigData() {
    readConfigData();
}

void ChConfigData::readConfigData() {
    gprViaHeaderM = false;
    gprWarningHeaderM = false;
    chDefaultInputCharsetM = "iso-8859-1";
    chDefaultOutputCharsetM = "utf-8";
    chWbxmlEntityTokenizationM = false;
    chWmlDoElementValidationM = false;
    dataReadM = true;
}

}  // namespace lumnis
