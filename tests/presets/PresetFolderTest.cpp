#include "presets/PresetFolder.h"

#include "support/ScopedFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include <sys/stat.h>

namespace QVM_NAMESPACE {
namespace {

namespace fs = std::filesystem;

class PresetFolderTest : public testing::Test {
protected:
    std::vector<std::string> names(PresetFolder& folder) {
        std::vector<std::string> found;
        for (const PresetStore::File& file : folder.readAll())
            found.push_back(file.fileName);
        return found;
    }
    std::string content(PresetFolder& folder, std::size_t index = 0) {
        const auto files = folder.readAll();
        const auto* text = index < files.size() ? std::get_if<std::string>(&files[index].content) : nullptr;
        return text ? *text : "none";
    }
    // One file of old is read, and then holds another text of the same length, from a moment that is so much later.
    void changeInPlace(std::chrono::milliseconds later) {
        ASSERT_FALSE(folder_.write("a.slantwise-preset", "one", ExistingFile::keep));
        const fs::path file = path / "a.slantwise-preset";
        const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
        fs::last_write_time(file, longAgo);
        EXPECT_EQ(content(folder_), "one");
        std::ofstream(file) << "two";
        fs::last_write_time(file, longAgo + later);
    }

    slantwise_tests::ScopedFolder place;
    const fs::path path = place.path() / "data" / "presets";
    PresetFolder folder_{path};
};

TEST_F(PresetFolderTest, IsNotThereBeforeTheFirstIsWritten) {
    EXPECT_TRUE(folder_.readAll().empty());
    EXPECT_FALSE(fs::exists(path.parent_path()));
    EXPECT_FALSE(folder_.write("a.slantwise-preset", "A", ExistingFile::keep));
    EXPECT_EQ(content(folder_), "A");
}

TEST_F(PresetFolderTest, ListsItsOwnKindByNameAndNothingElse) {
    ASSERT_FALSE(folder_.write("b.slantwise-preset", "B", ExistingFile::keep));
    ASSERT_FALSE(folder_.write("a.slantwise-preset", "A", ExistingFile::keep));
    std::ofstream(path / "README.md") << "of the repository";
    std::ofstream(path / ".hidden.slantwise-preset") << "hidden";
    fs::create_directory(path / ".git");
    EXPECT_EQ(names(folder_), (std::vector<std::string>{"a.slantwise-preset", "b.slantwise-preset"}));
}

TEST_F(PresetFolderTest, SaysWhyAFileCannotBeRead) {
    ASSERT_FALSE(folder_.write("a.slantwise-preset", std::string(9000, 'x'), ExistingFile::keep));
    fs::create_directory(path / "b.slantwise-preset");
    fs::create_symlink("nowhere", path / "c.slantwise-preset");
    ASSERT_EQ(mkfifo((path / "d.slantwise-preset").c_str(), 0600), 0);
    const auto files = folder_.readAll();
    ASSERT_EQ(files.size(), 4u);
    for (const PresetStore::File& file : files)
        EXPECT_TRUE(std::holds_alternative<std::error_code>(file.content)) << file.fileName;
}

TEST_F(PresetFolderTest, SeesWhatAnotherOneWrote) {
    PresetFolder other(path);
    ASSERT_FALSE(folder_.write("a.slantwise-preset", "one", ExistingFile::keep));
    EXPECT_EQ(content(other), "one");
    EXPECT_EQ(other.write("a.slantwise-preset", "two", ExistingFile::keep), std::errc::file_exists);
    ASSERT_FALSE(other.write("a.slantwise-preset", "two", ExistingFile::replace));
    EXPECT_EQ(content(folder_), "two");
    ASSERT_FALSE(other.remove("a.slantwise-preset"));
    EXPECT_TRUE(folder_.readAll().empty());
    EXPECT_FALSE(folder_.remove("a.slantwise-preset")) << "gone is gone";
}

// An editor of texts writes in place, and the length may stay.
TEST_F(PresetFolderTest, AFileThatWasChangedInPlaceIsReadAgainHoweverOldItIs) {
    changeInPlace(std::chrono::milliseconds(1));
    EXPECT_EQ(content(folder_), "two");
}

// As by what copies with times.
TEST_F(PresetFolderTest, AFileThatWasChangedInPlaceIsReadAgainThoughItsTimeIsTheSame) {
    changeInPlace(std::chrono::milliseconds(0));
    EXPECT_EQ(content(folder_), "two");
}

// Twice within one tick of the disk's clock.
TEST_F(PresetFolderTest, AFileThatWasWrittenJustNowIsReadAgainWhateverItsTime) {
    ASSERT_FALSE(folder_.write("a.slantwise-preset", "one", ExistingFile::keep));
    const fs::path file = path / "a.slantwise-preset";
    const auto time = fs::last_write_time(file);
    EXPECT_EQ(content(folder_), "one");
    std::ofstream(file) << "two";
    fs::last_write_time(file, time);
    EXPECT_EQ(content(folder_), "two");
}

TEST_F(PresetFolderTest, AFileThatCannotBeTakenAwaySaysWhy) {
    fs::create_directories(path / "a.slantwise-preset");
    EXPECT_TRUE(folder_.remove("a.slantwise-preset"));
}

TEST(PresetFolder, WithoutAHomeThereIsNoPlace) {
    PresetFolder nowhere{{}};
    EXPECT_TRUE(nowhere.readAll().empty());
    EXPECT_TRUE(nowhere.write("a.slantwise-preset", "A", ExistingFile::keep));
    EXPECT_FALSE(fs::exists("a.slantwise-preset"));
}

} // namespace
} // namespace QVM_NAMESPACE
