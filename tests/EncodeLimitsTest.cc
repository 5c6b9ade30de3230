// WMLEncode at its limits: sizes, memory that runs out, input that is cut or damaged at every
// byte, threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "lumnisutil.h"

namespace {

// Allocations of this thread until one fails; negative while none is to fail.
thread_local long allocationsLeft = -1;
thread_local bool hasFailed = false;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t theSize) {
    if (allocationsLeft > 0 && --allocationsLeft == 0) {
        hasFailed = true;
        throw std::bad_alloc();
    }
    if (void* block = std::malloc(theSize == 0 ? 1 : theSize)) {
        return block;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new(std::size_t theSize, const std::nothrow_t&) noexcept {
    try {
        return operator new(theSize);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

[[gnu::noinline]] void operator delete(void* theBlock) noexcept {
    std::free(theBlock);
}

[[gnu::noinline]] void operator delete(void* theBlock, std::size_t) noexcept {
    std::free(theBlock);
}

namespace lumnis {
namespace {

constexpr const char* theDeck = R"deck(<?xml version="1.0"?>
<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.2//EN" "wml12.dtd">
<?p http://d?>
<wml><head><access domain="x.com" path="/a$$"/><meta http-equiv="Expires" content="0"/></head>
<template><do type="prev"><prev/></do></template>
<card id="c" title="$(t:e)" newcontext="true" ordered="false">
<onevent type="ontimer"><go href="http://www.x.com/$v" method="post"><postfield name="a" value="$b"/>
</go></onevent><timer name="t" value="10"/>
<p align="center" mode="nowrap">a  b$(v)&#233;<br/><img src="i" alt="i" width="50%"/>
<select name="s" ivalue="1"><optgroup title="g"><option value="1">a  b</option></optgroup></select>
<input name="n" type="password" maxlength="5"/><a href="#c">x<br/>y</a><![CDATA[$]]]]></p>
<pre xml:space="preserve"> z </pre><p><table columns="2"><tr><td>1</td><td/></tr></table></p>
</card></wml>
)deck";

struct Outcome {
    int code = 0;
    bool hasBlock = false;
    std::string bytes;
    std::string error;

    bool operator==(const Outcome&) const = default;
};

// theAllocations as allocationsLeft.
Outcome encode(const std::string& theSource, long theAllocations = -1) {
    char* result = nullptr;
    char* error = nullptr;
    unsigned short length = 0;
    Outcome outcome;
    allocationsLeft = theAllocations;
    hasFailed = false;
    outcome.code =
        WMLEncode(theSource.data(), static_cast<int>(theSource.size()), &result, &length, &error);
    allocationsLeft = -1;
    outcome.hasBlock = result != nullptr;
    if (outcome.code == 0) {
        outcome.bytes.assign(result, length);
    }
    if (error != nullptr) {
        outcome.error = error;
    }
    std::free(result);
    return outcome;
}

// False if the deck needs fewer allocations than that. A lost line of the log is no failure.
bool encodesWithFailingAllocation(long theNumber) {
    const std::string deck(theDeck);
    const Outcome outcome = encode(deck, theNumber);
    if (outcome.code != 0) {
        EXPECT_EQ(outcome.error, "standard exception: std::bad_alloc\n") << theNumber;
    }
    return hasFailed;
}

// Stands first: the first calls of the process make the directors, and what a failed one leaves
// must not be in the way of the next.
TEST(EncodeLimits, everyAllocationMayFail) {
    long step = 1;
    for (long number = 1; encodesWithFailingAllocation(number); number += step) {
        step = 1 + number / 64;
    }
    const Outcome good = encode(theDeck);
    ASSERT_EQ(good.error, "");
    long number = 1;
    for (; encodesWithFailingAllocation(number); ++number) {
        EXPECT_EQ(encode(theDeck), good);
    }
    EXPECT_GT(number, 50);
}

TEST(EncodeLimits, largestResult) {
    // Version, identifier, charset, table length, wml, STR_I, text, terminator, END.
    const auto deckOf = [](std::size_t theResult) {
        return "<wml>" + std::string(theResult - 8, 'x') + "</wml>";
    };
    const Outcome largest = encode(deckOf(65534));
    EXPECT_EQ(largest.code, 0);
    EXPECT_EQ(largest.bytes.size(), 65534u);
    for (const std::size_t length : {65535u, 65536u, 65544u, 1u << 22}) {
        const Outcome tooLong = encode(deckOf(length));
        EXPECT_EQ(tooLong.code, 1) << length;
        EXPECT_TRUE(tooLong.hasBlock);
        EXPECT_EQ(tooLong.error, "");
    }
}

void expectSane(const std::string& theSource) {
    const Outcome outcome = encode(theSource);
    EXPECT_EQ(outcome, encode(theSource));
    if (outcome.code == 0 || theSource.empty()) {
        return;
    }
    EXPECT_TRUE(outcome.hasBlock);
    EXPECT_NE(outcome.error, "") << theSource;
    const char* const mark = "  (before or at line: ";
    const std::size_t place = outcome.error.find(mark);
    if (place != std::string::npos) {
        const auto line = std::stol(outcome.error.substr(place + std::strlen(mark)));
        EXPECT_GE(line, 1);
        EXPECT_LE(line, 1 + std::count(theSource.begin(), theSource.end(), '\n'));
    }
}

TEST(EncodeLimits, cutAndDamagedAtEveryByte) {
    const std::string deck(theDeck);
    testing::internal::CaptureStdout();
    for (std::size_t i = 0; i < deck.size(); ++i) {
        expectSane(deck.substr(0, i));
        for (const char byte : {'\0', '<', '>', '&', '"', '$', ' ', '\xFF'}) {
            std::string damaged = deck;
            damaged[i] = byte;
            expectSane(damaged);
        }
    }
    // The empty deck alone cannot be converted.
    const std::string text = "There was no input character data to process.\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), text + text);
}

TEST(EncodeLimits, threadsGetWhatOneThreadGets) {
    const std::vector<std::string> decks = {
        theDeck,
        "<wml><card>$(x)</card><unknown a='http://b'/></wml>",
        "<!DOCTYPE wml [<!ELEMENT wml (#PCDATA)>]><wml>\n<p/></wml>",
        "<!DOCTYPE wml PUBLIC '-//WAPFORUM//DTD WML 1.1//EN' 'x'><wml>\n<card><p/></wml>",
        "<wml>\n\n$</wml>",
    };
    const auto encodeAll = [&decks](std::size_t theFirst) {
        std::vector<Outcome> outcomes(decks.size());
        for (std::size_t i = 0; i < decks.size(); ++i) {
            const std::size_t index = (theFirst + i) % decks.size();
            outcomes[index] = encode(decks[index]);
        }
        return outcomes;
    };
    std::vector<std::vector<std::vector<Outcome>>> found(8);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < found.size(); ++i) {
        threads.emplace_back([&encodeAll, i, &mine = found[i]] {
            for (std::size_t round = 0; round < 40; ++round) {
                mine.push_back(encodeAll(i + round));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::vector<Outcome> expected = encodeAll(0);
    EXPECT_EQ(expected[0].error, "");
    EXPECT_EQ(expected[1].error, "");
    EXPECT_EQ(expected[2].error, "p undefined  (before or at line: 2)\n");
    for (const auto& mine : found) {
        for (const auto& outcomes : mine) {
            EXPECT_EQ(outcomes, expected);
        }
    }
}

}  // namespace
}  // namespace lumnis
