#include "CheckCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <utility>

#include "CliDiagnostics.h"
#include "CliError.h"
#include "CliHelp.h"
#include "CliInput.h"
#include "CliXmlNotes.h"
#include "CliXmlSource.h"
#include "DocumentChecker.h"
#include "FolderEntityResolver.h"

namespace lumnis {

namespace {

constexpr char theCheckExamples[] =
    "Examples:\n"
    "  lumnis check feed.xml                    prints nothing if it is valid\n"
    "  lumnis check --dtd wml.dtd news.wml      validates against the DTD of a file\n"
    "  lumnis check --nonvalidating feed.xml    only whether it is well-formed\n"
    "  lumnis check --events feed.xml           shows what the parser finds\n";

CliDiagnostic diagnosticOf(const std::string& theName, std::string theMessage, int theLine,
                           std::string_view theText) {
    CliDiagnostic result = fileDiagnostic(theName, std::move(theMessage));
    result.line = theLine;
    result.sourceLine = sourceLineAt(theText, theLine);
    return result;
}

CliDiagnostic diagnosticOf(const std::string& theName, const CliTextFault& theFault,
                           std::string_view theText) {
    return diagnosticOf(theName, theFault.message, theFault.line, theText);
}

CliDiagnostic diagnosticOf(const std::string& theName, const DocumentChecker::Fault& theFault,
                           std::string_view theText) {
    CliDiagnostic result = diagnosticOf(theName, std::string(theFault.message.view()),
                                        static_cast<int>(theFault.line), theText);
    result.note = xmlNote(result.message, result.sourceLine);
    return result;
}

}  // namespace

void CheckCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb = theApp.add_subcommand("check", "Parse and validate XML documents");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theCheckExamples));
    verb->add_option("FILE", batchM.inputs, "Documents to check; - reads standard input")
        ->required()
        ->option_text(" ");
    CLI::Option* const dtd =
        verb->add_option("--dtd", dtdM,
                         "Validate against the DTD in this file; without it against\n"
                         "what the documents declare themselves")
            ->option_text("FILE");
    verb->add_flag("--nonvalidating", isNonvalidatingM,
                   "Do not validate: what a document uses is taken as declared;\n"
                   "not with --dtd")
        ->excludes(dtd)
        ->option_text(" ");
    verb->add_flag("--external", isExternalM,
                   "Read external subsets and entities, from files in the folder of\n"
                   "the document and below it; without it nothing else is read");
    verb->add_flag("--events", hasEventsM,
                   "Print what the parser finds, one event per line, up to the\n"
                   "first error; none of the content where --external has read\n"
                   "a complete DTD and the document has no internal subset");
    addQuietOption(*verb, batchM);
}

CliExit CheckCommand::run() const {
    if (dtdM == "-" && std::count(batchM.inputs.begin(), batchM.inputs.end(), "-") > 0) {
        throw CliUsageError("\"-\", standard input, can be read only once");
    }
    std::ostringstream events;
    DocumentChecker checker(hasEventsM ? &events : nullptr);
    checker.setNonvalidating(isNonvalidatingM);
    if (!dtdM.empty()) {
        const CliExit exit = loadDtd(checker);
        if (exit != CliExit::success) {
            return exit;
        }
    }
    // One at a time: the checker holds the DTD for all.
    return runBatch(batchM, [&](const std::string& theName, const CpsString& theSource) {
        events.str({});
        CliBatchResult result = check(theName, theSource, checker);
        result.report = events.str();
        return result;
    });
}

CliExit CheckCommand::loadDtd(DocumentChecker& theChecker) const {
    const std::string name = inputName(dtdM);
    CliDiagnostic diagnostic;
    CliExit exit = CliExit::refused;
    try {
        CpsString text = readInput(dtdM);
        if (const auto textFault = convertXmlSource(text)) {
            diagnostic = diagnosticOf(name, *textFault, text);
        } else if (const auto fault = theChecker.setDtd(text)) {
            diagnostic = diagnosticOf(name, *fault, text);
        } else {
            return CliExit::success;
        }
    } catch (const CliFileError& error) {
        diagnostic = fileDiagnostic(error.getPath(), error.what());
        exit = CliExit::failed;
    } catch (const std::exception& error) {
        diagnostic = fileDiagnostic(name, describeException(error));
    }
    printDiagnostic(diagnostic, errorForm(batchM));
    return exit;
}

CliBatchResult CheckCommand::check(const std::string& theName, const CpsString& theSource,
                                   DocumentChecker& theChecker) const {
    CliBatchResult result;
    CpsString document(theSource);
    if (const auto fault = convertXmlSource(document)) {
        result.diagnostics.push_back(diagnosticOf(theName, *fault, document));
        return result;
    }
    std::optional<FolderEntityResolver> resolver;
    if (isExternalM) {
        resolver.emplace(std::filesystem::path(theName).parent_path());
    }
    if (const auto fault = theChecker.check(document, resolver ? &*resolver : nullptr)) {
        result.diagnostics.push_back(diagnosticOf(theName, *fault, document));
    } else if (const auto textFault = findBadUtf8(document)) {
        // The parser looks at the characters of markup alone.
        result.diagnostics.push_back(diagnosticOf(theName, *textFault, document));
    }
    result.isGood = result.diagnostics.empty();
    return result;
}

}  // namespace lumnis
