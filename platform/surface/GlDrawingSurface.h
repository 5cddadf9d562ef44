// Draws with OpenGL, off screen. What is drawn is collected and goes to the renderer in finish(), so that the host's
// own context is put aside once a picture.
#pragma once

#include "platform/surface/DrawingSurface.h"
#include "platform/surface/GlPainter.h"

#include <memory>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class GlDrawingSurface final : public DrawingSurface {
public:
    // Null when there is no such renderer, with `problem` as for GlContext::acquire.
    static std::unique_ptr<GlDrawingSurface> make(GlRenderer renderer, std::string& problem);
    ~GlDrawingSurface() override;

    bool finish(Image& picture) override;
    const std::string& rendererName() const { return painter_->context().rendererName(); }

protected:
    void clearPixels() override;
    void strokeSegments(std::span<const StrokeSegment> segments) override;
    void fillPixels(std::span<const FilledTriangle> triangles) override;

private:
    // One line or fill: collected in the shape texture, then blended over the picture within `scissor`.
    struct Shape {
        GlProgram program;
        GLint firstVertex = 0;
        GLsizei vertexCount = 0;
        GLint x = 0, y = 0;
        GLsizei width = 0, height = 0; // of the scissor, pixels
    };
    struct Canvas {
        GLuint texture = 0, framebuffer = 0;
    };

    explicit GlDrawingSurface(std::shared_ptr<GlPainter> painter) : painter_(std::move(painter)) {}
    const GlApi& gl() const { return painter_->context().gl(); }
    void addQuad(const std::array<std::array<float, 2>, 4>& corners, GlVertex vertex);
    void addShape(GlProgram program, std::size_t firstVertex);
    bool resize();
    void draw(const Shape& shape);

    std::shared_ptr<GlPainter> painter_;
    Canvas picture_, shape_;
    int canvasWidth_ = 0, canvasHeight_ = 0; // of the textures, pixels
    std::vector<Shape> shapes_;
    std::vector<GlVertex> vertices_; // the first quad is the whole canvas
};

} // namespace QVM_NAMESPACE
