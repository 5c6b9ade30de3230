// The byte string where its rules can be seen: sizes of buffers, NUL bytes, order, exceptions.
#include "CpsString.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace lumnis {
namespace {

std::string bytes(const CpsString& theString) {
    return std::string(theString.view());
}

TEST(CpsString, BuffersHaveTheSizesOfTheThreeRules) {
    struct Row {
        std::uint32_t length;
        std::uint32_t constructed;  // room for content, the terminator not counted
        std::uint32_t appended;     // after one byte has come
    };
    const Row rows[] = {{0, 63, 63},     {62, 63, 63},    {63, 63, 255},   {64, 255, 255},
                        {254, 255, 255}, {255, 255, 511}, {256, 511, 511}, {511, 511, 767}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.length);
        CpsString string(std::string(row.length, 'a'));
        EXPECT_EQ(string.capacity(), row.constructed);
        CpsString assigned;
        assigned.assign(string);
        EXPECT_EQ(assigned.capacity(), row.constructed);
        string.append('b');
        EXPECT_EQ(string.capacity(), row.appended);
        EXPECT_EQ(bytes(string), std::string(row.length, 'a') + 'b');
    }
}

TEST(CpsString, BufferStaysWhenContentShrinks) {
    CpsString string(std::string(300, 'a'));
    string.clear();
    EXPECT_EQ(string.capacity(), 511u);
    string = "short";
    EXPECT_EQ(string.capacity(), 511u);
    EXPECT_STREQ(string.c_str(), "short");
}

TEST(CpsString, PiecesAreCopiedAFewTimesAlone) {
    CpsString string;
    std::string expected;
    int blocks = 0;
    for (int i = 0; i < 300000; ++i) {
        const std::uint32_t before = string.capacity();
        const std::string_view piece = i % 3 == 0 ? "ab" : "c";
        string.appendPiece(piece);
        expected += piece;
        blocks += string.capacity() != before ? 1 : 0;
    }
    EXPECT_EQ(bytes(string), expected);
    EXPECT_LT(blocks, 20);
}

TEST(CpsString, NulIsContent) {
    const CpsString string("a\0b", 3u);
    CpsString copy(string);
    copy += string;
    CpsString assigned;
    assigned = copy;
    EXPECT_EQ(bytes(assigned), std::string("a\0ba\0b", 6));
    EXPECT_FALSE(string == "a");
    EXPECT_FALSE(string == CpsString("a\0c", 3u));
    EXPECT_EQ(bytes(string + "c"), std::string("a\0bc", 4));
}

TEST(CpsString, OrderIsOfUnsignedBytes) {
    EXPECT_TRUE(CpsString("a") < CpsString("\x80"));
    EXPECT_TRUE(CpsString("a") < CpsString("ab"));
    EXPECT_FALSE(CpsString("ab") < CpsString("a"));
    EXPECT_TRUE(CpsString("a", 1u) < CpsString("a\0", 2u));
    EXPECT_FALSE(CpsString("x") < CpsString("x"));
}

TEST(CpsString, RangesEndAtTheLengthAndThrowBehindIt) {
    CpsString string("abc");
    EXPECT_EQ(bytes(CpsString(string, 1, 100)), "bc");
    EXPECT_EQ(bytes(CpsString(string, 3, 1)), "");
    EXPECT_EQ(bytes(CpsString(string).erase(1, 100)), "a");
    EXPECT_EQ(bytes(CpsString(string).erase(3, 1)), "abc");
    EXPECT_EQ(bytes(CpsString(string).insert(3, 'd')), "abcd");
    EXPECT_EQ(bytes(CpsString(string).insert(0, 'd')), "dabc");
    EXPECT_EQ(bytes(CpsString("x").assign(string, 1, 1)), "b");
    EXPECT_EQ(bytes(string.assign(string, 1, 9)), "bc");

    const auto textOf = [](auto theOperation) -> std::string {
        try {
            theOperation();
        } catch (const std::out_of_range& error) {
            return error.what();
        }
        return "nothing thrown";
    };
    string = "abc";
    EXPECT_EQ(textOf([&] { CpsString(string, 4, 0); }), "CpsString::CpsString()");
    EXPECT_EQ(textOf([&] { CpsString().assign(string, 4, 0); }), "CpsString::assign()");
    EXPECT_EQ(textOf([&] { string.insert(4, 'x'); }), "CpsString::insert()");
    EXPECT_EQ(textOf([&] { string.erase(4, 0); }), "CpsString::erase()");
    EXPECT_EQ(bytes(string), "abc");
}

TEST(CpsString, StringAppendsAndAssignsItself) {
    CpsString string(std::string(200, 'a'));
    string += string;
    EXPECT_EQ(bytes(string), std::string(400, 'a'));
    string = *&string;
    EXPECT_EQ(string.length(), 400u);
    string = string.view();
    EXPECT_EQ(bytes(string), std::string(400, 'a'));
    const CpsString stolen(std::move(string));
    EXPECT_EQ(stolen.length(), 400u);
}

}  // namespace
}  // namespace lumnis
