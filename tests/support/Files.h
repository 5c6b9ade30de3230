// Files of a test: a folder that goes with it, and whole contents.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace lumnis::test {

// An empty folder with a name of its own, removed with all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "lumnis-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        pathM = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(pathM, error);
    }

    const std::filesystem::path& get() const { return pathM; }

  private:
    std::filesystem::path pathM;
};

// Empty for a file that cannot be read.
inline std::string contentOf(const std::filesystem::path& thePath) {
    std::ifstream stream(thePath, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Without their ends; the last one need not have any.
inline std::vector<std::string> linesOf(const std::string& theText) {
    std::istringstream stream(theText);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace lumnis::test
