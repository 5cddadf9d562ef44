// The OpenGL context that the host has current on this thread, put aside while ours is in use.
//
// A context that the host made current through GLX keeps EGL from making another one current, so it is released first.
#pragma once

#include "platform/surface/GlApi.h"

namespace QVM_NAMESPACE {

class HostGlContext {
public:
    // Remembers what is current and releases it where it would be in the way.
    explicit HostGlContext(const EglApi& egl);
    // Makes it current again.
    ~HostGlContext();
    HostGlContext(const HostGlContext&) = delete;
    HostGlContext& operator=(const HostGlContext&) = delete;

private:
    // GLX by its own functions, if the host has loaded it. Types as in the headers, without them: they bring X11 in.
    struct Glx {
        void* (*currentDisplay)() = nullptr;
        unsigned long (*currentDrawable)() = nullptr;
        unsigned long (*currentReadDrawable)() = nullptr;
        void* (*currentContext)() = nullptr;
        int (*makeContextCurrent)(void* display, unsigned long draw, unsigned long read, void* context) = nullptr;
        bool load(void* library);
    };

    const EglApi& egl_;
    EGLenum eglClientApi_ = EGL_OPENGL_ES_API;
    EGLDisplay eglDisplay_ = EGL_NO_DISPLAY;
    EGLSurface eglDraw_ = EGL_NO_SURFACE, eglRead_ = EGL_NO_SURFACE;
    EGLContext eglContext_ = EGL_NO_CONTEXT;

    void* glxLibrary_ = nullptr; // held open while it is needed
    Glx glx_;
    void *glxDisplay_ = nullptr, *glxContext_ = nullptr;
    unsigned long glxDraw_ = 0, glxRead_ = 0;
};

} // namespace QVM_NAMESPACE
