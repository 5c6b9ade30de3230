// Runs a fuzzer's function over kept inputs, without a fuzzer: each argument is a file, or a
// folder whose files are taken in the order of their names. A folder that is not there is empty.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize);

namespace {

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& thePath) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_regular_file(thePath)) {
        files.push_back(thePath);
    } else if (std::filesystem::is_directory(thePath)) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(thePath)) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int theCount, char** theArguments) {
    std::size_t runs = 0;
    for (int i = 1; i < theCount; ++i) {
        for (const auto& file : filesOf(theArguments[i])) {
            // Told before the run: the last name is that of the input that failed.
            std::printf("%s\n", file.c_str());
            std::fflush(stdout);
            std::ifstream stream(file, std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++runs;
        }
    }
    // A folder that was moved must not pass for a test that holds.
    return runs == 0 ? 1 : 0;
}
