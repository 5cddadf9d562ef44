// The process's off-screen OpenGL context: no window, no display server. Main thread.
#pragma once

#include "platform/surface/GlApi.h"
#include "platform/surface/HostGlContext.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

// Whether a renderer that runs on the processor will do.
enum class GlRenderer : unsigned char { hardware, any };

class GlContext {
public:
    // The context in use, or a new one; it lives as long as somebody holds it. Null when there can be none: then
    // `problem` says why, or is empty when it is only that no hardware renderer is there (which is found out without
    // loading a driver where the system allows).
    static std::shared_ptr<GlContext> acquire(GlRenderer renderer, std::string& problem);
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    const GlApi& gl() const { return gl_; }
    const std::string& rendererName() const { return rendererName_; }

    // While it lives the context is current on this thread; then the host's own is again.
    class Current {
    public:
        explicit Current(const GlContext& context);
        ~Current();
        Current(const Current&) = delete;
        Current& operator=(const Current&) = delete;
        // False: nothing may be drawn.
        explicit operator bool() const { return isCurrent_; }

    private:
        const GlContext& context_;
        HostGlContext host_;
        bool isCurrent_ = false;
    };

private:
    GlContext(const EglApi& egl, EGLDisplay display) : egl_(egl), display_(display) {}
    bool create(std::string& problem);

    const EglApi& egl_;
    // Initialised once and never terminated: the host may hold the same one.
    EGLDisplay display_;
    EGLContext context_ = EGL_NO_CONTEXT;
    GlApi gl_;
    std::string rendererName_;
    bool isHardware_ = false;
};

} // namespace QVM_NAMESPACE
