// The picture of the folders in docs/architecture.md, the targets of CMake and the #include lines
// of the sources say the same about who may call whom.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "Files.h"

namespace lumnis {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;
using Folders = std::map<std::string, Names>;  // a folder of the tree, and those that it calls

const fs::path theTree = LUMNIS_TREE;

// The folders that become a target lumnis_NAME, by path.
std::map<std::string, fs::path> targetFolders() {
    std::map<std::string, fs::path> result;
    const std::regex target("\nlumnis_folder\\(([a-z]+)");
    for (const auto& entry : fs::recursive_directory_iterator(theTree)) {
        if (entry.path().filename() == "CMakeLists.txt" &&
            entry.path().string().find("/build") == std::string::npos) {
            const std::string text = '\n' + test::contentOf(entry.path());
            std::smatch match;
            if (std::regex_search(text, match, target)) {
                result[match[1]] = entry.path().parent_path();
            }
        }
    }
    return result;
}

Folders dependenciesInCmake() {
    Folders result;
    const auto folders = targetFolders();
    const std::regex list("\nlumnis_folder\\([^)]*\\)");
    for (const auto& [name, path] : folders) {
        std::string text = '\n' + test::contentOf(path / "CMakeLists.txt");
        std::smatch match;
        if (!std::regex_search(text, match, list)) {
            continue;
        }
        std::istringstream words(std::regex_replace(match[0].str(), std::regex("[()]"), " "));
        bool isDependency = false;
        Names names;
        for (std::string word; words >> word;) {
            const bool isKeyword = word == "SOURCES" || word == "INCLUDE" || word == "DEPENDS";
            if (isKeyword) {
                isDependency = word == "DEPENDS";
            } else if (isDependency) {
                names.insert(fs::relative(folders.at(word), theTree).string());
            }
        }
        result[fs::relative(path, theTree).string()] = names;
    }
    return result;
}

// Rows "| `folder/` | what it is | `folder/` `folder/` |".
Folders dependenciesInPage() {
    Folders result;
    std::istringstream page(test::contentOf(theTree / "docs/architecture.md"));
    const std::regex row("\\| `([a-z/]+)/` \\|[^|]*\\|([^|]*)\\|");
    const std::regex name("`([a-z/]+)/`");
    for (std::string line; std::getline(page, line);) {
        std::smatch match;
        if (std::regex_match(line, match, row)) {
            const std::string called = match[2];
            Names& names = result[match[1]];
            for (std::sregex_iterator at(called.begin(), called.end(), name), end; at != end;
                 ++at) {
                names.insert((*at)[1]);
            }
        }
    }
    return result;
}

TEST(Architecture, thePageShowsTheLinksOfCmake) {
    EXPECT_GE(dependenciesInCmake().size(), 10u);
    EXPECT_EQ(dependenciesInPage(), dependenciesInCmake());
}

// The drawing: a line of folders above those that they call.
TEST(Architecture, noLineOfTheDrawingCallsItselfOrWhatStandsAbove) {
    std::istringstream page(test::contentOf(theTree / "docs/architecture.md"));
    std::map<std::string, int> lines;
    const Folders folders = dependenciesInCmake();
    bool isDrawing = false;
    int number = 0;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("```")) {
            isDrawing = line == "```text";
        } else if (isDrawing) {
            ++number;
            std::istringstream words(line);
            // Behind the names of folders stands what they are.
            for (std::string word; words >> word && folders.count(word) != 0;) {
                lines[word] = number;
            }
        }
    }
    for (const auto& [name, called] : folders) {
        ASSERT_TRUE(lines.count(name) != 0) << name << " is not in the drawing";
        for (const std::string& other : called) {
            EXPECT_GT(lines[other], lines[name]) << name << " calls " << other;
        }
    }
}

std::string folderOf(const fs::path& theFile, const Folders& theFolders) {
    for (fs::path at = theFile.parent_path(); at != theTree && at.has_relative_path();
         at = at.parent_path()) {
        const std::string name = fs::relative(at, theTree).string();
        if (theFolders.count(name) != 0) {
            return name;
        }
    }
    return "";
}

TEST(Architecture, noIncludeRunsUpward) {
    const Folders folders = dependenciesInCmake();
    std::map<std::string, std::string> headers;
    std::vector<fs::path> files;
    for (const auto& [name, called] : folders) {
        for (const auto& entry : fs::recursive_directory_iterator(theTree / name)) {
            const std::string extension = entry.path().extension().string();
            if (extension == ".h" || extension == ".cc" || extension == ".y" ||
                extension == ".re") {
                files.push_back(entry.path());
                headers[entry.path().filename().string()] = folderOf(entry.path(), folders);
            }
        }
    }
    headers["lumnisutil.h"] = "entry";
    const std::regex include("\n#include \"([^\"]+)\"");
    std::size_t count = 0;
    for (const fs::path& file : files) {
        const std::string from = folderOf(file, folders);
        const std::string text = '\n' + test::contentOf(file);
        for (std::sregex_iterator at(text.begin(), text.end(), include), end; at != end; ++at) {
            const auto header = headers.find((*at)[1]);
            if (header == headers.end()) {
                // Generated from a file of the same folder.
                const std::string stem = fs::path((*at)[1].str()).stem().string();
                EXPECT_TRUE(headers.count(stem + ".y") != 0) << file << ": " << (*at)[1];
                continue;
            }
            ++count;
            EXPECT_TRUE(header->second == from || folders.at(from).count(header->second) != 0)
                << fs::relative(file, theTree) << " of " << from << " includes " << header->first
                << " of " << header->second;
        }
    }
    EXPECT_GE(count, 100u);
}

}  // namespace
}  // namespace lumnis
