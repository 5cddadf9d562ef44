#include "platform/surface/GlDrawingSurface.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr GLsizei kQuadVertices = 6;

std::array<float, 4> components(Color c) {
    return {c.r, c.g, c.b, c.a};
}

std::array<std::array<float, 2>, 4> box(float left, float top, float right, float bottom) {
    return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

} // namespace

std::unique_ptr<GlDrawingSurface> GlDrawingSurface::make(GlRenderer renderer, std::string& problem) {
    auto painter = GlPainter::acquire(renderer, problem);
    if (!painter) return nullptr;
    return std::unique_ptr<GlDrawingSurface>(new GlDrawingSurface(std::move(painter)));
}

GlDrawingSurface::~GlDrawingSurface() {
    if (picture_.texture == 0) return; // nothing was made yet
    const GlContext::Current current(painter_->context());
    if (!current) return;
    for (const Canvas& canvas : {picture_, shape_}) {
        gl().DeleteFramebuffers(1, &canvas.framebuffer);
        gl().DeleteTextures(1, &canvas.texture);
    }
}

void GlDrawingSurface::clearPixels() {
    shapes_.clear();
    vertices_.clear();
    addQuad(box(0, 0, static_cast<float>(pixelWidth()), static_cast<float>(pixelHeight())), {});
}

void GlDrawingSurface::addQuad(const std::array<std::array<float, 2>, 4>& corners, GlVertex vertex) {
    for (const std::size_t i : {0u, 1u, 2u, 0u, 2u, 3u}) {
        vertex.corner = corners[i];
        vertices_.push_back(vertex);
    }
}

void GlDrawingSurface::strokeSegments(std::span<const StrokeSegment> segments) {
    const std::size_t first = vertices_.size();
    for (const StrokeSegment& s : segments) {
        // The segment's own rectangle, grown by all that it can touch.
        const float reach = s.halfWidth + 1, dx = s.to.x - s.from.x, dy = s.to.y - s.from.y;
        const float k = reach / std::hypot(dx, dy), ax = dx * k, ay = dy * k;
        GlVertex vertex{};
        vertex.place = {s.from.x, s.from.y, s.to.x, s.to.y};
        vertex.shape = {s.halfWidth, s.isCutAtFrom ? 1.0f : 0.0f, s.isCutAtTo ? 1.0f : 0.0f, 0};
        vertex.color0 = components(s.fromColor);
        vertex.color1 = components(s.toColor);
        addQuad({{{s.from.x - ax - ay, s.from.y - ay + ax},
                  {s.from.x - ax + ay, s.from.y - ay - ax},
                  {s.to.x + ax + ay, s.to.y + ay - ax},
                  {s.to.x + ax - ay, s.to.y + ay + ax}}},
                vertex);
    }
    addShape(GlProgram::segment, first);
}

void GlDrawingSurface::fillPixels(std::span<const FilledTriangle> triangles) {
    const std::size_t first = vertices_.size();
    for (const FilledTriangle& t : triangles) {
        const auto& c = t.corners;
        GlVertex vertex{};
        vertex.place = {c[0].x, c[0].y, c[1].x, c[1].y};
        vertex.shape = {c[2].x, c[2].y, 0, 0};
        vertex.color0 = components(t.colors[0]);
        vertex.color1 = components(t.colors[1]);
        vertex.color2 = components(t.colors[2]);
        addQuad(box(std::min({c[0].x, c[1].x, c[2].x}) - 1, std::min({c[0].y, c[1].y, c[2].y}) - 1,
                    std::max({c[0].x, c[1].x, c[2].x}) + 1, std::max({c[0].y, c[1].y, c[2].y}) + 1),
                vertex);
    }
    addShape(GlProgram::triangle, first);
}

// The vertices from `firstVertex` on are one shape; its scissor is the box around them.
void GlDrawingSurface::addShape(GlProgram program, std::size_t firstVertex) {
    const auto width = static_cast<float>(pixelWidth()), height = static_cast<float>(pixelHeight());
    float left = width, top = height, right = 0, bottom = 0;
    for (std::size_t i = firstVertex; i < vertices_.size(); ++i) {
        const auto [x, y] = vertices_[i].corner;
        left = std::min(left, x), right = std::max(right, x);
        top = std::min(top, y), bottom = std::max(bottom, y);
    }
    left = std::floor(std::max(left, 0.0f)), top = std::floor(std::max(top, 0.0f));
    right = std::ceil(std::min(right, width)), bottom = std::ceil(std::min(bottom, height));
    if (left >= right || top >= bottom) return;
    shapes_.push_back({program, static_cast<GLint>(firstVertex), static_cast<GLsizei>(vertices_.size() - firstVertex),
                       static_cast<GLint>(left), static_cast<GLint>(top), static_cast<GLsizei>(right - left),
                       static_cast<GLsizei>(bottom - top)});
}

bool GlDrawingSurface::resize() {
    if (canvasWidth_ == pixelWidth() && canvasHeight_ == pixelHeight()) return true;
    for (Canvas* canvas : {&picture_, &shape_}) {
        if (canvas->texture == 0) gl().GenTextures(1, &canvas->texture);
        if (canvas->framebuffer == 0) gl().GenFramebuffers(1, &canvas->framebuffer);
        gl().BindTexture(GL_TEXTURE_2D, canvas->texture);
        gl().TexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, pixelWidth(), pixelHeight(), 0, GL_BGRA,
                        GL_UNSIGNED_INT_8_8_8_8_REV, nullptr);
        gl().TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        gl().TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        gl().BindFramebuffer(GL_FRAMEBUFFER, canvas->framebuffer);
        gl().FramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, canvas->texture, 0);
        if (gl().CheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) return false;
    }
    canvasWidth_ = pixelWidth();
    canvasHeight_ = pixelHeight();
    return true;
}

void GlDrawingSurface::draw(const Shape& shape) {
    gl().Scissor(shape.x, shape.y, shape.width, shape.height);
    gl().BindFramebuffer(GL_FRAMEBUFFER, shape_.framebuffer);
    gl().Clear(GL_COLOR_BUFFER_BIT);
    // Pieces of a line are united; triangles that share an edge add up to the whole pixel along it.
    gl().BlendEquation(shape.program == GlProgram::segment ? GL_MAX : GL_FUNC_ADD);
    gl().BlendFunc(GL_ONE, GL_ONE);
    painter_->use(shape.program);
    gl().DrawArrays(GL_TRIANGLES, shape.firstVertex, shape.vertexCount);

    gl().BindFramebuffer(GL_FRAMEBUFFER, picture_.framebuffer);
    gl().BlendEquation(GL_FUNC_ADD);
    gl().BlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    painter_->use(GlProgram::composite);
    gl().BindTexture(GL_TEXTURE_2D, shape_.texture);
    gl().DrawArrays(GL_TRIANGLES, 0, kQuadVertices);
}

// Rows are counted from the top on both sides: the projection puts the first one where OpenGL has its first.
bool GlDrawingSurface::finish(Image& picture) {
    const GlContext::Current current(painter_->context());
    if (!current || !resize()) return false;
    painter_->start(vertices_, pixelWidth(), pixelHeight());
    gl().ClearColor(0, 0, 0, 0);
    gl().Disable(GL_SCISSOR_TEST);
    gl().BindFramebuffer(GL_FRAMEBUFFER, picture_.framebuffer);
    gl().Clear(GL_COLOR_BUFFER_BIT);
    gl().Enable(GL_SCISSOR_TEST);
    gl().Enable(GL_BLEND);
    for (const Shape& shape : shapes_)
        draw(shape);
    picture.width = pixelWidth();
    picture.height = pixelHeight();
    picture.pixels.resize(static_cast<std::size_t>(pixelWidth()) * pixelHeight());
    gl().ReadPixels(0, 0, pixelWidth(), pixelHeight(), GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, picture.pixels.data());
    return gl().GetError() == GL_NO_ERROR;
}

} // namespace QVM_NAMESPACE
