// A layer that fills a path and strokes it on top. Main thread, like all layers.
//
// Setting what is set already changes nothing, so it costs no raster. Lengths are points of the layer's own
// coordinates.
#pragma once

#include "platform/layer/Layer.h"
#include "platform/layer/Path.h"

namespace QVM_NAMESPACE {

enum class LineCap : unsigned char { butt, round, square };
enum class LineJoin : unsigned char { miter, round, bevel };

class ShapeLayer : public Layer {
public:
    explicit ShapeLayer(YAxis axis = YAxis::down) : Layer(axis) {}

    const Path& path() const { return path_; }
    void setPath(Path path);
    Color fillColor() const { return fillColor_; } // opaque black at first
    void setFillColor(Color color);
    Color strokeColor() const { return strokeColor_; } // clear at first
    void setStrokeColor(Color color);
    double lineWidth() const { return lineWidth_; } // points
    void setLineWidth(double width);
    const std::vector<double>& lineDashPattern() const { return dashes_; } // points on, off, ...; empty: solid
    void setLineDashPattern(std::vector<double> pattern);
    // How far into the pattern the line begins, points. What marching dashes animate.
    double lineDashPhase() const { return lineDashPhase_; }
    void setLineDashPhase(double phase);
    LineCap lineCap() const { return cap_; }
    LineJoin lineJoin() const { return join_; }
    void setLineStyle(LineCap cap, LineJoin join);

    Rect lookBounds(const PresentedLayer& presented) const override;
    bool hasLook(const PresentedLayer& presented) const override;
    bool isPlainRectangle(const PresentedLayer& presented) const override;
    std::string lookDescription() const override;
    const char* kind() const override { return "ShapeLayer"; }

    // Sharp corners are cut where they would reach further from the line than this many half widths.
    static constexpr double miterLimit = 3;

protected:
    PresentedLayer model() const override;

private:
    bool isFilled() const { return fillColor_.a > 0 && !path_.isEmpty(); }
    bool isStroked() const { return strokeColor_.a > 0 && lineWidth_ > 0 && !path_.isEmpty(); }

    Path path_;
    Color fillColor_ = Color::white(0), strokeColor_;
    double lineWidth_ = 1, lineDashPhase_ = 0;
    std::vector<double> dashes_;
    LineCap cap_ = LineCap::butt;
    LineJoin join_ = LineJoin::miter;
};

} // namespace QVM_NAMESPACE
