#include "XmlPeers.h"

#include <expat.h>
#include <libxml/parser.h>
#include <libxml/valid.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "WmlDtd.h"

namespace lumnis::bench {
namespace {

xmlDtdPtr parseDtd() {
    const int length = static_cast<int>(std::string_view(theWmlDtd).size());
    xmlParserInputBufferPtr input =
        xmlParserInputBufferCreateMem(theWmlDtd, length, XML_CHAR_ENCODING_UTF8);
    xmlDtdPtr dtd = xmlIOParseDTD(nullptr, input, XML_CHAR_ENCODING_UTF8);
    if (dtd == nullptr) {
        refuse("libxml2", "the DTD");
    }
    return dtd;
}

void parseWithExpat(const std::string& theDocument, bool hasHandlers) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    if (hasHandlers) {
        XML_SetElementHandler(
            parser, [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
        XML_SetCharacterDataHandler(parser, [](void*, const XML_Char*, int) {});
    }
    const int length = static_cast<int>(theDocument.size());
    if (XML_Parse(parser, theDocument.data(), length, 1) != XML_STATUS_OK) {
        refuse("expat", XML_ErrorString(XML_GetErrorCode(parser)));
    }
    XML_ParserFree(parser);
}

}  // namespace

void refuse(const char* theWho, const char* theWhat) {
    std::fprintf(stderr, "%s refuses the input: %s\n", theWho, theWhat);
    std::exit(1);
}

void readDtdWithLibxml2(const std::string&) {
    xmlFreeDtd(parseDtd());
}

void validateWithLibxml2(const std::string& theDocument) {
    static const xmlDtdPtr theDtd = parseDtd();
    xmlDocPtr document = xmlReadMemory(theDocument.data(), static_cast<int>(theDocument.size()),
                                       nullptr, nullptr, XML_PARSE_NONET);
    xmlValidCtxtPtr context = xmlNewValidCtxt();
    if (document == nullptr || xmlValidateDtd(context, document, theDtd) != 1) {
        refuse("libxml2", "the deck");
    }
    xmlFreeValidCtxt(context);
    xmlFreeDoc(document);
}

void readWithLibxml2(const std::string& theDocument) {
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int,
                                const xmlChar**, int, int, const xmlChar**) {};
    handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters = [](void*, const xmlChar*, int) {};
    if (xmlSAXUserParseMemory(&handler, nullptr, theDocument.data(),
                              static_cast<int>(theDocument.size())) != 0) {
        refuse("libxml2", "the deck");
    }
}

void readWithExpat(const std::string& theDocument) {
    parseWithExpat(theDocument, true);
}

void readWithBareExpat(const std::string& theDocument) {
    parseWithExpat(theDocument, false);
}

}  // namespace lumnis::bench
