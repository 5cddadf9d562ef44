// The entry points of EGL and OpenGL, fetched at run time: nothing is linked, and a machine without them loses nothing.
#pragma once

#include "BuildNamespace.h"

#define EGL_NO_X11
#define MESA_EGL_NO_X11_HEADERS
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/glcorearb.h>

namespace QVM_NAMESPACE {

// PFN...PROC in capitals, and the name without its prefix.
#define QVM_EGL_FUNCTIONS(X)                                                                                           \
    X(PFNEGLBINDAPIPROC, BindAPI)                                                                                      \
    X(PFNEGLCREATECONTEXTPROC, CreateContext)                                                                          \
    X(PFNEGLDESTROYCONTEXTPROC, DestroyContext)                                                                        \
    X(PFNEGLGETCURRENTCONTEXTPROC, GetCurrentContext)                                                                  \
    X(PFNEGLGETCURRENTDISPLAYPROC, GetCurrentDisplay)                                                                  \
    X(PFNEGLGETCURRENTSURFACEPROC, GetCurrentSurface)                                                                  \
    X(PFNEGLINITIALIZEPROC, Initialize)                                                                                \
    X(PFNEGLMAKECURRENTPROC, MakeCurrent)                                                                              \
    X(PFNEGLQUERYAPIPROC, QueryAPI)                                                                                    \
    X(PFNEGLQUERYSTRINGPROC, QueryString)

#define QVM_GL_FUNCTIONS(X)                                                                                            \
    X(PFNGLATTACHSHADERPROC, AttachShader)                                                                             \
    X(PFNGLBINDATTRIBLOCATIONPROC, BindAttribLocation)                                                                 \
    X(PFNGLBINDBUFFERPROC, BindBuffer)                                                                                 \
    X(PFNGLBINDFRAMEBUFFERPROC, BindFramebuffer)                                                                       \
    X(PFNGLBINDTEXTUREPROC, BindTexture)                                                                               \
    X(PFNGLBINDVERTEXARRAYPROC, BindVertexArray)                                                                       \
    X(PFNGLBLENDEQUATIONPROC, BlendEquation)                                                                           \
    X(PFNGLBLENDFUNCPROC, BlendFunc)                                                                                   \
    X(PFNGLBUFFERDATAPROC, BufferData)                                                                                 \
    X(PFNGLCHECKFRAMEBUFFERSTATUSPROC, CheckFramebufferStatus)                                                         \
    X(PFNGLCLEARCOLORPROC, ClearColor)                                                                                 \
    X(PFNGLCLEARPROC, Clear)                                                                                           \
    X(PFNGLCOMPILESHADERPROC, CompileShader)                                                                           \
    X(PFNGLCREATEPROGRAMPROC, CreateProgram)                                                                           \
    X(PFNGLCREATESHADERPROC, CreateShader)                                                                             \
    X(PFNGLDELETEBUFFERSPROC, DeleteBuffers)                                                                           \
    X(PFNGLDELETEFRAMEBUFFERSPROC, DeleteFramebuffers)                                                                 \
    X(PFNGLDELETEPROGRAMPROC, DeleteProgram)                                                                           \
    X(PFNGLDELETESHADERPROC, DeleteShader)                                                                             \
    X(PFNGLDELETETEXTURESPROC, DeleteTextures)                                                                         \
    X(PFNGLDELETEVERTEXARRAYSPROC, DeleteVertexArrays)                                                                 \
    X(PFNGLDISABLEPROC, Disable)                                                                                       \
    X(PFNGLDRAWARRAYSPROC, DrawArrays)                                                                                 \
    X(PFNGLENABLEPROC, Enable)                                                                                         \
    X(PFNGLENABLEVERTEXATTRIBARRAYPROC, EnableVertexAttribArray)                                                       \
    X(PFNGLFRAMEBUFFERTEXTURE2DPROC, FramebufferTexture2D)                                                             \
    X(PFNGLGENBUFFERSPROC, GenBuffers)                                                                                 \
    X(PFNGLGENFRAMEBUFFERSPROC, GenFramebuffers)                                                                       \
    X(PFNGLGENTEXTURESPROC, GenTextures)                                                                               \
    X(PFNGLGENVERTEXARRAYSPROC, GenVertexArrays)                                                                       \
    X(PFNGLGETERRORPROC, GetError)                                                                                     \
    X(PFNGLGETPROGRAMIVPROC, GetProgramiv)                                                                             \
    X(PFNGLGETSTRINGPROC, GetString)                                                                                   \
    X(PFNGLGETUNIFORMLOCATIONPROC, GetUniformLocation)                                                                 \
    X(PFNGLLINKPROGRAMPROC, LinkProgram)                                                                               \
    X(PFNGLREADPIXELSPROC, ReadPixels)                                                                                 \
    X(PFNGLSCISSORPROC, Scissor)                                                                                       \
    X(PFNGLSHADERSOURCEPROC, ShaderSource)                                                                             \
    X(PFNGLTEXIMAGE2DPROC, TexImage2D)                                                                                 \
    X(PFNGLTEXPARAMETERIPROC, TexParameteri)                                                                           \
    X(PFNGLUNIFORM2FPROC, Uniform2f)                                                                                   \
    X(PFNGLUSEPROGRAMPROC, UseProgram)                                                                                 \
    X(PFNGLVERTEXATTRIBPOINTERPROC, VertexAttribPointer)                                                               \
    X(PFNGLVIEWPORTPROC, Viewport)

#define QVM_DECLARE(type, name) type name = nullptr;

struct EglApi {
    QVM_EGL_FUNCTIONS(QVM_DECLARE)
    // From extensions; null where there are none.
    PFNEGLGETPLATFORMDISPLAYEXTPROC GetPlatformDisplayEXT = nullptr;
    PFNEGLQUERYDEVICESEXTPROC QueryDevicesEXT = nullptr;
    PFNEGLQUERYDEVICESTRINGEXTPROC QueryDeviceStringEXT = nullptr;
    PFNEGLGETPROCADDRESSPROC GetProcAddress = nullptr;

    // The process's, or null when there is no such library or it is too old. Main thread; never unloaded.
    static const EglApi* get();
};

struct GlApi {
    QVM_GL_FUNCTIONS(QVM_DECLARE)

    // False when one is missing.
    bool load(const EglApi& egl);
};

#undef QVM_DECLARE

} // namespace QVM_NAMESPACE
