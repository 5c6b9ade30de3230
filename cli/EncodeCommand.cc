#include "EncodeCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>

#include "CliCharset.h"
#include "CliDiagnostics.h"
#include "CliError.h"
#include "CliHelp.h"
#include "CliSuggestion.h"
#include "CliXmlNotes.h"
#include "CliXmlSource.h"
#include "CpsAscii.h"
#include "HedCharsetMap.h"
#include "HedMediaTypeMap.h"
#include "PrintableText.h"
#include "WmlEncodeDriver.h"

namespace lumnis {

namespace {

constexpr char theEncodeExamples[] =
    "Examples:\n"
    "  lumnis encode news.wml                   writes news.wmlc\n"
    "  lumnis encode -o out/ -j 4 decks/*.wml   writes out/NAME.wmlc for each\n"
    "  lumnis encode -o - news.wml | od -tx1    shows the bytes\n"
    "  generate | lumnis encode - > it.wmlc     reads standard input, writes standard output\n";

// Of the WSP content type table; an application is registered for each.
constexpr int theApplicationXml = 39;
constexpr int theTextXml = 40;
constexpr std::array theMediaTypes = {WmlDirector::theWmlMediaType, WmlDirector::theWtaWmlMediaType,
                                      theTextXml, theApplicationXml};

int mediaTypeByName(const std::string& theName) {
    const int number = HedMediaTypeMap::instance().getNumber(theName);
    if (std::find(theMediaTypes.begin(), theMediaTypes.end(), number) != theMediaTypes.end()) {
        return number;
    }
    std::string known;
    for (const std::string_view each : EncodeCommand::mediaTypes()) {
        known += (known.empty() ? "" : ", ") + std::string(each);
    }
    throw CliUsageError("--media-type: \"" + visibleText(theName) +
                        "\" is not supported; those that are: " + known +
                        suggestion(theName, EncodeCommand::mediaTypes()));
}

// The rule of the help text. theDocument is UTF-8.
int mediaTypeOf(const std::string& theName, std::string_view theDocument) {
    std::string extension = std::filesystem::path(theName).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), asciiLower);
    if (extension.starts_with(".wta") || rootElementName(theDocument) == "wta-wml") {
        return WmlDirector::theWtaWmlMediaType;
    }
    return extension == ".xml" ? theTextXml : WmlDirector::theWmlMediaType;
}

CliBatchResult refusal(const std::string& theName, std::string theMessage) {
    CliBatchResult result;
    result.diagnostics.push_back(fileDiagnostic(theName, std::move(theMessage)));
    return result;
}

CliBatchResult refusal(const std::string& theName, const CliTextFault& theFault,
                       std::string_view theSource) {
    CliBatchResult result = refusal(theName, theFault.message);
    result.diagnostics[0].line = theFault.line;
    result.diagnostics[0].sourceLine = sourceLineAt(theSource, theFault.line);
    return result;
}

// The failure of theDriver's latest encoding.
CliBatchResult refusal(const std::string& theName, const WmlEncodeDriver& theDriver,
                       WmlEncodeDriver::Outcome theOutcome, std::string_view theSource) {
    if (theOutcome == WmlEncodeDriver::Outcome::NOT_CONVERTIBLE) {
        return refusal(theName, "cannot be converted to UTF-8: " +
                                    std::string(theDriver.getErrorMessage().view()));
    }
    std::string_view message = theDriver.getErrorMessage();
    message = message.substr(0, message.find_last_not_of("\r\n") + 1);  // some end their line
    if (message.empty()) {
        message = "cannot be encoded";
    }
    const CliTextFault fault{std::string(message), static_cast<int>(theDriver.getErrorLine())};
    CliBatchResult result =
        fault.line == 0 ? refusal(theName, fault.message) : refusal(theName, fault, theSource);
    CliDiagnostic& diagnostic = result.diagnostics[0];
    diagnostic.rawText = theDriver.getErrorText().view();
    diagnostic.note = xmlNote(diagnostic.message, diagnostic.sourceLine);
    return result;
}

}  // namespace

std::vector<std::string_view> EncodeCommand::mediaTypes() {
    std::vector<std::string_view> result;
    for (const int number : theMediaTypes) {
        for (const HedNameRow& row : HedMediaTypeMap::instance().numbers()) {
            if (row.number == number) {
                result.push_back(row.name);
            }
        }
    }
    return result;
}

void EncodeCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb =
        theApp.add_subcommand("encode", "Encode WML decks and other XML to WBXML");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theEncodeExamples));
    verb->add_option("FILE", batchM.inputs, "Documents to encode; - reads standard input")
        ->required()
        ->option_text(" ");
    verb->add_option("-o,--output", batchM.output,
                     "The result: a file, - for standard output, or a folder (one\n"
                     "that exists, or a name that ends in /); without it\n"
                     "news.wml gives news.wmlc beside it")
        ->option_text("PATH");
    verb->add_option("--media-type", mediaTypeM,
                     "What the documents are: text/vnd.wap.wml,\n"
                     "text/x-wap-wta-wml, text/xml or application/xml (both any\n"
                     "XML, which is not validated). Without it, for each file, the\n"
                     "first that fits: text/x-wap-wta-wml for a root element\n"
                     "wta-wml or an extension that begins with .wta; text/xml for\n"
                     "the extension .xml; text/vnd.wap.wml")
        ->option_text("NAME");
    verb->add_option("--charset", charsetM,
                     "The charset of the strings in the result; without it UTF-8;\n"
                     "\"lumnis charsets\" lists the names")
        ->option_text("NAME");
    verb->add_option("--input-charset", inputCharsetM,
                     "The charset of the documents; without it what the byte order\n"
                     "mark tells, else the XML declaration, else UTF-8")
        ->option_text("NAME");
    verb->add_flag("--meta", hasMetaReportM,
                   "Print the meta data for the transport (http-equiv), which is\n"
                   "not in the result: NAME: CONTENT, preceded by FILE: if there\n"
                   "are several files; on standard error if the result goes to\n"
                   "standard output");
    addBatchOptions(*verb, "documents", batchM, errorFormatM);
}

EncodeCommand::Settings EncodeCommand::settings() const {
    Settings result;
    if (mediaTypeM) {
        result.mediaType = mediaTypeByName(*mediaTypeM);
    }
    if (inputCharsetM) {
        result.inputCharset = charsetByName("--input-charset", *inputCharsetM);
    }
    const HedCharsetId charset = charsetByName("--charset", charsetM);
    result.outputCharset = HedCharsetMap::instance().getName(charset);
    if (result.outputCharset.empty()) {
        throw CliUsageError("--charset: charset \"" + visibleText(charsetM) + "\" has no name");
    }
    return result;
}

CliExit EncodeCommand::run() const {
    const Settings settings = this->settings();
    CliBatchOptions batch = batchM;
    batch.extension = ".wmlc";
    batch.errorFormat = errorFormatByName(errorFormatM);
    return runBatch(batch, [&](const std::string& theName, const CpsString& theSource) {
        return encode(theName, theSource, settings);
    });
}

CliBatchResult EncodeCommand::encode(const std::string& theName, const CpsString& theSource,
                                     const Settings& theSettings) const {
    if (theSource.empty()) {
        return refusal(theName, "the file is empty");
    }
    CpsString document(theSource);
    if (theSettings.inputCharset) {
        std::string message;
        if (!convertSource(document, *theSettings.inputCharset, message)) {
            return refusal(theName, message);
        }
    } else if (const auto fault = convertXmlSource(document)) {
        return refusal(theName, *fault, document);
    }
    if (auto fault = findBadUtf8(document)) {
        fault->message += ", or --input-charset";
        return refusal(theName, *fault, document);
    }

    WmlEncodeDriver driver;
    driver.setInputCharset("UTF-8");
    driver.setOutputCharset(theSettings.outputCharset);
    driver.setMediaType(theSettings.mediaType ? *theSettings.mediaType
                                              : mediaTypeOf(theName, document));
    const WmlEncodeDriver::Outcome outcome = driver.encode(document);
    if (outcome != WmlEncodeDriver::Outcome::ENCODED) {
        return refusal(theName, driver, outcome, document);
    }
    CliBatchResult result;
    result.isGood = true;
    result.product = driver.getOutput().view();
    if (hasMetaReportM) {
        result.report = metaReport(theName, driver);
    }
    return result;
}

std::string EncodeCommand::metaReport(const std::string& theName,
                                      const WmlEncodeDriver& theDriver) const {
    const std::string prefix = batchM.inputs.size() > 1 ? visibleText(theName) + ": " : "";
    std::string report;
    for (const XaMetaData& entry : theDriver.getRunOutput()->getMetaDataList()) {
        report += prefix + visibleText(entry.getHttpEquiv()) + ": " +
                  visibleText(entry.getContent()) + "\n";
    }
    return report;
}

}  // namespace lumnis
