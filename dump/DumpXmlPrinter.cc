#include <algorithm>
#include <vector>

#include "CpsAscii.h"
#include "DumpPrinter.h"
#include "DumpVocabulary.h"

namespace lumnis {

namespace {

constexpr std::size_t theIndentationShown = 32;

// A name from a string table can have any bytes; "_" stands for each that no XML name has.
std::string xmlName(std::string_view theName) {
    std::string result;
    for (const char c : theName) {
        const bool isFirst = result.empty();
        const bool isStart =
            isAsciiLetter(c) || static_cast<unsigned char>(c) >= 0x80 || c == '_' || c == ':';
        const bool isFurther = isAsciiDigit(c) || c == '-' || c == '.';
        result += isStart || (isFurther && !isFirst) ? c : '_';
    }
    return result;
}

std::string characterReference(std::uint32_t theCode) {
    return "&#" + std::to_string(theCode) + ";";
}

// Dollars begin variables in WML and are doubled there.
std::string escaped(std::string_view theText, bool theIsAttribute, bool theDoublesDollars) {
    std::string result;
    for (const char c : theText) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else if (c == '"' && theIsAttribute) {
            result += "&quot;";
        } else if (c == '$' && theDoublesDollars) {
            result += "$$";
        } else if ((byte < 0x20 && (theIsAttribute || (c != '\t' && c != '\n'))) || c == 0x7F) {
            // The parser would make blanks and line feeds of white space.
            result += characterReference(byte);
        } else {
            result += c;
        }
    }
    return result;
}

// Whether the encoder would change the white space of theText, were it not in a CDATA section: it
// makes one blank of each run, within "pre" of those at both ends alone.
bool needsCdata(std::string_view theText, bool theIsPreserved) {
    const auto isRunStart = [&](std::size_t i) {
        return isXmlSpace(theText[i]) &&
               (theText[i] != ' ' || (i + 1 < theText.size() && isXmlSpace(theText[i + 1])));
    };
    if (theIsPreserved) {
        const std::size_t last = theText.size() - 1;
        return isRunStart(0) || isRunStart(last) ||
               (last > 0 && isXmlSpace(theText[last]) && isXmlSpace(theText[last - 1]));
    }
    for (std::size_t i = 0; i < theText.size(); ++i) {
        if (isRunStart(i)) {
            return true;
        }
    }
    return false;
}

std::string cdataSection(std::string_view theText) {
    std::string result = "<![CDATA[";
    for (;;) {
        const std::size_t end = theText.find("]]>");
        result += theText.substr(0, end == std::string_view::npos ? end : end + 2);
        if (end == std::string_view::npos) {
            return result + "]]>";
        }
        result += "]]><![CDATA[";
        theText.remove_prefix(end + 2);
    }
}

class XmlWriter {
  public:
    explicit XmlWriter(const DumpListing& theListing) : listingM(theListing) {
        const DumpPublicId* const known = findPublicId(std::string_view(listingM.publicId));
        hasDtdM = known != nullptr && known->isWml;
    }

    std::string run();

  private:
    // What the text of a value is written into.
    enum class Place { content, attribute, instruction };

    void doctype(std::string_view theRoot);
    void write(const DumpPiece& thePiece);
    void startTag(const DumpPiece& thePiece);
    void finishTag(bool theHasContent);
    void endTag(const DumpPiece& thePiece);
    void attribute(const DumpPiece& thePiece);
    void closeAttribute();
    void text(std::string_view theText);
    void instructionText(std::string_view theText);
    void variable(const DumpPiece& thePiece);
    void entity(const DumpPiece& thePiece);
    void newLine(std::size_t theDepth);
    // Whether white space may be put between the tags inside of the element at hand.
    bool isBreakable() const {
        return hasDtdM && !openM.empty() && hasElementContent(openM.back());
    }

    const DumpListing& listingM;
    std::string outputM;
    std::vector<std::string_view> openM;  // names of the elements around, in the listing
    std::string_view tagM;                // of the latest start tag
    bool hasDtdM = false;
    bool isAttributeOpenM = false;
    bool isPreservedM = false;    // from an attribute of "pre" to its end, as in the encoder
    bool isDollarPlainM = false;  // in the attribute at hand, which cannot have variables
    bool isEmptyM = false;        // nothing has been written in the element at hand
    bool hasRootM = false;
    Place placeM = Place::content;
};

std::string XmlWriter::run() {
    outputM = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    for (const DumpPiece& piece : listingM.pieces) {
        write(piece);
    }
    return outputM + '\n';
}

void XmlWriter::doctype(std::string_view theRoot) {
    if (listingM.publicId.empty()) {
        return;
    }
    const DumpPublicId* const known = findPublicId(std::string_view(listingM.publicId));
    // What stands in a public identifier is narrow (XML 1.0, [13]).
    std::string id;
    for (const char c : listingM.publicId) {
        const bool isAllowed =
            std::string_view(" -'()+,./:=?;!*#@$_%").find(c) != std::string_view::npos ||
            isAsciiDigit(c) || isAsciiLetter(c);
        id += isAllowed ? c : '_';
    }
    outputM += "<!DOCTYPE " + xmlName(theRoot) + " PUBLIC \"" + id + "\" \"" +
               std::string(known != nullptr ? known->systemId : std::string_view()) + "\">\n";
}

void XmlWriter::write(const DumpPiece& thePiece) {
    switch (thePiece.kind) {
        case DumpKind::tag:
            return startTag(thePiece);
        case DumpKind::attribute:
            return attribute(thePiece);
        case DumpKind::attributesEnd:
            closeAttribute();
            return finishTag(thePiece.hasContent);
        case DumpKind::elementEnd:
            return endTag(thePiece);
        case DumpKind::text:
        case DumpKind::opaque:
            return text(thePiece.text);
        case DumpKind::variable:
            return variable(thePiece);
        case DumpKind::entity:
            return entity(thePiece);
        case DumpKind::extension:
            return text('{' + thePiece.token + (thePiece.text.empty() ? "" : " ") + thePiece.text +
                        '}');
        case DumpKind::pi:
            isEmptyM = false;
            placeM = Place::instruction;
            outputM += "<?" + xmlName(thePiece.name) + ' ';
            return text(thePiece.text);
        case DumpKind::piEnd:
            placeM = Place::content;
            outputM += "?>";
            if (openM.empty() && !hasRootM) {
                outputM += '\n';
            }
            return;
        default:
            return;
    }
}

void XmlWriter::newLine(std::size_t theDepth) {
    outputM += '\n';
    outputM.append(2 * std::min(theDepth, theIndentationShown), ' ');
}

void XmlWriter::startTag(const DumpPiece& thePiece) {
    if (!hasRootM) {
        doctype(thePiece.name);
        hasRootM = true;
    } else if (isBreakable()) {
        newLine(openM.size());
    }
    isEmptyM = false;
    tagM = thePiece.name;
    outputM += '<' + xmlName(thePiece.name);
    if (!thePiece.hasAttributes) {
        finishTag(thePiece.hasContent);
    }
}

void XmlWriter::finishTag(bool theHasContent) {
    placeM = Place::content;
    outputM += theHasContent ? ">" : "/>";
    isPreservedM = isPreservedM && (theHasContent || tagM != "pre");
    if (theHasContent) {
        openM.push_back(tagM);
        isEmptyM = true;
    }
}

void XmlWriter::endTag(const DumpPiece& thePiece) {
    if (isBreakable()) {
        newLine(openM.size() - 1);
    } else if (isEmptyM && hasDtdM && openM.back() != "a" && openM.back() != "pre") {
        // Most elements count as empty unless something stands between their tags.
        outputM += cdataSection({});
    }
    isPreservedM = isPreservedM && openM.back() != "pre";
    openM.pop_back();
    isEmptyM = false;
    outputM += "</" + xmlName(thePiece.name) + '>';
}

void XmlWriter::attribute(const DumpPiece& thePiece) {
    closeAttribute();
    placeM = Place::attribute;
    isAttributeOpenM = true;
    isDollarPlainM = thePiece.name == "class";
    isPreservedM = isPreservedM || (thePiece.name == "xml:space" && thePiece.text == "preserve");
    outputM += ' ' + xmlName(thePiece.name) + "=\"";
    text(thePiece.text);
}

void XmlWriter::closeAttribute() {
    if (isAttributeOpenM) {
        outputM += '"';
        isAttributeOpenM = false;
    }
}

void XmlWriter::text(std::string_view theText) {
    if (theText.empty()) {
        return;
    }
    if (placeM == Place::instruction) {
        instructionText(theText);
        return;
    }
    isEmptyM = isEmptyM && placeM != Place::content;
    const bool isAttribute = placeM == Place::attribute;
    if (!isAttribute && hasDtdM && needsCdata(theText, isPreservedM) &&
        theText.find('\r') == std::string_view::npos) {
        outputM += cdataSection(theText);
    } else {
        outputM +=
            escaped(theText, isAttribute, listingM.isWml && !(isAttribute && isDollarPlainM));
    }
}

// "?>" would end the instruction: a blank parts the two.
void XmlWriter::instructionText(std::string_view theText) {
    for (std::size_t i = 0; i < theText.size(); ++i) {
        outputM += theText[i];
        const bool isLast = i + 1 == theText.size();
        if (theText[i] == '?' && (isLast || theText[i + 1] == '>')) {
            outputM += ' ';
        }
    }
}

// In content a variable without conversion is one that is taken as it is; in an attribute that
// depends on the attribute. Names that begin with a digit have long conversions alone.
void XmlWriter::variable(const DumpPiece& thePiece) {
    isEmptyM = isEmptyM && placeM != Place::content;
    const bool isNumbered = !thePiece.name.empty() && isAsciiDigit(thePiece.name[0]);
    std::string conversion = thePiece.text;
    if (isNumbered) {
        conversion = conversion == "e" ? "escape" : conversion == "u" ? "unesc" : "noesc";
    } else if (placeM == Place::content && conversion == "n") {
        conversion.clear();
    }
    outputM += "$(" + escaped(thePiece.name, placeM == Place::attribute, false) +
               (conversion.empty() ? "" : ":") + conversion + ')';
}

void XmlWriter::entity(const DumpPiece& thePiece) {
    isEmptyM = isEmptyM && placeM != Place::content;
    outputM += characterReference(thePiece.value);
}

}  // namespace

std::string printDumpXml(const DumpListing& theListing) {
    return XmlWriter(theListing).run();
}

}  // namespace lumnis
