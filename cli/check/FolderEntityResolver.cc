#include "FolderEntityResolver.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>

namespace lumnis {

namespace {

bool isBelow(const std::filesystem::path& thePath, const std::filesystem::path& theFolder) {
    return std::mismatch(theFolder.begin(), theFolder.end(), thePath.begin(), thePath.end())
               .first == theFolder.end();
}

}  // namespace

FolderEntityResolver::FolderEntityResolver(const std::filesystem::path& theFolder) {
    std::error_code error;
    folderM = std::filesystem::canonical(theFolder.empty() ? "." : theFolder, error);
}

const CpsString* FolderEntityResolver::fetch(const CpsString* theSystemId, const CpsString*) {
    if (theSystemId == nullptr) {
        return nullptr;
    }
    const auto known = textsM.find(*theSystemId);
    if (known != textsM.end()) {
        return known->second.get();
    }
    std::unique_ptr<const CpsString> text = read(*theSystemId);
    return textsM.emplace(*theSystemId, std::move(text)).first->second.get();
}

std::unique_ptr<const CpsString> FolderEntityResolver::read(std::string_view theSystemId) const {
    if (theSystemId.find('\0') != std::string_view::npos) {
        return nullptr;
    }
    const std::filesystem::path name{theSystemId};
    std::error_code error;
    if (folderM.empty() || name.empty() || name.is_absolute()) {
        return nullptr;
    }
    const std::filesystem::path path = std::filesystem::canonical(folderM / name, error);
    if (error || !isBelow(path, folderM) || !std::filesystem::is_regular_file(path, error)) {
        return nullptr;
    }
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream),
                            std::istreambuf_iterator<char>()};
    if (!stream) {
        return nullptr;
    }
    return std::make_unique<const CpsString>(std::string_view(bytes));
}

// A document may refer to one text millions of times.
void FolderEntityResolver::release(const CpsString*) {}

}  // namespace lumnis
