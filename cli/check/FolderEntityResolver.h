// Reads external entities from the files of one folder and of those below it, and from nowhere
// else: no other folder, no link that leads out of it, no network, nothing but ordinary files.
#pragma once

#include <filesystem>
#include <map>
#include <memory>

#include "XpEntityResolver.h"

namespace lumnis {

class FolderEntityResolver final : public XpEntityResolver {
  public:
    // A system identifier is a path from theFolder on.
    explicit FolderEntityResolver(const std::filesystem::path& theFolder);

    const CpsString* fetch(const CpsString* theSystemId, const CpsString* thePublicId) override;
    void release(const CpsString* theText) override;

  private:
    std::filesystem::path folderM;  // absolute, without links; empty if there is none
    std::map<const CpsString*, std::unique_ptr<const CpsString>> textsM;
};

}  // namespace lumnis
