// Jump sizes of generated functions against the plainest way to find them: all jumps begin with
// one byte, and as long as some jump does not reach its label, the first such jump grows by one.
// The labels and the order of the code come from the listing.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "WscWmlScriptCompiler.h"

namespace lumnis {
namespace {

struct Item {
    std::string name;
    int label = -1;  // of a jump or a label
    int size = 1;    // all instructions of the generated functions but the jumps have one byte
    int offset = 0;
    int position = 0;

    bool isLabel() const { return name == "PSEUDO_LABEL"; }
    bool isJump() const { return name.find("JUMP") != std::string::npos; }
    bool isConditional() const { return name[0] == 'T'; }
};

std::vector<Item> compile(const std::string& theSource) {
    std::ostringstream listing;
    WscWmlScriptCompiler compiler;
    compiler.setAssemblyStream(&listing);
    const CpsString source(theSource);
    EXPECT_EQ(compiler.compile(&source), 1);
    std::vector<Item> items;
    std::istringstream lines(listing.str());
    std::string line;
    std::getline(lines, line);
    std::getline(lines, line);
    int position = 0;
    while (std::getline(lines, line) && line != "\r") {
        std::istringstream words(line);
        Item item;
        words >> item.name;
        if (item.isLabel() || item.isJump()) {
            words.ignore(7);  // " $LABEL"
            words >> item.label >> item.offset;
            item.size = 0;
            if (item.isJump()) {
                words >> item.size;
            } else {
                EXPECT_EQ(item.offset, position) << line;
            }
        }
        item.position = position;
        position += item.size;
        items.push_back(item);
    }
    return items;
}

// Lays theItems out with their sizes and returns where the labels are.
std::map<int, int> layOut(std::vector<Item>& theItems) {
    std::map<int, int> labels;
    int position = 0;
    for (Item& item : theItems) {
        item.position = position;
        position += item.size;
        if (item.isLabel()) {
            labels[item.label] = item.position;
        }
    }
    return labels;
}

bool growFirst(std::vector<Item>& theItems) {
    const std::map<int, int> labels = layOut(theItems);
    for (Item& item : theItems) {
        if (!item.isJump()) {
            continue;
        }
        const int distance = labels.at(item.label) - item.position;
        item.offset = distance > 0 ? distance - item.size : -distance;
        if ((item.size == 1 && item.offset > 31) || (item.size == 2 && item.offset > 255)) {
            ++item.size;
            return true;
        }
        EXPECT_LE(item.offset, 65535);
    }
    return false;
}

std::string nameOf(const Item& theJump, bool theIsForward) {
    static const char* const theSuffixes[] = {"_S", "", "_W"};
    return std::string(theJump.isConditional() ? "TJUMP" : "JUMP") +
           (theIsForward ? "_FW" : "_BW") + theSuffixes[theJump.size - 1];
}

class Generator {
  public:
    explicit Generator(unsigned int theSeed) : randomM(theSeed) {}

    std::string function(int theStatements) {
        std::string result = "function f() {";
        for (int i = 0; i < theStatements; ++i) {
            result += statement(6, false);
        }
        return result + "}";
    }

  private:
    unsigned int below(unsigned int theLimit) {
        return static_cast<unsigned int>(randomM() % theLimit);
    }

    // Lengths near the limits of the offsets more often than others.
    std::string filler() {
        static const unsigned int theLengths[] = {0, 1, 2, 5, 12, 13, 14, 15, 16, 120, 125, 127};
        std::string result;
        for (unsigned int i = theLengths[below(12)]; i != 0; --i) {
            result += "f();";
        }
        return below(2) == 0 ? result : result + "~0;";
    }

    std::string block(int theDepth, bool theIsInLoop) {
        std::string result = "{" + filler();
        for (unsigned int i = theDepth == 0 ? 0 : below(3); i != 0; --i) {
            result += statement(theDepth - 1, theIsInLoop) + filler();
        }
        return result + "}";
    }

    std::string statement(int theDepth, bool theIsInLoop) {
        switch (below(theIsInLoop ? 7 : 5)) {
            case 0:
                return "if (f()) " + block(theDepth, theIsInLoop);
            case 1:
                return "if (f()) " + block(theDepth, theIsInLoop) + " else " +
                       block(theDepth, theIsInLoop);
            case 2:
                return "while (f()) " + block(theDepth, true);
            case 3:
                return "for (f(); f(); f()) " + block(theDepth, true);
            case 4:
                return "f() && f() || (f() ? f() : f());";
            case 5:
                return "if (f()) break;";
            default:
                return "if (f()) continue;";
        }
    }

    std::mt19937 randomM;
};

TEST(Jumps, HaveTheLeastSizes) {
    int sizes[4] = {0, 0, 0, 0};
    for (unsigned int seed = 1; seed <= 120; ++seed) {
        SCOPED_TRACE(seed);
        const std::string source = Generator(seed).function(3);
        const std::vector<Item> found = compile(source);
        std::vector<Item> expected = found;
        for (Item& item : expected) {
            item.size = item.isJump() ? 1 : item.size;
        }
        while (growFirst(expected)) {
        }
        std::map<int, int> labels = layOut(expected);
        for (std::size_t i = 0; i < found.size(); ++i) {
            ASSERT_EQ(found[i].position, expected[i].position) << i;
            ASSERT_EQ(found[i].size, expected[i].size) << i;
            if (found[i].isJump()) {
                ASSERT_EQ(found[i].offset, expected[i].offset) << i;
                ASSERT_EQ(found[i].name,
                          nameOf(found[i], labels.at(found[i].label) > found[i].position));
                ++sizes[found[i].size];
            }
        }
    }
    // Enough of each, or the generator has lost its point.
    EXPECT_GT(sizes[1], 1000);
    EXPECT_GT(sizes[2], 200);
    EXPECT_GT(sizes[3], 100);
}

}  // namespace
}  // namespace lumnis
