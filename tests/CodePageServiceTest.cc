// The code-page service and the pool of its objects on systems that lack something: memory, or an
// encoding of iconv.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <iconv.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <string>

#include "CCException.h"
#include "CcCharsetConverter.h"
#include "FwCodePageConverter.h"

namespace {

int theObjectsLeft = -1;  // service objects to be had; negative: any number
int theIconvError = 0;    // of the next calls of iconv_open

}  // namespace

// The service makes its objects, and nothing else does, with the form of new that gives null.
void* operator new(std::size_t theSize, const std::nothrow_t&) noexcept {
    if (theObjectsLeft == 0) {
        return nullptr;
    }
    theObjectsLeft -= theObjectsLeft > 0 ? 1 : 0;
    try {
        return ::operator new(theSize);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// Stands in front of the system's function.
extern "C" iconv_t iconv_open(const char* theDestination, const char* theSource) {
    if (theIconvError != 0) {
        errno = theIconvError;
        return reinterpret_cast<iconv_t>(-1);
    }
    using Open = iconv_t (*)(const char*, const char*);
    static const auto theSystems = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "iconv_open"));
    return theSystems(theDestination, theSource);
}

namespace lumnis {
namespace {

void expectNoConverter() {
    try {
        const CcCharsetConverter converter;
        FAIL() << "made a converter";
    } catch (const CCException& error) {
        EXPECT_STREQ(error.what(), "Failed to create MLANG conversion object");
    }
}

// The first test: the pool of a process is filled once.
TEST(CodePageService, ConvertersComeBackWhenThereIsMemoryAgain) {
    // The start-up fails at the first and at the last of its ten objects, and then succeeds.
    for (const int objects : {0, 9}) {
        theObjectsLeft = objects;
        expectNoConverter();
    }
    theObjectsLeft = 10;
    std::vector<std::unique_ptr<CcCharsetConverter>> converters;
    for (int i = 0; i < 10; ++i) {
        converters.push_back(std::make_unique<CcCharsetConverter>());
    }
    // The pool is empty, and so is the memory.
    expectNoConverter();
    converters.pop_back();
    EXPECT_NO_THROW(converters.push_back(std::make_unique<CcCharsetConverter>()));
    theObjectsLeft = 1;
    EXPECT_NO_THROW(converters.push_back(std::make_unique<CcCharsetConverter>()));
    // Eleven come back, ten are kept.
    converters.clear();
    theObjectsLeft = 0;
    for (int i = 0; i < 10; ++i) {
        converters.push_back(std::make_unique<CcCharsetConverter>());
    }
    expectNoConverter();
    theObjectsLeft = -1;
}

TEST(CodePageService, AnEncodingThatTheSystemLacksIsUnsupported) {
    CcCharsetConverter converter;
    CpsString output("before");
    for (const HedCharsetId charset : {17, 39, 37}) {
        theIconvError = EINVAL;
        EXPECT_FALSE(converter.convertFromUtf8("a", output, charset, true));
        EXPECT_EQ(converter.getErrorMessage(),
                  "- the specified set of source/destination code pages is not supported");
        EXPECT_FALSE(converter.convertFromUtf8("a", output, charset, true));
        EXPECT_EQ(converter.getErrorMessage(), "Code page not supported");
        theIconvError = ENOMEM;
        EXPECT_FALSE(converter.convertToUtf8("a", output, charset));
        EXPECT_EQ(converter.getErrorMessage(),
                  "Internal error; Failed to initialize conversion object");
        EXPECT_FALSE(converter.convertToUtf8("a", output, charset));
        EXPECT_EQ(converter.getErrorMessage(), "Internal error (E_FAIL); Conversion failed");
        output = "before";
    }
    theIconvError = 0;
    EXPECT_TRUE(converter.convertFromUtf8("a", output, 18, false));
    EXPECT_EQ(output, "a");
}

TEST(CodePageService, KeepsWhatIsWellFormedBetweenUtf8AndItself) {
    using Result = FwCodePageConverter::Result;
    const auto service = FwCodePageConverter::create();
    char buffer[16] = {};
    std::size_t size = 0;
    // The pair of a new object.
    EXPECT_EQ(service->convert("a\xC3\xA9", buffer, size), Result::converted);
    EXPECT_EQ(std::string_view(buffer, size), "a\xC3\xA9");
    ASSERT_EQ(service->initialize(65001, 1252), Result::converted);
    ASSERT_EQ(service->initialize(65001, 65001), Result::converted);
    EXPECT_EQ(service->convert("a\xFF\xC3\xA9", buffer, size), Result::substituted);
    EXPECT_EQ(std::string_view(buffer, size), "a\xEF\xBF\xBD\xC3\xA9");  // U+FFFD
    // Neither end is UTF-8.
    EXPECT_EQ(service->initialize(1252, 28591), Result::unsupported);
    EXPECT_EQ(service->convert("a", buffer, size), Result::unsupported);
}

TEST(CodePageService, AskForMoreRoomThanThereIsAndNothingIsUsable) {
    using Result = FwCodePageConverter::Result;
    struct Row {
        std::uint32_t codePage;
        std::size_t room;  // the least that is enough
    };
    // U+AC00 and a NUL, U+65E5 and a NUL. The header of 50225 comes with four bytes more.
    const Row rows[] = {{50225, 5}, {949, 3}, {50221, 9}, {932, 3}, {1252, 2}};
    const auto service = FwCodePageConverter::create();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.codePage);
        const char* letter =
            row.codePage == 50225 || row.codePage == 949 ? "\xEA\xB0\x80" : "\xE6\x97\xA5";
        const std::string_view text(letter, 4);
        ASSERT_EQ(service->initialize(65001, row.codePage), Result::converted);
        for (std::size_t room = 0; room <= row.room; ++room) {
            char buffer[16] = {};
            std::size_t size = 99;
            const Result result = service->convert(text, {buffer, room}, size);
            if (room < row.room) {
                EXPECT_EQ(result, Result::failed);
                EXPECT_EQ(size, 0u);
            } else {
                EXPECT_EQ(result, row.codePage == 1252 ? Result::substituted : Result::converted);
                EXPECT_EQ(size, row.room);
            }
            // Nothing behind the room.
            for (std::size_t i = room; i < sizeof buffer; ++i) {
                EXPECT_EQ(buffer[i], 0);
            }
        }
    }
}

TEST(CodePageService, StopsAtWhatDoesNotFitWhateverComesBehind) {
    using Result = FwCodePageConverter::Result;
    struct Row {
        std::uint32_t source;
        std::uint32_t destination;
        std::string_view text;  // its first character takes one byte or more
    };
    const Row rows[] = {
        {65001, 65001, "a\xFFz"},         {28591, 65001, "\xE9\xE9z"}, {28591, 65001, "a\xE9z"},
        {932, 65001, "\xFF\xFFz"},        {50221, 65001, "abc"},       {50225, 65001, "abc"},
        {65001, 932, "\xFF\xFF\xFFz"},    {65001, 50221, "abc"},       {65001, 50225, "abc"},
        {65001, 1252, "\xE6\x97\xA5zzz"}, {1252, 65001, "\x81\x81z"},
    };
    const auto service = FwCodePageConverter::create();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        ASSERT_EQ(service->initialize(row.source, row.destination), Result::converted);
        char buffer[2] = {'?', '?'};
        std::size_t size = 99;
        EXPECT_EQ(service->convert(row.text, {buffer, 0}, size), Result::failed);
        EXPECT_EQ(size, 0u);
        EXPECT_EQ(buffer[0], '?');
        EXPECT_EQ(service->convert(row.text, {buffer, 1}, size), Result::failed);
        EXPECT_EQ(buffer[1], '?');
    }
}

// Runs of ASCII of every length, since those are copied in words.
TEST(CodePageService, Latin1IsTheBeginningOfUnicode) {
    const auto converter = FwCodePageConverter::create();
    ASSERT_EQ(converter->initialize(28591, 65001), FwCodePageConverter::Result::converted);
    for (std::size_t length = 0; length < 40; ++length) {
        for (unsigned byte = 0; byte < 256; ++byte) {
            std::string source(length, 'a');
            source += static_cast<char>(byte);
            source += "b\xFF";
            std::string expected(length, 'a');
            expected += CcCharsetConverter::getAsUtf8(byte).view();
            expected += "b\xC3\xBF";
            std::string buffer(4 * source.size(), '?');
            std::size_t size = 0;
            EXPECT_EQ(converter->convert(source, buffer, size),
                      FwCodePageConverter::Result::converted);
            EXPECT_EQ(buffer.substr(0, size), expected);
            EXPECT_EQ(converter->convert(source, {buffer.data(), expected.size() - 1}, size),
                      FwCodePageConverter::Result::failed);
            EXPECT_EQ(size, 0u);
        }
    }
}

}  // namespace
}  // namespace lumnis
