// The one class through which the rest of the system compiles WMLScript: options in, one
// compilation from source text to byte-code file, questions about the result afterwards.
//
// The byte-code file is that of the WMLScript standard, version 1.1, chapter "WMLScript
// Binary Format".
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <vector>

#include "CpsString.h"

namespace lumnis {

class WscCompilerData;
class WscParser;
class WscPragmaMeta;
class WscSimpleNode;

class WscWmlScriptCompiler {
  public:
    WscWmlScriptCompiler();
    WscWmlScriptCompiler(const WscWmlScriptCompiler&) = delete;
    WscWmlScriptCompiler& operator=(const WscWmlScriptCompiler&) = delete;
    virtual ~WscWmlScriptCompiler();

    // Options, to be set before compile. They hold for every later run.

    // Adds a charset (MIBenum number) that the output may have, the most wanted first. With none
    // the output is UTF-8. Returns 1.
    int setAcceptCharacterSet(unsigned int theCharset);
    // Whether a DEBUG instruction precedes every statement. Off at first.
    void setDebugMode(bool theMode) { debugModeM = theMode; }
    // Whether the peephole optimizer runs. On at first.
    void setOptimizeMode(bool theMode) { optimizeModeM = theMode; }
    // Where the dump of the syntax tree goes; null, as at first, for nowhere. Not owned.
    void setParseTreeStream(std::ostream* theStream) { parseTreeStreamM = theStream; }
    // Where the second copy of the tree dump goes: standard output at first. Not owned.
    void setConsoleStream(std::ostream& theStream) { consoleStreamM = &theStream; }
    // Where the assembly listing goes; null, as at first, for nowhere. Not owned.
    void setAssemblyStream(std::ostream* theStream) { assemblyStreamM = theStream; }

    void getCompilerVersion(CpsString& theVersion) const;

    // Compiles one unit of UTF-8 text, which must live as long as this run's results are read.
    // Returns 1, or 2 with one error record, or 2 and nothing else when theSource is null.
    // Throws std::bad_alloc alone; counts and sizes are then 0, as before the first run.
    int compile(const CpsString* theSource);

    // Results of the last run. They stay until the next compile or the destructor.

    // 0 before a run has finished and after one that failed.
    unsigned int getByteCodeSize() const;
    // Never null; empty where getByteCodeSize is 0.
    const CpsString* getByteCode() const;

    // The pragmas "use meta name" and "use meta http equiv" in the order of the source. They do
    // not stand in the byte code. Index from 0; an index out of range gives an empty string.
    unsigned int getNumMetaName() const;
    CpsString getMetaNameProperty(unsigned int theIndex) const;
    CpsString getMetaNameContent(unsigned int theIndex) const;
    CpsString getMetaNameScheme(unsigned int theIndex) const;
    unsigned int getNumMetaHttp() const;
    CpsString getMetaHttpProperty(unsigned int theIndex) const;
    CpsString getMetaHttpContent(unsigned int theIndex) const;
    CpsString getMetaHttpScheme(unsigned int theIndex) const;

    unsigned int getNumErrors() const;
    // 0 compilation error, 1 other error, 2 no such error.
    int getErrorCode(unsigned int theIndex) const;
    // Replaces theText by the message, "Error at line: N. \r\n..." for a compilation error;
    // by nothing when there is no such error.
    void getErrorMessage(unsigned int theIndex, CpsString& theText) const;

  private:
    static constexpr std::uint8_t theCharsetAdded = 2;     // until the next compile
    static constexpr std::uint8_t theCompileFinished = 4;  // with or without errors

    void run(const CpsString& theSource);
    // Null when the index is out of range.
    const WscPragmaMeta* metaName(unsigned int theIndex) const;
    const WscPragmaMeta* metaHttp(unsigned int theIndex) const;
    bool isFinished() const { return (statusM & theCompileFinished) != 0; }

    std::vector<unsigned int> acceptCharsetsM;
    std::uint8_t statusM = 0;  // of the two bits above
    bool debugModeM = false;
    bool optimizeModeM = true;
    std::unique_ptr<std::ostream> debugStreamM;  // there only in debug mode
    std::ostream* parseTreeStreamM = nullptr;
    std::ostream* consoleStreamM;
    std::ostream* assemblyStreamM = nullptr;
    CpsString noByteCodeM;  // what a run that failed gives
    std::unique_ptr<WscCompilerData> compilerDataM;
    std::unique_ptr<WscParser> parserM;  // owns the tree that rootM looks at
    const WscSimpleNode* rootM = nullptr;
};

}  // namespace lumnis
