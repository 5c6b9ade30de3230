#include "ChConfigData.h"

namespace lumnis {

const ChConfigData& ChConfigData::instance() {
    static const ChConfigData theData;
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
