#include "platform/surface/DrawingSurfaceFactory.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"
#include "platform/system/Log.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

bool hasGlFailed = false; // main thread; once is enough

std::unique_ptr<DrawingSurface> giveUpGl(const std::string& problem) {
    if (!hasGlFailed) logLine("drawing on the processor: OpenGL failed (" + problem + ")");
    hasGlFailed = true;
    return std::make_unique<CpuDrawingSurface>();
}

} // namespace

std::unique_ptr<DrawingSurface> makeDrawingSurface() {
    const char* const value = std::getenv("SLANTWISE_RENDERER");
    const std::string_view wanted = value ? value : "";
    if (wanted == "cpu" || hasGlFailed) return std::make_unique<CpuDrawingSurface>();
    std::string problem;
    if (auto surface = GlDrawingSurface::make(wanted == "gl" ? GlRenderer::any : GlRenderer::hardware, problem))
        return surface;
    return problem.empty() ? std::make_unique<CpuDrawingSurface>() : giveUpGl(problem);
}

std::unique_ptr<DrawingSurface> makeSubstituteSurface() {
    return giveUpGl("a picture could not be drawn");
}

} // namespace QVM_NAMESPACE
