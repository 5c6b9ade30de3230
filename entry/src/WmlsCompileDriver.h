// What WMLSCompile runs: one compilation of a script, from the caller's source to a result that
// malloc has allocated.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string_view>

#include "CpsString.h"
#include "HedCharsetId.h"
#include "WscWmlScriptCompiler.h"

namespace lumnis {

class WmlsCompileDriver {
  public:
    // Unless theMode is 0, as at first, a pragma report goes to standard output after a successful
    // compilation.
    void setPrintPragmas(int theMode) { printPragmasM = theMode; }
    // The source is converted from theCharset to UTF-8 first. Without this it is taken as it is.
    void setInputCharset(HedCharsetId theCharset) {
        inputCharsetM = theCharset;
        convertInputM = 1;
    }

    // WMLSCompile, but for the size of the result, which has 32 bits here. True on success. A fault
    // of the script leaves its text in *theErrorText; for a source that cannot be converted the
    // reason is printed and there is no text. Throws std::bad_alloc and CCException.
    bool run(const char* theSource, int theSourceLength, char** theResult,
             std::uint32_t& theResultLength, char** theErrorText);

    // Stores a copy of theText and a line end, terminated and from malloc, in *theErrorText, unless
    // theErrorText is null; a null pointer when there is no memory for it.
    static void storeErrorText(std::string_view theText, char** theErrorText) noexcept;

    // The messages of the last compilation, each under its heading: the text of WMLSCompile without
    // its line end.
    static CpsString errorText(const WscWmlScriptCompiler& theCompiler);
    // The "use meta" pragmas of the last compilation, a line each, and an empty line.
    static void writePragmaReport(const WscWmlScriptCompiler& theCompiler, std::ostream& theStream);

  private:
    bool convertInput();

    WscWmlScriptCompiler compilerM;
    int printPragmasM = 0;
    std::unique_ptr<CpsString> sourceM;
    HedCharsetId inputCharsetM = theUtf8Charset;
    int convertInputM = 0;
};

}  // namespace lumnis
