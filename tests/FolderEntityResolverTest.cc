// External entities come from the document's folder and from nowhere else.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "Files.h"
#include "FolderEntityResolver.h"

namespace lumnis {
namespace {

class FolderEntityResolverTest : public testing::Test {
  protected:
    FolderEntityResolverTest() {
        std::filesystem::create_directories(rootM / "documents/below");
        write("documents/here.ent", std::string("a\0b", 3));
        write("documents/below/there.ent", "below");
        write("outside.ent", "outside");
        write("documents2.ent", "beside");
        std::filesystem::create_symlink("below/there.ent", rootM / "documents/link.ent");
        std::filesystem::create_symlink("../outside.ent", rootM / "documents/way-out.ent");
        std::filesystem::create_symlink("..", rootM / "documents/up");
        mkfifo((rootM / "documents/pipe.ent").c_str(), 0600);
    }

    void write(const char* theName, const std::string& theText) {
        std::ofstream(rootM / theName, std::ios::binary) << theText;
    }
    // The text behind theSystemId, "(none)" if there is none.
    std::string fetch(const std::string& theSystemId) {
        FolderEntityResolver resolver(rootM / "documents");
        const CpsString systemId{std::string_view(theSystemId)};
        const CpsString* text = resolver.fetch(&systemId, nullptr);
        if (text == nullptr) {
            return "(none)";
        }
        std::string result(text->view());
        resolver.release(text);
        return result;
    }

    const test::TemporaryFolder folderM;
    const std::filesystem::path& rootM = folderM.get();
};

TEST_F(FolderEntityResolverTest, readsFilesOfTheFolder) {
    EXPECT_EQ(std::string("a\0b", 3), fetch("here.ent"));
    EXPECT_EQ("below", fetch("below/there.ent"));
    EXPECT_EQ("below", fetch("./below/../below/there.ent"));
    EXPECT_EQ("below", fetch("link.ent"));
}

TEST_F(FolderEntityResolverTest, readsNothingElse) {
    const std::string absolute = (rootM / "documents/here.ent").string();
    for (const std::string& name :
         {std::string("../outside.ent"), std::string("below/../../outside.ent"),
          std::string("way-out.ent"), std::string("up/outside.ent"),
          std::string("../documents2.ent"), absolute, "file://" + absolute,
          std::string("http://example.com/x"), std::string("missing.ent"), std::string("below"),
          std::string("pipe.ent"), std::string(), std::string("."),
          std::string("here.ent\0.txt", 13)}) {
        EXPECT_EQ("(none)", fetch(name)) << name;
    }
    FolderEntityResolver resolver(rootM / "documents");
    EXPECT_EQ(nullptr, resolver.fetch(nullptr, nullptr));
}

TEST_F(FolderEntityResolverTest, readsNothingWithoutAFolder) {
    FolderEntityResolver resolver(rootM / "no such folder");
    const CpsString name("here.ent");
    EXPECT_EQ(nullptr, resolver.fetch(&name, nullptr));
}

}  // namespace
}  // namespace lumnis
