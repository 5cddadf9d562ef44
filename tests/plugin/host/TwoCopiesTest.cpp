// Two builds in one process, as a host has them that finds one bundle of the system's and one of the user's: the built
// VST3 and a copy of it under another path, which the loader takes for another library.
#include "plugin/host/Vst3Instance.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

namespace slantwise_tests {
namespace {

bool isInMemory(const std::string& path) {
    void* const library = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

// A library with one instance.
struct Build {
    explicit Build(const std::string& path) : module(path) {}
    void setGain(double normalisedValue) {
        instance.controller().setParamNormalized(instance.parameter("Output Gain").id, normalisedValue);
    }

    Vst3Module module;
    Vst3Instance instance{module};
};

class TwoCopies : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(folder_);
        std::filesystem::copy_file(original_, copy_, std::filesystem::copy_options::overwrite_existing);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    // Where one of the two is silenced the other must not be.
    static void useBoth(Build& silent, Build& sounding) {
        silent.setGain(0);
        EXPECT_LT(silent.instance.runBlocks(50), 1e-3F);
        EXPECT_GT(sounding.instance.runBlocks(50), 0.1F);
    }

    const std::filesystem::path folder_ =
        std::filesystem::path(testing::TempDir()) / ("slantwise-two-copies-" + std::to_string(getpid()));
    const std::string original_ = SLANTWISE_VST3_LIBRARY, copy_ = folder_ / "Slantwise.so";
};

TEST_F(TwoCopies, RunBesideEachOtherAndAreUnloadedInEitherOrder) {
    for (const bool isOriginalFirst : {true, false, true}) {
        auto original = std::make_unique<Build>(original_), copy = std::make_unique<Build>(copy_);
        ASSERT_TRUE(isInMemory(original_) && isInMemory(copy_));
        useBoth(*original, *copy);
        auto &first = isOriginalFirst ? original : copy, &last = isOriginalFirst ? copy : original;
        first.reset();
        last->setGain(1);
        EXPECT_GT(last->instance.runBlocks(50), 0.1F);
        last.reset();
    }
}

// An update needs no new host. The library itself may be held by a host that another test has left.
TEST_F(TwoCopies, NothingOfALibraryStaysInMemoryOnceItIsUnloaded) {
    for (int round = 0; round < 3; ++round) {
        auto original = std::make_unique<Build>(original_), copy = std::make_unique<Build>(copy_);
        useBoth(*copy, *original);
        copy.reset();
        EXPECT_FALSE(isInMemory(copy_)) << round;
        useBoth(*original, *std::make_unique<Build>(copy_));
        EXPECT_FALSE(isInMemory(copy_)) << round;
    }
}

} // namespace
} // namespace slantwise_tests
