#include "platform/surface/GlPainter.h"

#include "platform/surface/GlShaders.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

std::shared_ptr<GlPainter> GlPainter::acquire(GlRenderer renderer, std::string& problem) {
    static std::weak_ptr<GlPainter> inUse;
    auto context = GlContext::acquire(renderer, problem);
    if (!context) return nullptr;
    if (auto painter = inUse.lock()) return painter;
    std::shared_ptr<GlPainter> painter(new GlPainter(std::move(context)));
    if (!painter->create()) {
        problem = "the shading programs don't build on " + painter->context().rendererName();
        return nullptr;
    }
    inUse = painter;
    return painter;
}

bool GlPainter::create() {
    const GlContext::Current current(*context_);
    if (!current) return false;
    const GlApi& gl = context_->gl();
    const std::array shaders{kSegmentShader, kTriangleShader, kCompositeShader};
    for (std::size_t i = 0; i < shaders.size(); ++i) {
        programs_[i] = link(shaders[i]);
        if (programs_[i] == 0) return false;
        canvasUniforms_[i] = gl.GetUniformLocation(programs_[i], "canvas");
    }
    gl.GenVertexArrays(1, &vertexArray_);
    gl.GenBuffers(1, &vertexBuffer_);
    gl.BindVertexArray(vertexArray_);
    gl.BindBuffer(GL_ARRAY_BUFFER, vertexBuffer_);
    std::size_t offset = 0;
    for (std::size_t i = 0; i < std::size(kGlAttributeSizes); ++i) {
        const auto index = static_cast<GLuint>(i);
        gl.EnableVertexAttribArray(index);
        gl.VertexAttribPointer(index, kGlAttributeSizes[i], GL_FLOAT, GL_FALSE, sizeof(GlVertex),
                               reinterpret_cast<const void*>(offset));
        offset += static_cast<std::size_t>(kGlAttributeSizes[i]) * sizeof(float);
    }
    return gl.GetError() == GL_NO_ERROR;
}

// 0 when it does not build.
GLuint GlPainter::link(const char* fragmentShader) {
    const GlApi& gl = context_->gl();
    const GLuint program = gl.CreateProgram();
    for (const auto& [kind, text] :
         {std::pair{GL_VERTEX_SHADER, kVertexShader}, {GL_FRAGMENT_SHADER, fragmentShader}}) {
        const GLuint shader = gl.CreateShader(static_cast<GLenum>(kind));
        gl.ShaderSource(shader, 1, &text, nullptr);
        gl.CompileShader(shader);
        gl.AttachShader(program, shader);
        gl.DeleteShader(shader); // once the program goes
    }
    for (std::size_t i = 0; i < std::size(kGlAttributes); ++i)
        gl.BindAttribLocation(program, static_cast<GLuint>(i), kGlAttributes[i]);
    gl.LinkProgram(program);
    GLint isLinked = GL_FALSE;
    gl.GetProgramiv(program, GL_LINK_STATUS, &isLinked);
    if (isLinked == GL_TRUE) return program;
    gl.DeleteProgram(program);
    return 0;
}

GlPainter::~GlPainter() {
    const GlContext::Current current(*context_);
    if (!current) return;
    const GlApi& gl = context_->gl();
    for (const GLuint program : programs_)
        gl.DeleteProgram(program);
    gl.DeleteVertexArrays(1, &vertexArray_);
    gl.DeleteBuffers(1, &vertexBuffer_);
}

void GlPainter::start(std::span<const GlVertex> vertices, int width, int height) {
    const GlApi& gl = context_->gl();
    gl.Viewport(0, 0, width, height);
    gl.BindVertexArray(vertexArray_);
    gl.BindBuffer(GL_ARRAY_BUFFER, vertexBuffer_);
    gl.BufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(), GL_STREAM_DRAW);
    for (std::size_t i = 0; i < programs_.size(); ++i) {
        gl.UseProgram(programs_[i]);
        gl.Uniform2f(canvasUniforms_[i], static_cast<float>(width), static_cast<float>(height));
    }
}

void GlPainter::use(GlProgram program) {
    context_->gl().UseProgram(programs_[static_cast<std::size_t>(program)]);
}

} // namespace QVM_NAMESPACE
