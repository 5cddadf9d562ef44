// Keeps what is drawn instead of drawing it: shapes in pixels, y down, in the order they came.
#pragma once

#include "platform/surface/DrawingSurface.h"

#include <cmath>
#include <vector>

namespace QVM_NAMESPACE {

class RecordingSurface final : public DrawingSurface {
public:
    // One call's pieces of a line, or triangles. The other list is empty.
    struct Shape {
        std::vector<StrokeSegment> line;
        std::vector<FilledTriangle> triangles;

        // Of a line: of its first piece.
        double widthPixels() const { return 2 * static_cast<double>(line.front().halfWidth); }
        double lengthPixels() const {
            const StrokeSegment& s = line.front();
            return static_cast<double>(std::hypot(s.to.x - s.from.x, s.to.y - s.from.y));
        }
        Color color() const { return line.empty() ? triangles.front().colors[0] : line.front().fromColor; }
    };
    std::vector<Shape> shapes;

    bool finish(Image&) override { return true; }

protected:
    void clearPixels() override { shapes.clear(); }
    void strokeSegments(std::span<const StrokeSegment> segments) override {
        shapes.push_back({{segments.begin(), segments.end()}, {}});
    }
    void fillPixels(std::span<const FilledTriangle> triangles) override {
        shapes.push_back({{}, {triangles.begin(), triangles.end()}});
    }
};

} // namespace QVM_NAMESPACE
