// What all OpenGL drawing surfaces of the process share: the context, the shading programs and the vertex buffer.
#pragma once

#include "platform/surface/GlContext.h"

#include <array>
#include <memory>
#include <span>

namespace QVM_NAMESPACE {

struct GlVertex {
    std::array<float, 2> corner;
    std::array<float, 4> place, shape, color0, color1, color2;
};

enum class GlProgram : unsigned char { segment, triangle, composite };

class GlPainter {
public:
    // The one in use, or a new one; null with `problem` as for GlContext::acquire. Main thread, like all of it.
    static std::shared_ptr<GlPainter> acquire(GlRenderer renderer, std::string& problem);
    ~GlPainter();
    GlPainter(const GlPainter&) = delete;
    GlPainter& operator=(const GlPainter&) = delete;

    const GlContext& context() const { return *context_; }
    // The rest needs the context to be current. Uploads a picture's vertices and sets its size in pixels.
    void start(std::span<const GlVertex> vertices, int width, int height);
    void use(GlProgram program);

private:
    explicit GlPainter(std::shared_ptr<GlContext> context) : context_(std::move(context)) {}
    bool create();
    GLuint link(const char* fragmentShader);

    std::shared_ptr<GlContext> context_;
    std::array<GLuint, 3> programs_{}; // by GlProgram
    std::array<GLint, 3> canvasUniforms_{};
    GLuint vertexArray_ = 0, vertexBuffer_ = 0;
};

} // namespace QVM_NAMESPACE
