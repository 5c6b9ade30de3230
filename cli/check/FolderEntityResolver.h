// Reads external entities from the files of one folder and of those below it, and from nowhere
// else: no other folder, no link that leads out of it, no network, nothing but ordinary files.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string_view>

#include "XpEntityResolver.h"

namespace lumnis {

// A file is read once, and what has been read is kept until the resolver goes: one for each
// document.
class FolderEntityResolver final : public XpEntityResolver {
  public:
    // A system identifier is a path from theFolder on.
    explicit FolderEntityResolver(const std::filesystem::path& theFolder);

    const CpsString* fetch(const CpsString* theSystemId, const CpsString* thePublicId) override;
    void release(const CpsString* theText) override;

  private:
    std::unique_ptr<const CpsString> read(std::string_view theSystemId) const;

    std::filesystem::path folderM;  // absolute, without links; empty if there is none
    // By system identifier; null where nothing could be read.
    std::map<CpsString, std::unique_ptr<const CpsString>> textsM;
};

}  // namespace lumnis
