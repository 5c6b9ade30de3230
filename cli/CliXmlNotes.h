// Advice for the author of an XML file on the messages of the parser that puzzle most.
#pragma once

#include <string>
#include <string_view>

namespace lumnis {

// What theMessage means for somebody who looks at theSourceLine; empty where it speaks for itself.
std::string xmlNote(std::string_view theMessage, std::string_view theSourceLine);

}  // namespace lumnis
