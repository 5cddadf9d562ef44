#include "platform/surface/GlContext.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

bool contains(const char* words, std::string_view word) {
    return words && std::string_view(words).find(word) != std::string_view::npos;
}

bool isSoftwareName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    constexpr std::array names{"llvmpipe", "softpipe", "swrast", "software rasterizer", "swr"};
    return std::any_of(names.begin(), names.end(), [&](const char* n) { return name.find(n) != std::string::npos; });
}

struct Devices {
    bool isKnown = false; // the system can list them
    int count = 0;
    EGLDeviceEXT hardware = EGL_NO_DEVICE_EXT;
};

Devices listDevices(const EglApi& egl) {
    Devices found;
    const char* const extensions = egl.QueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!contains(extensions, "EGL_EXT_platform_device") || !egl.QueryDevicesEXT || !egl.QueryDeviceStringEXT)
        return found;
    std::array<EGLDeviceEXT, 16> devices{};
    found.isKnown = egl.QueryDevicesEXT(static_cast<EGLint>(devices.size()), devices.data(), &found.count) == EGL_TRUE;
    for (int i = 0; found.isKnown && i < found.count; ++i) {
        EGLDeviceEXT const device = devices[static_cast<std::size_t>(i)];
        if (contains(egl.QueryDeviceStringEXT(device, EGL_EXTENSIONS), "EGL_MESA_device_software")) continue;
        found.hardware = device;
        break;
    }
    return found;
}

} // namespace

std::shared_ptr<GlContext> GlContext::acquire(GlRenderer renderer, std::string& problem) {
    static std::weak_ptr<GlContext> inUse;
    problem.clear();
    const EglApi* const egl = EglApi::get();
    if (!egl) {
        problem = "libEGL is missing or too old";
        return nullptr;
    }
    auto context = inUse.lock();
    if (!context) {
        const Devices devices = listDevices(*egl);
        const bool onlySoftware = devices.isKnown && devices.count > 0 && devices.hardware == EGL_NO_DEVICE_EXT;
        if (renderer == GlRenderer::hardware && onlySoftware) return nullptr;
        EGLDisplay const display =
            devices.hardware != EGL_NO_DEVICE_EXT
                ? egl->GetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, devices.hardware, nullptr)
                : egl->GetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        context.reset(new GlContext(*egl, display));
        if (!context->create(problem)) return nullptr;
        inUse = context;
    }
    if (renderer == GlRenderer::hardware && !context->isHardware_) return nullptr;
    return context;
}

bool GlContext::create(std::string& problem) {
    const auto fails = [&problem](const char* why) {
        problem = why;
        return false;
    };
    if (display_ == EGL_NO_DISPLAY || !egl_.Initialize(display_, nullptr, nullptr)) return fails("no EGL display");
    const char* const extensions = egl_.QueryString(display_, EGL_EXTENSIONS);
    if (!contains(extensions, "EGL_KHR_surfaceless_context") || !contains(extensions, "EGL_KHR_no_config_context"))
        return fails("the EGL display can't draw off screen");
    {
        const HostGlContext host(egl_); // which client interface a context is for is a setting of the thread
        context_ = egl_.CreateContext(display_, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, nullptr);
    }
    if (context_ == EGL_NO_CONTEXT) return fails("no OpenGL context");
    const Current current(*this);
    if (!current) return fails("the OpenGL context can't be made current");
    if (!gl_.load(egl_)) return fails("OpenGL is too old");
    const auto* const name = reinterpret_cast<const char*>(gl_.GetString(GL_RENDERER));
    rendererName_ = name ? name : "";
    isHardware_ = !isSoftwareName(rendererName_);
    return true;
}

GlContext::~GlContext() {
    if (context_ != EGL_NO_CONTEXT) egl_.DestroyContext(display_, context_);
}

GlContext::Current::Current(const GlContext& context) : context_(context), host_(context.egl_) {
    isCurrent_ = context_.egl_.MakeCurrent(context_.display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_.context_);
}

GlContext::Current::~Current() {
    if (isCurrent_) context_.egl_.MakeCurrent(context_.display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

} // namespace QVM_NAMESPACE
