// Runs a fuzzer's entrance over files, so that every build replays the corpora and the findings.
// Arguments are files and folders; a folder that is not there counts as empty, since a fuzzer
// without findings has none.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize);

int main(int theCount, char** theArguments) {
    namespace fs = std::filesystem;
    std::vector<fs::path> files;
    for (int i = 1; i < theCount; ++i) {
        const fs::path path = theArguments[i];
        if (fs::is_directory(path)) {
            std::copy(fs::directory_iterator(path), {}, std::back_inserter(files));
        } else if (fs::exists(path)) {
            files.push_back(path);
        }
    }
    if (files.empty()) {
        std::fputs("No file to replay.\n", stderr);
        return 1;
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        // Ahead of the run: a failed property ends the process.
        std::fprintf(stderr, "%s\n", file.c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(stream), {});
        if (!stream) {
            std::fputs("Cannot be read.\n", stderr);
            return 1;
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    return 0;
}
