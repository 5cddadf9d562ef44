#include "platform/surface/DrawingSurfaceFactory.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"
#include "platform/system/Log.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

bool isCpu(const std::unique_ptr<DrawingSurface>& surface) {
    return dynamic_cast<CpuDrawingSurface*>(surface.get()) != nullptr;
}

struct DrawingSurfaceFactoryTest : testing::Test {
    std::vector<std::string> lines;
    ScopedLogSink sink{[this](const std::string& line) { lines.push_back(line); }};
    ~DrawingSurfaceFactoryTest() override { ::unsetenv("SLANTWISE_RENDERER"); }
};

TEST_F(DrawingSurfaceFactoryTest, CpuCanBeForced) {
    ::setenv("SLANTWISE_RENDERER", "cpu", 1);
    EXPECT_TRUE(isCpu(makeDrawingSurface()));
    EXPECT_TRUE(lines.empty());
}

#ifndef __SANITIZE_THREAD__
TEST_F(DrawingSurfaceFactoryTest, GlCanBeForcedEvenInSoftware) {
    ::setenv("SLANTWISE_RENDERER", "gl", 1);
    EXPECT_NE(dynamic_cast<GlDrawingSurface*>(makeDrawingSurface().get()), nullptr);
    EXPECT_TRUE(lines.empty());
}

// Also while somebody holds a context that was forced.
TEST_F(DrawingSurfaceFactoryTest, WithoutAHardwareRendererTheProcessorIsTakenInSilence) {
    std::string problem;
    const auto forced = GlDrawingSurface::make(GlRenderer::any, problem);
    ASSERT_NE(forced, nullptr) << problem;
    if (forced->rendererName().find("llvmpipe") == std::string::npos) GTEST_SKIP() << forced->rendererName();
    EXPECT_TRUE(isCpu(makeDrawingSurface()));
    EXPECT_TRUE(lines.empty());
}
#endif

// In processes of their own, because what EGL finds is found once a process.
void expectOneLineAndTheProcessor(const char* renderer) {
    ::setenv("__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent.json", 1);
    if (renderer) ::setenv("SLANTWISE_RENDERER", renderer, 1);
    std::vector<std::string> lines;
    bool allCpu = true;
    {
        const ScopedLogSink sink([&](const std::string& line) { lines.push_back(line); });
        for (int i = 0; i < 3; ++i)
            allCpu = allCpu && isCpu(makeDrawingSurface());
    }
    for (const std::string& line : lines)
        logLine(line);
    std::exit(allCpu && lines.size() == 1 ? 0 : 1);
}

TEST(DrawingSurfaceFactoryDeathTest, ForcedGlThatIsNotThereFallsBackWithOneLogLine) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(expectOneLineAndTheProcessor("gl"), testing::ExitedWithCode(0),
                "drawing on the processor: OpenGL failed \\(no EGL display\\)");
}

TEST(DrawingSurfaceFactoryDeathTest, DefaultWithABrokenInstallationFallsBackWithOneLogLine) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(expectOneLineAndTheProcessor(nullptr), testing::ExitedWithCode(0),
                "drawing on the processor: OpenGL failed");
}

TEST(DrawingSurfaceFactoryDeathTest, SubstituteIsTheProcessorFromThenOn) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto run = [] {
        ::setenv("SLANTWISE_RENDERER", "gl", 1);
        const bool substituted = isCpu(makeSubstituteSurface()) && isCpu(makeSubstituteSurface());
        std::exit(substituted && isCpu(makeDrawingSurface()) ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0),
                "^drawing on the processor: OpenGL failed \\(a picture could not be drawn\\)\n$");
}

} // namespace
} // namespace QVM_NAMESPACE
