// The form of the help texts.
#pragma once

#include <memory>
#include <string>

namespace CLI {
class FormatterBase;
}

namespace lumnis {

// Prints theExamples in front of the rest.
std::shared_ptr<CLI::FormatterBase> helpWithExamples(std::string theExamples);

}  // namespace lumnis
