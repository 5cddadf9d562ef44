// Which vector units this machine has, and what is loaded to find out.
#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <dlfcn.h>

#include <cstdint>
#include <fstream>
#include <string>

namespace QVM_NAMESPACE {
namespace {

bool isLoaded(const std::string& library) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(library) != std::string::npos) return true;
    }
    return false;
}

struct MachineVectorUnits : testing::Test {
    ~MachineVectorUnits() override {
        hwy::SetSupportedTargetsForTest(0);
        hwy::DisableTargets(0);
    }
};

TEST_F(MachineVectorUnits, theVectorLibraryIsNotLoadedBecauseThatTakesMilliseconds) {
    EXPECT_FALSE(isLoaded("libhwy"));
}

TEST_F(MachineVectorUnits, areThoseThatTheVectorLibraryFinds) {
    void* const library = dlopen("libhwy.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library) GTEST_SKIP() << "no vector library to compare with";
    const auto theirs = reinterpret_cast<std::int64_t (*)()>(dlsym(library, "_ZN3hwy16SupportedTargetsEv"));
    ASSERT_NE(theirs, nullptr);
    const std::int64_t found = theirs();
    dlclose(library);
    EXPECT_EQ(hwy::SupportedTargets() & HWY_TARGETS, found & HWY_TARGETS);
}

TEST_F(MachineVectorUnits, aTestMayChooseThem) {
    hwy::SetSupportedTargetsForTest(HWY_STATIC_TARGET);
    EXPECT_EQ(hwy::SupportedTargets(), HWY_STATIC_TARGET);
    EXPECT_FALSE(hwy::GetChosenTarget().IsInitialized());
}

TEST_F(MachineVectorUnits, whatIsAlwaysThereCanNotBeTakenAway) {
    hwy::DisableTargets(~std::int64_t{0});
    EXPECT_EQ(hwy::SupportedTargets(), HWY_STATIC_TARGET);
}

} // namespace
} // namespace QVM_NAMESPACE
