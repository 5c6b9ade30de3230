#include "CliXmlNotes.h"

namespace lumnis {

namespace {

struct XmlNoteRow {
    std::string_view start;   // of the message
    std::string_view end;     // of the message
    std::string_view source;  // what the line must hold; empty for anything
    std::string_view note;
};

constexpr XmlNoteRow theXmlNotes[] = {
    {"document start expected", "", "<?xml",
     "the XML declaration must be the first thing in the file, in front of comments and blanks"},
    {"missing ; following &", "", "", "a plain & is written &amp;"},
    {"syntax error at &", "", "", "a plain & is written &amp;"},
    {"unexpected element", "", "",
     "the document type does not allow this element at this place; in WML, text, links, images "
     "and fields stand in a p"},
    {"unexpected character data", "", "",
     "the document type does not allow text at this place; in WML it stands in a p"},
    {"unexpected end of element", "", "", "the document type wants more in this element"},
    {"name token expected", "", "id=", "an id begins with a letter, _ or :"},
    {"", "Variable name has to begin with alpha or '_'", "$", "a plain $ is written $$"},
};

}  // namespace

std::string xmlNote(std::string_view theMessage, std::string_view theSourceLine) {
    for (const XmlNoteRow& row : theXmlNotes) {
        if (theMessage.starts_with(row.start) && theMessage.ends_with(row.end) &&
            theSourceLine.find(row.source) != std::string_view::npos) {
            return std::string(row.note);
        }
    }
    return {};
}

}  // namespace lumnis
