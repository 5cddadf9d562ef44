#include "preferences/PreferenceFile.h"

#include "platform/system/Log.h"
#include "support/ScopedFolder.h"
#include "support/ScopedVariable.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <thread>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace QVM_NAMESPACE {
namespace {

using slantwise_tests::ScopedFolder;
using slantwise_tests::ScopedVariable;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

namespace fs = std::filesystem;

class PreferenceFileTest : public testing::Test {
protected:
    fs::path path() const { return folder_.path() / "of" / "slantwise" / "preferences"; }
    PreferenceFile file() const { return PreferenceFile(path()); }
    void write(std::string_view content) const {
        fs::create_directories(path().parent_path());
        std::ofstream(path(), std::ios::binary) << content;
    }
    std::string content() const {
        std::ifstream in(path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    ScopedFolder folder_;
    std::vector<std::string> logged_;
    ScopedLogSink sink_{[this](const std::string& line) { logged_.push_back(line); }};
};

TEST_F(PreferenceFileTest, OfNobodyIsEmptyAndNothingIsMadeByLooking) {
    EXPECT_THAT(file().read(), IsEmpty());
    EXPECT_THAT(logged_, IsEmpty());
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(PreferenceFileTest, WhatIsRememberedIsReadByTheNext) {
    file().remember("theme", 1);
    file().remember("scale", 1.25);
    file().remember("theme", 0);
    EXPECT_THAT(file().read(), ElementsAre(Pair("scale", 1.25), Pair("theme", 0)));
    EXPECT_EQ(content(), "theme = 0\nscale = 1.25\n");
    EXPECT_THAT(logged_, IsEmpty());
}

// As for each repeat of a key that is held down.
TEST_F(PreferenceFileTest, WhatItHoldsAlreadyIsNotWrittenAgain) {
    file().remember("scale", 1.25);
    const fs::path before = folder_.path() / "before";
    fs::create_hard_link(path(), before); // each write makes a file of its own
    file().remember("scale", 1.25);
    EXPECT_TRUE(fs::equivalent(path(), before));
    file().remember("scale", 1.5);
    EXPECT_FALSE(fs::equivalent(path(), before));
    EXPECT_EQ(content(), "scale = 1.5\n");
}

TEST_F(PreferenceFileTest, OneThatCannotBeReadCountsAsAbsentWithALineInTheLog) {
    write(std::string_view("\x7F\x45LF\0scale = 2\n", 15));
    EXPECT_THAT(file().read(), IsEmpty());
    ASSERT_THAT(logged_, SizeIs(1));
    EXPECT_THAT(logged_.front(), HasSubstr(path().string()));
    file().remember("scale", 2); // and is one again
    EXPECT_THAT(file().read(), ElementsAre(Pair("scale", 2)));
    EXPECT_THAT(logged_, SizeIs(1));
}

TEST_F(PreferenceFileTest, OneThatIsTooLargeOrAFolderCountsAsAbsent) {
    write(std::string(1 << 20, '\n'));
    EXPECT_THAT(file().read(), IsEmpty());
    fs::remove(path());
    fs::create_directory(path());
    EXPECT_THAT(file().read(), IsEmpty());
    EXPECT_THAT(logged_, SizeIs(2));
    file().remember("scale", 2); // is not possible, and does no more than say so
    EXPECT_THAT(logged_, SizeIs(3));
    EXPECT_TRUE(fs::is_directory(path()));
}

TEST_F(PreferenceFileTest, NoHomeMeansNothingIsRemembered) {
    const PreferenceFile nowhere{{}};
    nowhere.remember("scale", 2);
    EXPECT_THAT(nowhere.read(), IsEmpty());
    EXPECT_THAT(logged_, IsEmpty());
}

TEST_F(PreferenceFileTest, TheUsersIsInTheProductsFolder) {
    const ScopedVariable config("XDG_CONFIG_HOME", folder_.path().string());
    PreferenceFile::ofUser().remember("scale", 2);
    EXPECT_TRUE(fs::exists(folder_.path() / "slantwise" / "preferences"));
}

TEST_F(PreferenceFileTest, AFolderThatCannotBeWrittenLeavesALineInTheLog) {
    const PreferenceFile nowhere("/proc/slantwise/preferences");
    nowhere.remember("scale", 2);
    EXPECT_THAT(logged_, SizeIs(1));
    EXPECT_THAT(nowhere.read(), IsEmpty());
}

// Each in a process of its own, as instances of several hosts are, and each with a key of its own.
TEST_F(PreferenceFileTest, ManyInstancesAtOnceLoseNoneOfTheirKeys) {
    constexpr int instances = 6, writes = 10;
    std::vector<pid_t> children;
    for (int i = 0; i < instances; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            for (int n = 1; n <= writes; ++n)
                file().remember("key" + std::to_string(i), n);
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    const Preferences kept = file().read();
    EXPECT_THAT(kept, SizeIs(instances));
    for (const auto& [key, value] : kept)
        EXPECT_EQ(value, writes) << key;
}

TEST_F(PreferenceFileTest, ThreadsOfOneProcessLoseNoneOfTheirKeysEither) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([this, i] {
            for (int n = 1; n <= 10; ++n)
                file().remember("key" + std::to_string(i) + "." + std::to_string(n), n);
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(file().read(), SizeIs(40));
}

TEST_F(PreferenceFileTest, AnInstanceThatIsKilledInTheMiddleLeavesTheFileWhole) {
    file().remember("theme", 1);
    for (int i = 0; i < 10; ++i) {
        const pid_t child = fork();
        if (child == 0)
            for (int n = 0;; ++n)
                file().remember("scale", 1 + n % 100);
        usleep(static_cast<useconds_t>(2000 + 900 * i));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        EXPECT_EQ(file().read().at("theme"), 1);
    }
    EXPECT_THAT(logged_, IsEmpty());
}

TEST_F(PreferenceFileTest, OneThatNeverLetsGoIsNotWaitedForForEver) {
    file().remember("theme", 1);
    const int folder = open(path().parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(folder, LOCK_EX), 0);
    const auto start = std::chrono::steady_clock::now();
    file().remember("scale", 2);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_THAT(file().read(), SizeIs(2));
    close(folder);
}

} // namespace
} // namespace QVM_NAMESPACE
