#include "CompileCommand.h"

#include <CLI/CLI.hpp>
#include <sstream>
#include <utility>

#include "CliCharset.h"
#include "CliDiagnostics.h"
#include "CliHelp.h"
#include "WmlsCompileDriver.h"
#include "WscWmlScriptCompiler.h"

namespace lumnis {

namespace {

constexpr char theCompileExamples[] =
    "Examples:\n"
    "  lumnis compile hello.wmls                writes hello.wmlsc\n"
    "  lumnis compile -o out/ -j 4 src/*.wmls   writes out/NAME.wmlsc for each\n"
    "  lumnis compile --listing - hello.wmls    shows the code as well\n"
    "  generate | lumnis compile - > it.wmlsc   reads standard input, writes standard output\n";

}  // namespace

void CompileCommand::addTo(CLI::App& theApp) {
    CLI::App* const verb = theApp.add_subcommand("compile", "Compile WMLScript to byte code");
    verb->group("Verbs");
    verb->formatter(helpWithExamples(theCompileExamples));
    verb->add_option("FILE", batchM.inputs, "Scripts to compile; - reads standard input")
        ->required()
        ->option_text(" ");
    verb->add_option("-o,--output", batchM.output,
                     "The result: a file, - for standard output, or a folder (one\n"
                     "that exists, or a name that ends in /); without it\n"
                     "hello.wmls gives hello.wmlsc beside it")
        ->option_text("PATH");
    verb->add_option("--charset", charsetsM,
                     "A charset that the handset accepts; repeat it, the most\n"
                     "wanted first: the first that has all characters is taken;\n"
                     "without it UTF-8; \"lumnis charsets\" lists the names")
        ->option_text("NAME")
        ->allow_extra_args(false);
    verb->add_option("--input-charset", inputCharsetM,
                     "The charset of the scripts; without it UTF-8")
        ->option_text("NAME");
    verb->add_flag("--no-optimize", isUnoptimizedM, "Do not run the peephole optimizer");
    verb->add_flag("--debug", isDebugM, "Put a DEBUG instruction in front of each statement");
    verb->add_option("--listing", listingM, "Write the code as an assembly listing; - prints it")
        ->option_text("PATH");
    verb->add_option("--tree", treeM,
                     "Write the syntax tree, and print a second copy of it;\n"
                     "- prints it once")
        ->option_text("PATH");
    verb->add_flag("--pragmas", hasPragmaReportM,
                   "Print the meta pragmas, which are not in the byte code");
    addBatchOptions(*verb, "scripts", batchM, errorFormatM);
}

CliExit CompileCommand::run() const {
    std::vector<HedCharsetId> charsets;
    for (const std::string& name : charsetsM) {
        charsets.push_back(charsetByName("--charset", name));
    }
    const HedCharsetId inputCharset = charsetByName("--input-charset", inputCharsetM);
    CliBatchOptions batch = batchM;
    batch.extension = ".wmlsc";
    batch.sideOutputs = {{"--listing", listingM}, {"--tree", treeM}};
    batch.errorFormat = errorFormatByName(errorFormatM);
    return runBatch(batch, [&](const std::string& theName, const CpsString& theSource) {
        CpsString source(theSource);
        std::string message;
        if (!convertSource(source, inputCharset, message)) {
            CliBatchResult result;
            result.diagnostics.push_back(sourceDiagnostic(theName, message, source, {}));
            return result;
        }
        return compile(theName, source, charsets);
    });
}

CliBatchResult CompileCommand::compile(const std::string& theName, const CpsString& theSource,
                                       const std::vector<HedCharsetId>& theCharsets) const {
    std::ostringstream listing;
    std::ostringstream tree;
    std::ostringstream console;
    WscWmlScriptCompiler compiler;
    for (const HedCharsetId charset : theCharsets) {
        compiler.setAcceptCharacterSet(static_cast<unsigned>(charset));
    }
    compiler.setOptimizeMode(!isUnoptimizedM);
    compiler.setDebugMode(isDebugM);
    compiler.setAssemblyStream(listingM.empty() ? nullptr : &listing);
    compiler.setParseTreeStream(treeM.empty() ? nullptr : &tree);
    compiler.setConsoleStream(console);

    CliBatchResult result;
    result.isGood = compiler.compile(&theSource) == 1;
    if (!result.isGood) {
        // All errors stand in the library's one text, which goes with the first.
        std::string rawText(WmlsCompileDriver::errorText(compiler).view());
        rawText += '\n';
        for (unsigned i = 0; i < compiler.getNumErrors(); ++i) {
            CpsString message;
            compiler.getErrorMessage(i, message);
            result.diagnostics.push_back(sourceDiagnostic(theName, message, theSource,
                                                          std::exchange(rawText, std::string())));
        }
        return result;
    }
    result.product = compiler.getByteCode()->view();
    if (isStandardOutput(treeM)) {
        console.str({});  // the copy is there already
    }
    if (hasPragmaReportM) {
        WmlsCompileDriver::writePragmaReport(compiler, console);
    }
    result.report = console.str();
    result.sideTexts = {listing.str(), tree.str()};
    return result;
}

}  // namespace lumnis
