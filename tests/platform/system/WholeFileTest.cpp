#include "platform/system/WholeFile.h"

#include "support/RefusedSystemCall.h"
#include "support/ScopedFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostBytes = 1 << 20;

std::string contentOf(const fs::path& file) {
    auto read = readWholeFile(file, mostBytes);
    if (const auto* error = std::get_if<std::error_code>(&read)) return "error: " + error->message();
    return std::get<std::string>(read);
}

std::size_t filesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// A process of its own that does something; its answer is the exit status.
pid_t inChild(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    return child;
}

int statusOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

// No file of this process's grows beyond so many bytes while this lives: a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &was_);
        rlimit limit = was_;
        limit.rlim_cur = bytes;
        signal_ = std::signal(SIGXFSZ, SIG_IGN); // the system ends a process that does not ask for the error
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &was_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit was_{};
    void (*signal_)(int) = nullptr;
};

class WholeFile : public testing::Test {
protected:
    const slantwise_tests::ScopedFolder folder;
    const fs::path file = folder.path() / "file";
};

TEST_F(WholeFile, HoldsWhatWasWrittenLast) {
    EXPECT_FALSE(writeWholeFile(file, "one", ExistingFile::replace));
    EXPECT_EQ(contentOf(file), "one");
    EXPECT_FALSE(writeWholeFile(file, "", ExistingFile::replace));
    EXPECT_EQ(contentOf(file), "");
    const std::string large(mostBytes, 'x');
    EXPECT_FALSE(writeWholeFile(file, large, ExistingFile::replace));
    EXPECT_EQ(contentOf(file), large);
    EXPECT_EQ(filesIn(folder.path()), 1u) << "nothing is left beside it";
}

TEST_F(WholeFile, ANameThatIsTakenIsKeptWhereThatIsAsked) {
    EXPECT_FALSE(writeWholeFile(file, "mine", ExistingFile::keep));
    EXPECT_EQ(writeWholeFile(file, "yours", ExistingFile::keep), std::errc::file_exists);
    EXPECT_EQ(contentOf(file), "mine");
    EXPECT_EQ(filesIn(folder.path()), 1u);
}

TEST_F(WholeFile, OnAFullDiskTheFormerFileStaysAndNothingElse) {
    ASSERT_FALSE(writeWholeFile(file, "former", ExistingFile::replace));
    std::error_code error;
    {
        const FullDisk full(1000);
        error = writeWholeFile(file, std::string(2000, 'x'), ExistingFile::replace);
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_FALSE(error.message().empty());
    EXPECT_EQ(contentOf(file), "former");
    EXPECT_EQ(filesIn(folder.path()), 1u);
}

TEST_F(WholeFile, InAReadOnlyFolderTheFormerFileStays) {
    ASSERT_FALSE(writeWholeFile(file, "former", ExistingFile::replace));
    fs::permissions(folder.path(),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    constexpr uid_t nobody = 65534; // who may do anything is not stopped by permissions
    const int status = statusOf(inChild([&] {
        if (geteuid() == 0 && setuid(nobody) != 0) return 2;
        return writeWholeFile(file, "later", ExistingFile::replace) == std::errc::permission_denied ? 0 : 1;
    }));
    EXPECT_EQ(status, 0);
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(contentOf(file), "former");
    EXPECT_EQ(filesIn(folder.path()), 1u);
}

// Network file systems know no renaming that leaves a taken name alone.
TEST_F(WholeFile, AnOlderFileSystemHasFilesToo) {
    const int status = statusOf(inChild([&] {
        if (!slantwise_tests::refuseSystemCall(SYS_renameat2, EINVAL)) return 2;
        if (writeWholeFile(file, "first", ExistingFile::keep)) return 3;
        return writeWholeFile(file, "second", ExistingFile::keep) == std::errc::file_exists ? 0 : 1;
    }));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(contentOf(file), "first");
    EXPECT_EQ(filesIn(folder.path()), 1u);
}

TEST_F(WholeFile, WithoutItsFolderThereIsAReason) {
    EXPECT_EQ(writeWholeFile(folder.path() / "none" / "file", "x", ExistingFile::replace),
              std::errc::no_such_file_or_directory);
}

// Two that save under the same name: one has it, and the other one knows that it has not.
TEST_F(WholeFile, OfSeveralProcessesOneGetsAFreeName) {
    for (int round = 0; round < 20; ++round) {
        fs::remove(file);
        std::vector<pid_t> children;
        for (const char letter : {'a', 'b', 'c', 'd'})
            children.push_back(inChild(
                [&, letter] { return writeWholeFile(file, std::string(5000, letter), ExistingFile::keep) ? 1 : 0; }));
        std::string winners;
        for (std::size_t i = 0; i < children.size(); ++i)
            if (statusOf(children[i]) == 0) winners += static_cast<char>('a' + i);
        ASSERT_EQ(winners.size(), 1u);
        ASSERT_EQ(contentOf(file), std::string(5000, winners[0]));
        ASSERT_EQ(filesIn(folder.path()), 1u);
    }
}

// Killed at any moment: what can be read is one of the two texts, and all of it.
TEST_F(WholeFile, AProcessKilledInMidWriteLeavesAWholeFile) {
    const std::string one(200'000, '1'), two(150'000, '2');
    ASSERT_FALSE(writeWholeFile(file, one, ExistingFile::replace));
    for (int round = 0; round < 25; ++round) {
        const pid_t child = inChild([&] {
            for (;;) {
                if (writeWholeFile(file, two, ExistingFile::replace)) return 1;
                if (writeWholeFile(file, one, ExistingFile::replace)) return 1;
            }
        });
        std::this_thread::sleep_for(std::chrono::microseconds(1500 + 370 * round));
        kill(child, SIGKILL);
        EXPECT_TRUE(WIFSIGNALED(statusOf(child)));
        const std::string content = contentOf(file);
        ASSERT_TRUE(content == one || content == two) << content.size() << " bytes";
    }
}

TEST_F(WholeFile, WhatAKilledProcessLeftIsTakenAwayOnceItIsOld) {
    const fs::path old = folder.path() / ".slantwise-12-3-4.part", fresh = folder.path() / ".slantwise-12-5-6.part";
    const fs::path foreign = folder.path() / ".other.part";
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(48);
    for (const fs::path& path : {old, fresh, foreign})
        std::ofstream(path) << "half of";
    fs::last_write_time(old, longAgo);
    fs::last_write_time(foreign, longAgo);
    ASSERT_FALSE(writeWholeFile(file, "x", ExistingFile::replace));
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(fresh)) << "somebody may be writing it";
    EXPECT_TRUE(fs::exists(foreign));
}

TEST_F(WholeFile, ALinkStaysOneAndPermissionsStay) {
    const fs::path elsewhere = folder.path() / "elsewhere";
    std::ofstream(elsewhere) << "former";
    fs::permissions(elsewhere, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("elsewhere", file);
    ASSERT_FALSE(writeWholeFile(file, "later", ExistingFile::replace));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(contentOf(elsewhere), "later");
    EXPECT_EQ(fs::status(elsewhere).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(WholeFile, ALinkToWhatIsNotThereYetStaysOne) {
    fs::create_symlink("second", file);
    fs::create_symlink("elsewhere", folder.path() / "second");
    ASSERT_FALSE(writeWholeFile(file, "new", ExistingFile::replace));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "second"));
    EXPECT_EQ(contentOf(folder.path() / "elsewhere"), "new");
}

TEST_F(WholeFile, IsReadUpToTheLengthThatIsAsked) {
    ASSERT_FALSE(writeWholeFile(file, "12345", ExistingFile::replace));
    EXPECT_EQ(readWholeFile(file, 5), (std::variant<std::string, std::error_code>("12345")));
    EXPECT_EQ(std::get<std::error_code>(readWholeFile(file, 4)), std::errc::file_too_large);
}

TEST_F(WholeFile, WhatIsNoPlainFileIsNotRead) {
    EXPECT_EQ(std::get<std::error_code>(readWholeFile(file, 5)), std::errc::no_such_file_or_directory);
    EXPECT_EQ(std::get<std::error_code>(readWholeFile(folder.path(), 5)), std::errc::is_a_directory);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(std::get<std::error_code>(readWholeFile(file, 5)), std::errc::not_supported);
}

} // namespace
} // namespace QVM_NAMESPACE
