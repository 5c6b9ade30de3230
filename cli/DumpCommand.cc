#include "DumpCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>

#include "CliDiagnostics.h"
#include "CliError.h"
#include "CliHelp.h"
#include "CliInput.h"
#include "CliOutput.h"
#include "DumpPrinter.h"
#include "DumpReader.h"

namespace lumnis {

namespace {

constexpr char theDumpExamples[] =
    "Examples:\n"
    "  lumnis dump deck.wmlc                shows bytes, tokens and markup side by side\n"
    "  lumnis dump --xml deck.wmlc          decodes a deck back to WML\n"
    "  lumnis dump hello.wmlsc              lists functions, constants and code\n";

void report(const std::string& theName, const std::string& theMessage) {
    printDiagnostic(fileDiagnostic(theName, theMessage), CliErrorFormat::gcc);
}

std::string faultText(const DumpFault& theFault) {
    char place[40];
    std::snprintf(place, sizeof place, "offset 0x%X: ", static_cast<unsigned>(theFault.offset));
    return place + theFault.message;
}

}  // namespace

void DumpCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb =
        theApp.add_subcommand("dump", "Show WBXML or byte code as text, markup or JSON");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theDumpExamples));
    verb->add_option("FILE", inputM, "A compiled deck or script; - reads standard input")
        ->required()
        ->option_text(" ");
    verb->add_option("-o,--output", outputM, "Where to write; without it standard output")
        ->option_text("PATH");
    verb->add_option("--format", formatM, "wbxml or script; without it the content of FILE decides")
        ->option_text("FORMAT")
        ->check(oneOf({"wbxml", "script"}));
    CLI::Option* const xml =
        verb->add_flag("--xml", isXmlM,
                       "Write the markup alone, in UTF-8: a deck becomes WML again")
            ->option_text(" ");
    verb->add_flag("--json", isJsonM, "Write one JSON object, for tools; not with --xml")
        ->excludes(xml)
        ->option_text(" ");
}

CliExit DumpCommand::run() const {
    try {
        const CpsString file = readInput(inputM);
        std::optional<DumpFormat> format;
        if (!formatM.empty()) {
            format = formatM == "wbxml" ? DumpFormat::wbxml : DumpFormat::script;
        }
        const DumpListing listing = readDump(file, format);
        const bool isScript = listing.format == DumpFormat::script;
        const std::string name = inputName(inputM);
        if (isXmlM && isScript && !listing.fault) {
            report(name, "this is byte code, and --xml is for WBXML");
            return CliExit::refused;
        }
        // Half a document helps nobody; the other forms tell how far the file is good.
        if (!isXmlM || !listing.fault) {
            const std::string text = isXmlM    ? printDumpXml(listing)
                                     : isJsonM ? printDumpJson(listing, file)
                                               : printDumpText(listing, file);
            if (outputM == "-") {
                writeDescriptor(STDOUT_FILENO, text, "standard output");
            } else {
                writeOutput(outputM, text);
            }
        }
        if (listing.fault) {
            report(name, faultText(*listing.fault));
            return CliExit::refused;
        }
    } catch (const CliFileError& error) {
        report(error.getPath(), error.what());
        return CliExit::failed;
    }
    return CliExit::success;
}

}  // namespace lumnis
