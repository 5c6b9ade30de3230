#include "ScriptProperties.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "ByteCodeCheck.h"
#include "CpsString.h"
#include "DumpPrinter.h"
#include "DumpReader.h"
#include "WscWmlScriptCompiler.h"
#include "lumnisutil.h"

namespace lumnis::fuzz {

namespace {

// Bytes or the message of the one error.
struct Outcome {
    bool hasCompiled = false;
    std::string text;

    bool operator==(const Outcome& theOther) const = default;
};

// While it lives, nothing may arrive at standard output.
class SilentOutput {
  public:
    SilentOutput() : realM(std::cout.rdbuf(noticedM.rdbuf())) {}
    ~SilentOutput() {
        std::cout.rdbuf(realM);
        require(noticedM.str().empty(), "nothing goes to standard output");
    }
    SilentOutput(const SilentOutput&) = delete;
    SilentOutput& operator=(const SilentOutput&) = delete;

  private:
    std::ostringstream noticedM;
    std::streambuf* realM;
};

// "Error at line: N. \r\n" and a message, N a line of the source.
void checkMessage(std::string_view theMessage, std::string_view theSource) {
    constexpr std::string_view start = "Error at line: ";
    constexpr std::string_view behind = ". \r\n";
    require(theMessage.starts_with(start), "a message begins with its line");
    theMessage.remove_prefix(start.size());
    long line = 0;
    const auto number =
        std::from_chars(theMessage.data(), theMessage.data() + theMessage.size(), line);
    theMessage.remove_prefix(static_cast<std::size_t>(number.ptr - theMessage.data()));
    require(theMessage.starts_with(behind) && theMessage.size() > behind.size(),
            "a message follows the line");
    require(line >= 1 && line <= 1 + std::count(theSource.begin(), theSource.end(), '\n'),
            "the line of a message exists");
}

// The dump knows the file for what it is, and its pieces cover it.
void checkReadBack(std::string_view theFile) {
    const DumpListing listing = readDump(theFile, std::nullopt);
    require(!listing.fault && listing.format == DumpFormat::script, "dump reads the file back");
    std::size_t covered = 0;
    for (const DumpPiece& piece : listing.pieces) {
        require(piece.offset == covered, "the pieces of the dump follow each other");
        covered += piece.length;
    }
    require(covered == theFile.size(), "the pieces of the dump cover the file");
}

Outcome compile(WscWmlScriptCompiler& theCompiler, std::string_view theSource) {
    const CpsString source(theSource);
    const bool hasCompiled = theCompiler.compile(&source) == 1;
    const CpsString& file = *theCompiler.getByteCode();
    require(theCompiler.getByteCodeSize() == file.length(), "the size is that of the file");
    require(theCompiler.getNumErrors() == (hasCompiled ? 0 : 1), "a failure has one error");
    if (hasCompiled) {
        const char* fault = findByteCodeFault(file.view());
        require(fault == nullptr, fault == nullptr ? "" : fault);
        return {true, std::string(file.view())};
    }
    require(file.empty(), "a failure has no file");
    require(theCompiler.getErrorCode(0) == 0, "an error is the script's");
    CpsString message;
    theCompiler.getErrorMessage(0, message);
    checkMessage(message, theSource);
    return {false, std::string(message.view())};
}

// The same through the export. A file of 65535 bytes or more is refused there, without a text.
void checkExport(std::string_view theSource, const Outcome& theExpected) {
    char* bytes = nullptr;
    char* text = nullptr;
    unsigned short length = 0;
    const int result =
        WMLSCompile(theSource.data(), static_cast<int>(theSource.size()), &bytes, &length, &text);
    const std::unique_ptr<char, decltype(&std::free)> bytesOwner(bytes, std::free);
    const std::unique_ptr<char, decltype(&std::free)> textOwner(text, std::free);
    if (theExpected.hasCompiled) {
        const std::string& file = theExpected.text;
        require((result == 0) == (file.size() <= 65534), "the export takes 65534 bytes");
        require(text == nullptr, "a success has no text");
        require(result != 0 || std::string_view(bytes, length) == file,
                "the export gives the facade's file");
        return;
    }
    require(result == 1 && bytes == nullptr && length == 0, "a failure has a text alone");
    require(text != nullptr &&
                std::string_view(text) ==
                    std::string_view(("\nCompilation error: \n" + theExpected.text + "\n").c_str()),
            "the export gives the facade's message");
}

bool isJumpFault(const Outcome& theOutcome) {
    return theOutcome.text.ends_with("too long jump range (>65535)");
}

void checkStreams(std::string_view theSource, unsigned theOptions, const Outcome& thePlain) {
    std::ostringstream listing;
    std::ostringstream tree;
    std::ostringstream console;
    WscWmlScriptCompiler compiler;
    compiler.setDebugMode((theOptions & theDebugMode) != 0);
    if ((theOptions & theListing) != 0) {
        compiler.setAssemblyStream(&listing);
    }
    if ((theOptions & theTreeDump) != 0) {
        compiler.setParseTreeStream(&tree);
        compiler.setConsoleStream(console);
    }
    const Outcome outcome = compile(compiler, theSource);
    // Debug mode makes functions longer, and so can bring the fault of a long jump alone.
    if ((theOptions & theDebugMode) == 0) {
        require(outcome == thePlain, "streams do not change the result");
    } else if (!isJumpFault(outcome)) {
        require(outcome.hasCompiled == thePlain.hasCompiled, "debug mode does not change verdicts");
        require(outcome.hasCompiled || outcome == thePlain, "debug mode does not change messages");
    }
    require(!outcome.hasCompiled || (theOptions & theListing) == 0 || !listing.str().empty(),
            "a success has a listing");
    require(tree.str().empty() == (!outcome.hasCompiled || (theOptions & theTreeDump) == 0),
            "a success has a tree dump");
}

}  // namespace

void require(bool isTrue, std::string_view theProperty) {
    if (!isTrue) {
        std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(theProperty.size()),
                     theProperty.data());
        std::abort();
    }
}

void checkScript(std::string_view theSource, unsigned theOptions) {
    const SilentOutput silent;
    WscWmlScriptCompiler compiler;
    const Outcome outcome = compile(compiler, theSource);
    checkExport(theSource, outcome);
    if (outcome.hasCompiled && theSource.find('\0') == std::string_view::npos) {
        checkReadBack(outcome.text);
    }

    compiler.setOptimizeMode(false);
    const Outcome unoptimized = compile(compiler, theSource);
    if (!isJumpFault(unoptimized)) {
        require(outcome.hasCompiled == unoptimized.hasCompiled, "the optimizer changes no verdict");
        require(outcome.hasCompiled || outcome == unoptimized, "the optimizer changes no message");
    }
    require(!outcome.hasCompiled || !unoptimized.hasCompiled ||
                outcome.text.size() <= unoptimized.text.size(),
            "the optimizer makes no file longer");

    compiler.setOptimizeMode(true);
    require(compile(compiler, theSource) == outcome, "the same source gives the same result");
    if ((theOptions & (theDebugMode | theListing | theTreeDump)) != 0) {
        checkStreams(theSource, theOptions, outcome);
    }
}

}  // namespace lumnis::fuzz
