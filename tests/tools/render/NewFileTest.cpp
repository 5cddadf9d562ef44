#include "tools/render/NewFile.h"

#include "support/RefusedSystemCall.h"
#include "tools/render/RenderFiles.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

// Both ways have to do the same.
class NewFileTest : public testing::TestWithParam<NewFile::Way> {
protected:
    static void write(const NewFile& file, const std::string& text) {
        ASSERT_EQ(file.problem(), "");
        ASSERT_EQ(::write(file.descriptor(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    std::size_t entries() const { return entriesIn(directory_.file("")); }

    audiofiles::Directory directory_;
};

TEST_P(NewFileTest, AppearsWhenItIsKept) {
    const std::string path = directory_.file("a");
    NewFile file(path, GetParam());
    write(file, "text");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(file.keep(Replace::no), "");
    EXPECT_EQ(bytesOf(path), "text");
    EXPECT_EQ(entries(), 1U);
}

TEST_P(NewFileTest, LeavesNothingWhenItIsNotKept) {
    {
        NewFile file(directory_.file("a"), GetParam());
        write(file, "text");
    }
    EXPECT_EQ(entries(), 0U);
}

TEST_P(NewFileTest, OneThatCameMeanwhileIsNotReplacedUnlessToldTo) {
    const std::string path = directory_.file("a");
    NewFile file(path, GetParam());
    write(file, "new");
    directory_.bytes("a", "old");
    EXPECT_EQ(file.keep(Replace::no), "File exists");
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_EQ(file.keep(Replace::yes), "");
    EXPECT_EQ(bytesOf(path), "new");
    EXPECT_EQ(entries(), 1U);
}

TEST_P(NewFileTest, TheReplacedOnePassesOnWhoMayReadIt) {
    const std::string path = directory_.bytes("a", "old");
    ASSERT_EQ(chmod(path.c_str(), 04640), 0); // as somebody else it runs only what its owner wrote
    NewFile file(path, GetParam());
    EXPECT_EQ(file.keep(Replace::yes), "");
    struct stat now {};
    ASSERT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777, 0640U);
}

TEST_P(NewFileTest, ALinkStaysOne) {
    const std::string target = directory_.bytes("target", "old"), path = directory_.file("link");
    std::filesystem::create_symlink("target", path);
    NewFile file(path, GetParam());
    write(file, "new");
    EXPECT_EQ(file.keep(Replace::yes), "");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(bytesOf(target), "new");
}

TEST_P(NewFileTest, ALinkToWhatIsNotThereYetStaysOne) {
    const std::string path = directory_.file("link");
    std::filesystem::create_symlink("second", path);
    std::filesystem::create_symlink("target", directory_.file("second"));
    for (const auto& [replace, text] : {std::pair{Replace::no, "new"}, std::pair{Replace::yes, "newer"}}) {
        std::filesystem::remove(directory_.file("target"));
        NewFile file(path, GetParam());
        write(file, text);
        EXPECT_EQ(file.keep(replace), "");
        EXPECT_TRUE(std::filesystem::is_symlink(path));
        EXPECT_TRUE(std::filesystem::is_symlink(directory_.file("second")));
        EXPECT_EQ(bytesOf(directory_.file("target")), text);
    }
}

TEST_P(NewFileTest, SaysWhyThereIsNoPlaceForIt) {
    EXPECT_EQ(NewFile(directory_.file("none/a"), GetParam()).problem(), "No such file or directory");
}

TEST_P(NewFileTest, AFileOfTheFolderOneStandsIn) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(directory_.file(""));
    {
        NewFile file("a", GetParam());
        write(file, "text");
        EXPECT_EQ(file.keep(Replace::no), "");
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(bytesOf(directory_.file("a")), "text");
}

INSTANTIATE_TEST_SUITE_P(BothWays, NewFileTest, testing::Values(NewFile::Way::nameless, NewFile::Way::hidden));

// Network file systems know no renaming that leaves a taken name alone. Ends the process, with 0 where one file was
// kept and the next was not.
[[noreturn]] void keepTwoOnAnOlderFileSystem(const std::string& path) {
    if (!slantwise_tests::refuseSystemCall(SYS_renameat2, EINVAL)) _exit(2);
    const std::string first = NewFile(path, NewFile::Way::hidden).keep(Replace::no);
    const std::string second = NewFile(path, NewFile::Way::hidden).keep(Replace::no);
    _exit(first.empty() && second == "File exists" ? 0 : 1);
}

TEST(NewFile, AnOlderFileSystemHasThemToo) {
    const audiofiles::Directory directory;
    EXPECT_EXIT(keepTwoOnAnOlderFileSystem(directory.file("a")), testing::ExitedWithCode(0), "");
    EXPECT_EQ(entriesIn(directory.file("")), 1U) << "no hidden name is left";
    EXPECT_TRUE(std::filesystem::exists(directory.file("a")));
}

TEST(WhyNotWritten, OnlyFilesAreReplacedAndOnlyIfAskedTo) {
    const audiofiles::Directory directory;
    EXPECT_EQ(whyNotWritten(directory.file("new"), Replace::no), "");
    const std::string there = directory.bytes("there", "x");
    EXPECT_EQ(whyNotWritten(there, Replace::no), "it is there already, and --force would replace it");
    EXPECT_EQ(whyNotWritten(there, Replace::yes), "");
    EXPECT_EQ(whyNotWritten(directory.file(""), Replace::yes), "it is a directory");
    EXPECT_EQ(whyNotWritten("/dev/null", Replace::yes), "it is no file but a pipe or a device");
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
