// The limits that no case file can show, and that docs/limits.md has its cases.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "CaseFile.h"
#include "DumpReader.h"
#include "ExportCalls.h"
#include "Files.h"

namespace lumnis {
namespace {

TEST(Limits, resultOfADeck) {
    // Version, identifier, charset, table length, wml, STR_I, text, terminator, END.
    const auto deckOf = [](std::size_t theResult) {
        return "<wml>" + std::string(theResult - 8, 'x') + "</wml>";
    };
    const test::ExportResult largest = test::callEncode(deckOf(65534));
    EXPECT_EQ(largest.code, 0);
    EXPECT_EQ(largest.bytes.size(), 65534u);
    for (const std::size_t length : {65535u, 65536u, 65544u, 1u << 22}) {
        const test::ExportResult tooLong = test::callEncode(deckOf(length));
        EXPECT_EQ(tooLong.code, 1) << length;
        EXPECT_TRUE(tooLong.hasBlock);
        EXPECT_EQ(tooLong.text, "");
    }
}

TEST(Limits, fileOfTheDump) {
    // One element with one string in it.
    const auto fileOf = [](std::size_t theSize) {
        return std::string("\x01\x04\x6A\x00\x60\x03", 6) + std::string(theSize - 8, 'x') +
               std::string("\0\x01", 2);
    };
    EXPECT_FALSE(readDump(fileOf(theDumpFileLimit), std::nullopt).fault);
    const auto fault = readDump(fileOf(theDumpFileLimit + 1), std::nullopt).fault;
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->message, "the file has more than 4 MiB");
}

TEST(Limits, textOfTheDump) {
    // A table with one string, named often enough for nearly 16 MiB, and a string of theRest bytes.
    constexpr std::size_t theString = 1u << 20;
    const auto fileOf = [](std::size_t theRest) {
        std::string file("\x01\x04\x6A\xC0\x80\x01", 6);
        file += std::string(theString, 'x') + std::string("\0\x60", 2);
        for (int i = 0; i < 13; ++i) {
            file += std::string("\x83\0", 2);
        }
        return file + '\x03' + std::string(theRest, 'x') + std::string("\0\x01", 2);
    };
    std::size_t used = theString;  // the string that the references share
    for (const DumpPiece& piece : readDump(fileOf(0), std::nullopt).pieces) {
        used += piece.text.size() + piece.name.size();
    }
    const std::size_t rest = (std::size_t{16} << 20) - used;
    EXPECT_FALSE(readDump(fileOf(rest), std::nullopt).fault);
    const auto fault = readDump(fileOf(rest + 1), std::nullopt).fault;
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->message, "the document has more than 16 MiB of text");
}

// What stands between back-ticks in the last column of theRow.
std::vector<std::string> referencesOf(const std::string& theRow) {
    std::vector<std::string> result;
    std::size_t begin = theRow.find('`', theRow.rfind('|', theRow.size() - 2));
    while (begin != std::string::npos) {
        const std::size_t end = theRow.find('`', begin + 1);
        result.push_back(theRow.substr(begin + 1, end - begin - 1));
        begin = theRow.find('`', end + 1);
    }
    return result;
}

// A reference is "theme/file: name of a case", or "File.cc: text".
TEST(Limits, ofTheDocumentHaveTheirCases) {
    std::map<std::string, std::set<std::string>> cases;  // names by theme and file
    const auto exists = [&cases](const std::string& theReference) {
        const std::string file = theReference.substr(0, theReference.find(": "));
        const std::string name = theReference.substr(file.size() + 2);
        if (file.ends_with(".cc")) {
            return test::contentOf(LUMNIS_TREE "/tests/" + file).find(name) != std::string::npos;
        }
        if (!cases.contains(file)) {
            const std::string theme = file.substr(0, file.find('/'));
            for (const test::Case& each : test::readCases(theme)) {
                cases[theme + "/" + each.file].insert(each.name);
            }
        }
        return cases[file].contains(name);
    };
    std::istringstream document(test::contentOf(LUMNIS_TREE "/docs/limits.md"));
    int rows = 0;
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with("| ") && !line.ends_with("| Cases |")) {
            const std::vector<std::string> references = referencesOf(line);
            EXPECT_FALSE(references.empty()) << line;
            for (const std::string& reference : references) {
                EXPECT_TRUE(exists(reference)) << reference;
            }
            ++rows;
        }
    }
    EXPECT_GT(rows, 25);
}

}  // namespace
}  // namespace lumnis
