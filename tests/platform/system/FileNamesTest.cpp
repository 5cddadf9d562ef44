#include "platform/system/FileNames.h"

#include "support/ScopedFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace QVM_NAMESPACE {
namespace {

namespace fs = std::filesystem;

class FileNamesTest : public testing::Test {
protected:
    void write(const fs::path& file, const char* text) { std::ofstream(file) << text; }
    std::string textOf(const fs::path& file) {
        std::ifstream in(file);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    slantwise_tests::ScopedFolder folder;
    const fs::path one = folder.path() / "one", other = folder.path() / "other";
};

TEST_F(FileNamesTest, AFileLeadsToItselfWhetherItIsThereOrNot) {
    EXPECT_EQ(withoutLinks(one), one);
    write(one, "1");
    EXPECT_EQ(withoutLinks(one), one);
}

TEST_F(FileNamesTest, ChainsOfLinksAreFollowedToWhatIsNotThereYet) {
    fs::create_symlink("middle", one);
    fs::create_symlink(other, folder.path() / "middle");
    EXPECT_EQ(withoutLinks(one), other);
}

TEST_F(FileNamesTest, LinksThatGoRoundLeadToThemselves) {
    fs::create_symlink(other, one);
    fs::create_symlink(one, other);
    EXPECT_EQ(withoutLinks(one), one);
}

TEST_F(FileNamesTest, ANameThatNobodyHasIsGiven) {
    write(one, "1");
    EXPECT_FALSE(renameToNew(one, other));
    EXPECT_FALSE(fs::exists(one));
    EXPECT_EQ(textOf(other), "1");
}

TEST_F(FileNamesTest, ANameThatSomebodyHasIsNot) {
    write(one, "1");
    write(other, "2");
    EXPECT_EQ(renameToNew(one, other), std::errc::file_exists);
    EXPECT_EQ(textOf(one), "1");
    EXPECT_EQ(textOf(other), "2");
}

} // namespace
} // namespace QVM_NAMESPACE
