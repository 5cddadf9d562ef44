#include "platform/surface/HostGlContext.h"

#include <dlfcn.h>

namespace QVM_NAMESPACE {

namespace {

// Only if it is there already: a host that did not load it has nothing current.
void* loadedLibrary(const char* name) {
    return ::dlopen(name, RTLD_LAZY | RTLD_NOLOAD);
}

template <class Function>
bool find(void* library, const char* name, Function& to) {
    to = reinterpret_cast<Function>(::dlsym(library, name));
    return to != nullptr;
}

} // namespace

bool HostGlContext::Glx::load(void* library) {
    return find(library, "glXGetCurrentDisplay", currentDisplay) &&
           find(library, "glXGetCurrentDrawable", currentDrawable) &&
           find(library, "glXGetCurrentReadDrawable", currentReadDrawable) &&
           find(library, "glXGetCurrentContext", currentContext) &&
           find(library, "glXMakeContextCurrent", makeContextCurrent);
}

HostGlContext::HostGlContext(const EglApi& egl) : egl_(egl) {
    glxLibrary_ = loadedLibrary("libGLX.so.0");
    if (!glxLibrary_) glxLibrary_ = loadedLibrary("libGL.so.1");
    if (glxLibrary_ && glx_.load(glxLibrary_)) glxContext_ = glx_.currentContext();
    if (glxContext_) {
        glxDisplay_ = glx_.currentDisplay();
        glxDraw_ = glx_.currentDrawable();
        glxRead_ = glx_.currentReadDrawable();
        glx_.makeContextCurrent(glxDisplay_, 0, 0, nullptr);
    }
    // EGL keeps one context for each client interface; which one is asked about is a setting of the thread.
    eglClientApi_ = egl.QueryAPI();
    egl.BindAPI(EGL_OPENGL_API);
    eglContext_ = egl.GetCurrentContext();
    if (eglContext_ == EGL_NO_CONTEXT) return;
    eglDisplay_ = egl.GetCurrentDisplay();
    eglDraw_ = egl.GetCurrentSurface(EGL_DRAW);
    eglRead_ = egl.GetCurrentSurface(EGL_READ);
}

HostGlContext::~HostGlContext() {
    if (eglContext_ != EGL_NO_CONTEXT) egl_.MakeCurrent(eglDisplay_, eglDraw_, eglRead_, eglContext_);
    if (eglClientApi_ != EGL_NONE) egl_.BindAPI(eglClientApi_);
    if (glxContext_) glx_.makeContextCurrent(glxDisplay_, glxDraw_, glxRead_, glxContext_);
    if (glxLibrary_) ::dlclose(glxLibrary_);
}

} // namespace QVM_NAMESPACE
