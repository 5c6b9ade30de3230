// The settings of the content handlers, as an authoring environment calls the two compilers:
// constants, set in one place.
#pragma once

#include "CpsString.h"

namespace lumnis {

// One object for the process, made on first use and only read afterwards: any number of threads.
class ChConfigData {
  public:
    static const ChConfigData& instance();

    ChConfigData(const ChConfigData&) = delete;
    ChConfigData& operator=(const ChConfigData&) = delete;

    bool gprViaHeader() const { return gprViaHeaderM; }
    bool gprWarningHeader() const { return gprWarningHeaderM; }
    const CpsString& chDefaultInputCharset() const { return chDefaultInputCharsetM; }
    const CpsString& chDefaultOutputCharset() const { return chDefaultOutputCharsetM; }
    // Whether a WBXML string has the ENTITY token for a character that its charset lacks.
    bool chWbxmlEntityTokenization() const { return chWbxmlEntityTokenizationM; }
    // Whether two do elements of one name in one card are refused.
    bool chWmlDoElementValidation() const { return chWmlDoElementValidationM; }

  private:
    ChConfigData();
    void readConfigData();

    bool gprViaHeaderM = false;
    bool gprWarningHeaderM = false;
    CpsString chDefaultInputCharsetM;
    CpsString chDefaultOutputCharsetM;
    bool chWbxmlEntityTokenizationM = false;
    bool chWmlDoElementValidationM = false;
    bool dataReadM = false;
};

}  // namespace lumnis
