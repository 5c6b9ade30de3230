// iconv stops at each character that it cannot convert. By then it has filled a buffer of its own
// with what follows, in vain, so a text full of such characters would cost a few thousand times its
// length. That is why the text is fed in windows: small ones after a character that could not be
// converted, growing as long as all goes well.
#include "FwTableTranscoder.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "FwUtf8Scan.h"

namespace lumnis {

namespace {

constexpr std::size_t theSmallWindow = 32;
constexpr std::size_t theLargeWindow = std::size_t{1} << 20;

void grow(std::size_t& theWindow) {
    theWindow = std::min(theWindow * 2, theLargeWindow);
}

bool isFurtherByte(char theByte) {
    return (static_cast<unsigned char>(theByte) & 0xC0) == 0x80;
}

// U+E0000 to U+E007F. The iconv of glibc drops these without a word.
bool isTag(std::string_view theCharacter) {
    return theCharacter.size() == 4 && (theCharacter.substr(0, 3) == "\xF3\xA0\x80" ||
                                        theCharacter.substr(0, 3) == "\xF3\xA0\x81");
}

// What code page 1252 leaves undefined.
constexpr std::string_view theUndefinedBytes = "\x81\x8D\x8F\x90\x9D";

// The control character of one of these bytes.
bool isUndefinedControl(std::string_view theCharacter) {
    return theCharacter.size() == 2 && theCharacter[0] == '\xC2' &&
           theUndefinedBytes.find(theCharacter[1]) != std::string_view::npos;
}

}  // namespace

FwIconv::FwIconv(const char* theDestination, const char* theSource)
    : descriptorM(::iconv_open(theDestination, theSource)) {
    // iconv_t is a pointer, and the failure is -1 cast to it.
    if (reinterpret_cast<std::intptr_t>(descriptorM) == -1) {
        throw std::system_error(errno, std::generic_category());
    }
}

FwIconv::~FwIconv() {
    ::iconv_close(descriptorM);
}

int FwIconv::convert(std::string_view& theSource, FwConversionSink& theSink) {
    char* source = const_cast<char*>(theSource.data());  // iconv only reads it
    std::size_t left = theSource.size();
    std::size_t room = theSink.room();
    errno = 0;
    const std::size_t result = ::iconv(descriptorM, &source, &left, &theSink.atM, &room);
    theSource.remove_prefix(theSource.size() - left);
    return result == static_cast<std::size_t>(-1) ? errno : 0;
}

FwTableEncoder::FwTableEncoder(const FwIconvTable& theTable)
    : tableM(theTable), iconvM(theTable.name, "UTF-8") {}

void FwTableEncoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    std::size_t run = 0;
    while (run < theSource.size() && !theSink.isFullM) {
        const FwUtf8Step step = fwScanUtf8(theSource.substr(run));
        if (step.isWellFormed && !isTag(theSource.substr(run, step.length))) {
            run += step.length;
            continue;
        }
        encodeRun(theSource.substr(0, run), theSink);
        theSink.substitute(theMissingCharacter);
        theSource.remove_prefix(run + step.length);
        run = 0;
    }
    encodeRun(theSource.substr(0, run), theSink);
}

void FwTableEncoder::encodeRun(std::string_view theText, FwConversionSink& theSink) {
    std::size_t window = theLargeWindow;
    while (!theText.empty() && !theSink.isFullM) {
        std::size_t size = std::min(window, theText.size());
        while (size < theText.size() && isFurtherByte(theText[size])) {
            --size;
        }
        std::string_view part = theText.substr(0, size);
        const int error = iconvM.convert(part, theSink);
        theText.remove_prefix(size - part.size());
        if (error == 0) {
            grow(window);
            continue;
        }
        if (error == E2BIG) {
            theSink.isFullM = true;
            return;
        }
        const std::string_view character = theText.substr(0, fwScanUtf8(theText).length);
        if (tableM.passesUndefined && isUndefinedControl(character)) {
            theSink.put(character[1]);
        } else {
            theSink.substitute(theMissingCharacter);
        }
        theText.remove_prefix(character.size());
        window = theSmallWindow;
    }
}

bool FwTableEncoder::encodeCharacter(std::string_view theCharacter, FwConversionSink& theSink) {
    return !isTag(theCharacter) && iconvM.convert(theCharacter, theSink) == 0;
}

FwTableDecoder::FwTableDecoder(const FwIconvTable& theTable)
    : tableM(theTable), iconvM("UTF-8", theTable.name) {}

void FwTableDecoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    std::size_t window = theLargeWindow;
    while (!theSource.empty() && !theSink.isFullM) {
        const std::size_t size = std::min(window, theSource.size());
        std::string_view part = theSource.substr(0, size);
        const int error = iconvM.convert(part, theSink);
        const std::size_t done = size - part.size();
        const bool isLast = size == theSource.size();
        theSource.remove_prefix(done);
        if (error == 0) {
            grow(window);
        } else if (error == E2BIG) {
            theSink.isFullM = true;
        } else if (error != EINVAL) {
            stepOverRefused(theSource, done > 0, theSink);
            window = theSmallWindow;
        } else if (isLast || done == 0) {
            theSink.substitute(theReplacementCharacter);  // the text ends inside a character
            theSource = {};
        }
        // Else the window ends inside a character, with which the next window begins.
    }
}

void FwTableDecoder::stepOverRefused(std::string_view& theSource, bool hasMoved,
                                     FwConversionSink& theSink) {
    // Some tables of glibc step over the sequence that they refuse (A2 E8 of UHC).
    if (theSource.empty() || (hasMoved && beginsWithCharacter(theSource))) {
        theSink.substitute(theReplacementCharacter);
        return;
    }
    const char byte = theSource[0];
    if (tableM.passesUndefined && theUndefinedBytes.find(byte) != std::string_view::npos) {
        theSink.put('\xC2');
        theSink.put(byte);
    } else {
        theSink.substitute(theReplacementCharacter);
    }
    theSource.remove_prefix(1);
}

bool FwTableDecoder::beginsWithCharacter(std::string_view theSource) {
    char buffer[16];
    FwConversionSink sink(buffer);
    const std::string_view start = theSource.substr(0, 4);
    std::string_view rest = start;
    iconvM.convert(rest, sink);
    return rest.size() < start.size() && sink.size() > 0;
}

}  // namespace lumnis
