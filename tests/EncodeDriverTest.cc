// What WMLEncode hands out and prints when an encoding fails.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "WmlEncodeDriver.h"
#include "XaDirector.h"
#include "XaProducer.h"
#include "XpInternalError.h"
#include "lumnisutil.h"

namespace lumnis {
namespace {

constexpr int theTextXml = 40;
constexpr int theFailingMediaType = 3000;

class TextException final : public XpException {
  public:
    explicit TextException(const char* theText) : textM(theText) {}
    CpsString toString() const override { return textM; }

  private:
    CpsString textM;
};

class FailingDirector final : public XaDirector {
  public:
    FailingDirector() {
        XaProducer::instance().registerDirector(this, nullptr, theFailingMediaType);
    }

    std::function<void()> failure;

    std::unique_ptr<XaOutput> process(XpParser&, XaPrologOutput&, int, HedCharsetId, int*,
                                      CpsString&) override {
        failure();
        return nullptr;
    }
};

// The out-parameters of one call. Marks in them show what was written.
class OutParameters {
  public:
    OutParameters() = default;
    OutParameters(const OutParameters&) = delete;
    OutParameters& operator=(const OutParameters&) = delete;
    ~OutParameters() {
        if (hasResult()) {
            std::free(result);
        }
    }

    bool hasResult() const { return result != markM; }
    bool hasError() const { return error != markM; }
    bool hasLength() const { return length != theLengthMark; }

  private:
    static constexpr unsigned short theLengthMark = 4711;
    char markM[8] = "no text";

  public:
    char* result = markM;
    char* error = markM;
    unsigned short length = theLengthMark;
    std::uint32_t driverLength = 0;
};

int encode(const std::string& theSource, OutParameters& theOut) {
    return WMLEncode(theSource.data(), static_cast<int>(theSource.size()), &theOut.result,
                     &theOut.length, &theOut.error);
}

bool runAsXml(const std::string& theSource, OutParameters& theOut) {
    WmlEncodeDriver driver;
    driver.setMediaType(theTextXml);
    return driver.run(theSource, &theOut.result, theOut.driverLength, &theOut.error);
}

TEST(EncodeDriver, wordsEveryKindOfException) {
    static FailingDirector director;
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[] { throw XpParserError("m", 7); }, "m  (before or at line: 7)\n"},
        {[] { throw TextException("text"); }, "text"},
        {[] { throw TextException(""); }, nullptr},
        {[] { throw XpInternalError("i"); }, "fatal internal parser error: i\n"},
        {[] { throw XaException(); }, "error in Xa: XML application error\n"},
        {[] { throw std::runtime_error("r"); }, "standard exception: r\n"},
        {[] { throw std::bad_alloc(); }, "standard exception: std::bad_alloc\n"},
        {[] { throw 1; }, "undefined exception\n"},
    };
    for (const auto& [failure, text] : rows) {
        director.failure = failure;
        WmlEncodeDriver driver;
        driver.setMediaType(theFailingMediaType);
        OutParameters out;
        EXPECT_FALSE(driver.run("<a/>", &out.result, out.driverLength, &out.error));
        EXPECT_EQ(out.hasError(), text != nullptr);
        EXPECT_STREQ(out.error, text != nullptr ? text : "no text");
        // A refused document leaves an empty block all the same.
        EXPECT_TRUE(out.hasResult());
        EXPECT_NE(out.result, nullptr);
        EXPECT_EQ(out.driverLength, 0u);
    }
}

TEST(EncodeDriver, takesItsSourceAsLatin1) {
    OutParameters out;
    ASSERT_TRUE(runAsXml("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xE9</a>", out));
    EXPECT_FALSE(out.hasError());
    EXPECT_EQ(std::string(out.result, out.driverLength), std::string("\x01\x01\x6A\x02"
                                                                     "a\0\x44\0\x03\xC3\xA9\0\x01",
                                                                     13));
}

TEST(EncodeDriver, tellsFaultsOfTheSourceWithTheirLine) {
    OutParameters out;
    EXPECT_EQ(encode("<!DOCTYPE wml [\n<!ELEMENT wml>]><wml/>", out), 1);
    EXPECT_TRUE(out.hasResult());
    EXPECT_FALSE(out.hasLength());
    EXPECT_STREQ(out.error, "parse error  (before or at line: 2)\n");
}

TEST(EncodeDriver, printsWhatTheConverterSays) {
    OutParameters out;
    testing::internal::CaptureStdout();
    const int code = encode("", out);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "There was no input character data to process.\n");
    EXPECT_EQ(code, 1);
    EXPECT_FALSE(out.hasResult());
    EXPECT_FALSE(out.hasLength());
    EXPECT_FALSE(out.hasError());
}

TEST(EncodeDriver, refusesCallsWithoutSourceOrPlaceForTheResult) {
    OutParameters out;
    EXPECT_EQ(WMLEncode(nullptr, 1, &out.result, &out.length, &out.error), 1);
    EXPECT_STREQ(out.error, "There is no source.\n");
    EXPECT_EQ(WMLEncode("x", -1, &out.result, &out.length, &out.error), 1);
    EXPECT_EQ(WMLEncode("<wml/>", 6, nullptr, &out.length, &out.error), 1);
    EXPECT_EQ(WMLEncode("<wml/>", 6, &out.result, nullptr, &out.error), 1);
    EXPECT_FALSE(out.hasResult());
    EXPECT_FALSE(out.hasLength());
}

TEST(EncodeDriver, cutsALongMessageBetweenCharacters) {
    // 24 bytes up to the first character of two bytes: the last one that fits ends at 1022.
    OutParameters out;
    std::string name("a");
    name.append(600, '\xE9');
    EXPECT_FALSE(runAsXml("<" + name + "></x>", out));
    std::string expected = "element tag mismatch: <a";
    while (expected.size() < 1022) {
        expected += "\xC3\xA9";
    }
    EXPECT_EQ(std::string(out.error), expected);

    for (const std::size_t length : {1023u, 1024u}) {
        WmlEncodeDriver::storeErrorText(std::string(length, 'x'), &out.error);
        EXPECT_EQ(std::string(out.error), std::string(1023, 'x')) << length;
    }
    WmlEncodeDriver::storeErrorText(std::string(2000, '\x80'), &out.error);
    EXPECT_EQ(std::string(out.error), std::string(1020, '\x80'));
}

TEST(EncodeDriver, keepsATextForEachThread) {
    OutParameters out;
    EXPECT_FALSE(runAsXml("<a></b>", out));
    const std::string text = out.error;
    std::thread([] {
        OutParameters other;
        EXPECT_FALSE(runAsXml("<a></other>", other));
    }).join();
    EXPECT_EQ(out.error, text);
}

}  // namespace
}  // namespace lumnis
