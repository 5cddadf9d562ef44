// The host's own context is as it was after each of ours.
#include "platform/surface/GlContext.h"

#include "platform/surface/GlDrawingSurface.h"

#include <gtest/gtest.h>

#include <array>
#include <dlfcn.h>

#ifndef __SANITIZE_THREAD__
namespace QVM_NAMESPACE {
namespace {

void drawSomething() {
    std::string problem;
    const auto surface = GlDrawingSurface::make(GlRenderer::any, problem);
    ASSERT_NE(surface, nullptr) << problem;
    surface->begin({20, 20}, 1);
    surface->drawLineStrip(std::vector<Vertex>{{0, 0}, {20, 20}}, {2}, Color::white(1));
    Image image;
    ASSERT_TRUE(surface->finish(image));
    EXPECT_EQ(image.pixels.at(19), 0xFFFFFFFFu);
}

TEST(GlContextTest, NothingIsCurrentAfterwardsWhenNothingWas) {
    drawSomething();
    EXPECT_EQ(EglApi::get()->GetCurrentContext(), EGL_NO_CONTEXT);
}

TEST(GlContextTest, OneContextServesAllWhoHoldIt) {
    std::string problem;
    const auto first = GlContext::acquire(GlRenderer::any, problem);
    const auto second = GlContext::acquire(GlRenderer::any, problem);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
}

TEST(GlContextTest, ContextOfAHostThatUsesEglIsCurrentAgain) {
    const EglApi& egl = *EglApi::get();
    EGLDisplay const display = egl.GetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    ASSERT_TRUE(egl.Initialize(display, nullptr, nullptr));
    for (const EGLenum clientApi : {EGL_OPENGL_API, EGL_OPENGL_ES_API}) {
        ASSERT_TRUE(egl.BindAPI(clientApi));
        const std::array<EGLint, 3> version{EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
        EGLContext const host = egl.CreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT,
                                                  clientApi == EGL_OPENGL_ES_API ? version.data() : nullptr);
        ASSERT_NE(host, EGL_NO_CONTEXT);
        ASSERT_TRUE(egl.MakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, host));
        GlApi gl;
        ASSERT_TRUE(gl.load(egl));
        gl.ClearColor(0.25f, 0.5f, 0.75f, 1);
        drawSomething();
        EXPECT_EQ(egl.GetCurrentContext(), host);
        EXPECT_EQ(egl.QueryAPI(), clientApi);
        std::array<float, 4> color{};
        const auto getFloat = reinterpret_cast<PFNGLGETFLOATVPROC>(egl.GetProcAddress("glGetFloatv"));
        getFloat(GL_COLOR_CLEAR_VALUE, color.data());
        EXPECT_EQ(color, (std::array{0.25f, 0.5f, 0.75f, 1.0f}));
        EXPECT_EQ(gl.GetError(), static_cast<GLenum>(GL_NO_ERROR));
        egl.MakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        egl.DestroyContext(display, host);
    }
    egl.BindAPI(EGL_OPENGL_ES_API);
}

// A host with a window of its own, through the functions it would use.
struct GlxHost {
    template <class F>
    static F* find(void* library, const char* name) {
        return reinterpret_cast<F*>(::dlsym(library, name));
    }
    void* x11 = ::dlopen("libX11.so.6", RTLD_NOW);
    void* glx = ::dlopen("libGLX.so.0", RTLD_NOW);
    void* display = nullptr;
    void* context = nullptr;
    unsigned long window = 0;

    bool open() {
        if (!x11 || !glx) return false;
        display = find<void*(const char*)>(x11, "XOpenDisplay")(nullptr);
        if (!display) return false;
        constexpr int rgba = 4, red = 8, green = 9, blue = 10;
        int attributes[] = {rgba, red, 8, green, 8, blue, 8, 0};
        struct VisualInfo {
            void* visual;
            unsigned long id;
            int screen, depth;
        };
        auto* const info = find<VisualInfo*(void*, int, int*)>(glx, "glXChooseVisual")(display, 0, attributes);
        if (!info) return false;
        const auto root = find<unsigned long(void*)>(x11, "XDefaultRootWindow")(display);
        // A plain child of the root takes the root's visual, which has to do for this display.
        window = find<unsigned long(void*, unsigned long, int, int, unsigned, unsigned, unsigned, unsigned long,
                                    unsigned long)>(x11, "XCreateSimpleWindow")(display, root, 0, 0, 16, 16, 0, 0, 0);
        context = find<void*(void*, VisualInfo*, void*, int)>(glx, "glXCreateContext")(display, info, nullptr, 1);
        return context && find<int(void*, unsigned long, void*)>(glx, "glXMakeCurrent")(display, window, context);
    }
    void* current() const { return find<void*()>(glx, "glXGetCurrentContext")(); }
    unsigned long drawable() const { return find<unsigned long()>(glx, "glXGetCurrentDrawable")(); }
    ~GlxHost() {
        if (!display) return;
        find<int(void*, unsigned long, void*)>(glx, "glXMakeCurrent")(display, 0, nullptr);
        if (context) find<void(void*, void*)>(glx, "glXDestroyContext")(display, context);
        find<int(void*)>(x11, "XCloseDisplay")(display);
    }
};

TEST(GlContextTest, ContextOfAHostThatUsesGlxIsCurrentAgain) {
    GlxHost host;
    if (!host.open()) GTEST_SKIP() << "needs a display with GLX";
    drawSomething();
    EXPECT_EQ(host.current(), host.context);
    EXPECT_EQ(host.drawable(), host.window);
}

} // namespace
} // namespace QVM_NAMESPACE
#endif
