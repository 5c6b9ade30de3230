// Messages about decks that no other XML document gets.
#include "CliMessageTables.h"

namespace lumnis {

namespace {

// clang-format off
constexpr CliMessageRow theDeckMessages[] = {
    {R"(Variable name has to begin with alpha or '_')",
     R"(A $ begins a variable, and no name follows. A name begins with a letter or _.)",
     R"(A plain $ was meant: it is written $$.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>costs 5$.</p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>costs 5$$.</p></card></wml>)"},
    {R"(Variable name has to begin with digit, alpha or '_')",
     R"(A $ begins a variable, and no name follows. In WTA-WML a name may begin with a digit, too.)",
     R"(A plain $ was meant: it is written $$.)",
     R"(<!DOCTYPE wta-wml PUBLIC "-//WAPFORUM//DTD WTA-WML 1.2//EN" "wta-wml12.dtd">
<wta-wml><card><p>costs 5 $</p></card></wta-wml>)",
     R"(<!DOCTYPE wta-wml PUBLIC "-//WAPFORUM//DTD WTA-WML 1.2//EN" "wta-wml12.dtd">
<wta-wml><card><p>costs 5 $$</p></card></wta-wml>)"},
    {R"(no closing parenthesis in variable: {})",
     R"(A variable begins with $( and has no ) behind its name.)",
     R"(The bracket was forgotten, or a character stands in the name that is no letter, digit or _.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>$(first-name)</p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>$(first_name)</p></card></wml>)"},
    {R"(wrong escape sequence in variable: {})",
     R"(Behind the colon stands the conversion of the variable: escape, noesc or unesc, or their first letters.)",
     R"(The conversion is mistyped.)",
     R"~(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><a href="x?n=$(name:esc)">go</a></p></card></wml>)~",
     R"~(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><a href="x?n=$(name:escape)">go</a></p></card></wml>)~"},
    {R"(Separator: {} not found in {})",
     R"(A variable with a conversion, as $(name:e), has no ) at its end.)",
     R"(The bracket was forgotten.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>$(name:e</p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p>$(name:e)</p></card></wml>)"},
    {R"(error in Vdata: {})",
     R"(The value of an attribute that may hold variables has a fault in one of them. The rest of the message tells which.)",
     R"(A plain $ was meant, which is written $$, or a bracket is missing.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card title="5 $"><p/></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card title="5 $$"><p/></card></wml>)"},
    {R"(Error in Vdata: {})",
     R"(The same as "error in Vdata", from a value that the table of tokens is applied to.)",
     R"(Nothing an author writes gives it: the attributes of decks have actors of their own.)",
     "",
     ""},
    {R"(error: {})",
     R"(The value of an attribute that may begin with a known text, such as http://, and does not, has a fault in a variable. The rest of the message tells which.)",
     R"(A plain $ was meant, which is written $$, or a bracket is missing.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><a href="page?$">go</a></p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><a href="page?$$">go</a></p></card></wml>)"},
    {R"(error in Cdata: Variable references are not allowed)",
     R"(The value of this attribute is taken as it stands; a variable has no meaning in it.)",
     R"(A variable, or a plain $, which is written $$, stands in the content of meta, in a format or in the domain or path of access.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><head><meta name="price" content="5 $"/></head><card/></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><head><meta name="price" content="5 $$"/></head><card/></wml>)"},
    {R"(error: illegal number in attribute: {})",
     R"(The attribute wants a number of digits alone.)",
     R"(A unit, a sign or a blank stands beside the number.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><input name="n" size="5em"/></p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><input name="n" size="5"/></p></card></wml>)"},
    {R"(error: illegal length in attribute: {})",
     R"(The attribute wants a number of pixels or a number with % behind it.)",
     R"(A unit or a sign stands beside the number.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><img src="a.wbmp" alt="a" width="20px"/></p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><img src="a.wbmp" alt="a" width="20"/></p></card></wml>)"},
    {R"(error: multiple declarations of access elements)",
     R"(A deck has at most one access element in its head.)",
     R"(Several domains were listed; name the one that they share.)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><head><access domain="a.com"/><access domain="b.com"/></head><card/></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><head><access domain="a.com"/></head><card/></wml>)"},
    {R"(The number of columns in a table tag mustnot be set to zero)",
     R"(A table has at least one column.)",
     R"(The attribute columns is "0".)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><table columns="0"><tr><td>a</td></tr></table></p></card></wml>)",
     R"(<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.3//EN" "wml13.dtd">
<wml><card><p><table columns="1"><tr><td>a</td></tr></table></p></card></wml>)"},
    {R"(error: duplicate declaration of do element with same name: {})",
     R"(Two do elements of one card or template have one name.)",
     R"(Nothing an author writes gives it: the check is switched off.)",
     "",
     ""},
    {R"(could not find an XML application for document with public ID {})",
     R"(No encoder is registered for the media type of the document and its public identifier.)",
     R"(Nothing an author writes gives it: the command line offers only media types that have one, and it takes every identifier.)",
     "",
     ""},
    {R"(character conversion failed)",
     R"(A string of the deck could not be converted to the charset of the result.)",
     R"(Nothing an author writes gives it: what the charset does not have becomes a character entity.)",
     "",
     ""},
    {R"(XML application error)",
     R"(An XML application has failed and says no more.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(A director already registered for given media type and public id.)",
     R"(Two applications want the same documents.)",
     R"(Nothing an author writes gives it: a program that extends the library does.)",
     "",
     ""},
    {R"(There is no source.)",
     R"(WMLEncode or WMLSCompile was called with a null pointer or a negative length.)",
     R"(The program that calls has not read the file.)",
     "",
     ""},
    {R"(Out of memory.)",
     R"(There was no memory for the work of a call.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(standard exception: {})",
     R"(An error of the C++ library, mostly for lack of memory, has ended the work of a call.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(undefined exception)",
     R"(An unknown error has ended the work of a call.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(error in Xa: {})",
     R"(An error of the XML applications, whose text follows.)",
     R"(See the rest of the message.)",
     "",
     ""},
    {R"(fatal internal parser error: {})",
     R"(The parser has met a state that no document should lead to.)",
     R"(Nothing an author writes should give it; please report it with the document.)",
     "",
     ""},
    {R"(Could not malloc result buffer for wmlc data.)",
     R"(There was no memory for the result of a call.)",
     R"(Nothing an author writes gives it.)",
     "",
     ""},
    {R"(Charset conversion failed.)",
     R"(A script could not be converted to UTF-8; the line in front tells why.)",
     R"(The charset that the caller has named is not that of the script.)",
     "",
     ""},
};
// clang-format on

}  // namespace

std::span<const CliMessageRow> deckMessages() {
    return theDeckMessages;
}

}  // namespace lumnis
