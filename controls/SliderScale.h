// The marks beside a slider's track, with their texts, and where they can be clicked.
#pragma once

#include "description/QVMParameter.h"
#include "platform/layer/ShapeLayer.h"
#include "platform/layer/TextLayer.h"

#include <functional>
#include <vector>

namespace QVM_NAMESPACE {

// A place to click: the value that it sets, or, if `indexed`, the fraction that its index has in the list.
struct QVMCueRect {
    Rect rect; // points, in the slider's coordinates
    bool indexed = false;
    float value = 0;
};

// Where a scale stands. Positions are points along the slider's axis; y grows upwards.
struct SliderScaleGeometry {
    bool horizontal = false;
    double edge = 0;    // what the marks stand off: below the track, or to the right of the way of the handle
    double farEdge = 0; // how far to the right texts may reach (vertical sliders)
    double lowest = 0, highest = 0;
    double devicePixels = 1; // a point; lines are laid on whole ones
};

class SliderScale {
public:
    using PositionOfValue = std::function<double(float)>;

    SliderScale();

    // Holds the lines and texts; as large as the slider.
    const std::shared_ptr<Layer>& layer() const { return layer_; }
    const std::vector<QVMCueRect>& cueRects() const { return cueRects_; }

    // Whether the parameter asks for marks at all.
    static bool hasMarks(const QVMParameter& parameter);
    // Builds everything anew, in the theme's present colours and fonts. Marks whose text would run into another's are
    // left out, those at the ends last.
    void layOut(const QVMParameter& parameter, const SliderScaleGeometry& geometry, const PositionOfValue& position);

private:
    struct Mark {
        double position = 0;
        float value = 0;
        bool indexed = false;
        std::string text;
    };
    static std::vector<Mark> marksOf(const QVMParameter& parameter, const SliderScaleGeometry& geometry,
                                     const PositionOfValue& position);
    void addMark(const Mark& mark, const SliderScaleGeometry& geometry, Path& lines);

    std::shared_ptr<Layer> layer_;
    std::shared_ptr<ShapeLayer> lines_;
    std::vector<QVMCueRect> cueRects_;
};

} // namespace QVM_NAMESPACE
