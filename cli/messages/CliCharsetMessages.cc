// Messages of the charset conversion.
#include "CliMessageTables.h"

namespace lumnis {

namespace {

// clang-format off
constexpr CliMessageRow theCharsetMessages[] = {
    {R"(There was no input character data to process.)",
     R"(A conversion was asked for an empty text.)",
     R"(The file is empty.)",
     R"($ : | lumnis compile --input-charset latin1 -)",
     R"($ echo 'function f() {}' | lumnis compile --input-charset latin1 -)"},
    {R"(Charset conversion from {} is not supported.)",
     R"(There is no conversion from the charset to UTF-8.)",
     R"(Nothing an author writes gives it: the command line offers only charsets that can be converted.)",
     "",
     ""},
    {R"(Bit format of input character data does not conform to {}.)",
     R"(The bytes of the file are no text of the charset.)",
     R"(The charset named is not the one that the editor has saved the file in.)",
     R"($ printf 'abc' | lumnis compile --input-charset iso-10646-ucs-2 -)",
     R"($ printf 'function f() { return "\303\251"; }' | lumnis compile --input-charset utf-8 -)"},
    {R"(Unknown charset declared for output string.)",
     R"(The charset of the result is none.)",
     R"(Nothing an author writes gives it: the command line takes only charsets that exist.)",
     "",
     ""},
    {R"(Unsupported charset declared for output string.)",
     R"(There is no conversion from UTF-8 to the charset.)",
     R"(Nothing an author writes gives it: the command line offers only charsets that can be converted.)",
     "",
     ""},
    {R"(- the specified set of source/destination code pages is not supported)",
     R"(The system has no table for the charset.)",
     R"(Nothing an author writes gives it: the tables of the C library are not installed.)",
     "",
     ""},
    {R"(Unsupported character(s) in destination character set)",
     R"(A character of the text is not in the charset of the result.)",
     R"(The charset is too small for the text.)",
     "",
     ""},
    {R"(Code page not supported)",
     R"(The system has no table for the charset.)",
     R"(Nothing an author writes gives it: the tables of the C library are not installed.)",
     "",
     ""},
    {R"(Failed to create MLANG conversion object)",
     R"(The conversion service of the system is not there.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(Failed create conversion object, class not registered)",
     R"(The conversion service of the system is not there.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(cannot be read as {})",
     R"(The bytes of the file are no text of the charset; the rest of the message tells more.)",
     R"(The charset named is not the one that the editor has saved the file in.)",
     R"($ printf 'function f() { return "\201' | lumnis compile --input-charset shift_jis -)",
     R"($ printf 'function f() { return "\303\251"; }' | lumnis compile --input-charset utf-8 -)"},
    {R"(cannot be converted to UTF-8: {})",
     R"(The bytes of the document are no text of its charset; the rest of the message tells more.)",
     R"(Nothing an author writes gives it: the command line converts in front.)",
     "",
     ""},
};
// clang-format on

}  // namespace

std::span<const CliMessageRow> charsetMessages() {
    return theCharsetMessages;
}

}  // namespace lumnis
