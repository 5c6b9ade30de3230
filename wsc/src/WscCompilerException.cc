#include "WscCompilerException.h"

#include <string>

namespace lumnis {

WscCompilerException::WscCompilerException(int theLine, const CpsString& theMessage)
    : std::runtime_error(std::string(theMessage.view())), lineM(theLine), messageM(theMessage) {}

CpsString WscCompilerException::getMessage() const {
    return "Error at line: " + CpsString(std::to_string(lineM)) + ". \r\n" + messageM;
}

}  // namespace lumnis
