#include "platform/surface/GlApi.h"

#include <dlfcn.h>

namespace QVM_NAMESPACE {

namespace {

template <class Function>
bool fetch(PFNEGLGETPROCADDRESSPROC from, const char* name, Function& to) {
    to = reinterpret_cast<Function>(from(name));
    return to != nullptr;
}

bool loadEgl(EglApi& egl) {
    void* const library = ::dlopen("libEGL.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library) return false;
    egl.GetProcAddress = reinterpret_cast<PFNEGLGETPROCADDRESSPROC>(::dlsym(library, "eglGetProcAddress"));
    if (!egl.GetProcAddress) return false;
    fetch(egl.GetProcAddress, "eglGetPlatformDisplayEXT", egl.GetPlatformDisplayEXT);
    fetch(egl.GetProcAddress, "eglQueryDevicesEXT", egl.QueryDevicesEXT);
    fetch(egl.GetProcAddress, "eglQueryDeviceStringEXT", egl.QueryDeviceStringEXT);
    bool isComplete = egl.GetPlatformDisplayEXT != nullptr;
#define QVM_FETCH(type, name) isComplete = fetch(egl.GetProcAddress, "egl" #name, egl.name) && isComplete;
    QVM_EGL_FUNCTIONS(QVM_FETCH)
#undef QVM_FETCH
    return isComplete;
}

} // namespace

const EglApi* EglApi::get() {
    static EglApi api;
    static const bool isLoaded = loadEgl(api);
    return isLoaded ? &api : nullptr;
}

bool GlApi::load(const EglApi& egl) {
    bool isComplete = true;
#define QVM_FETCH(type, name) isComplete = fetch(egl.GetProcAddress, "gl" #name, name) && isComplete;
    QVM_GL_FUNCTIONS(QVM_FETCH)
#undef QVM_FETCH
    return isComplete;
}

} // namespace QVM_NAMESPACE
