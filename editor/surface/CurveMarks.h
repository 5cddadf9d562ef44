// The numbers beside the response curve, as layers below its line: frequencies with a tick each, and the decibels of
// the grid's lines.
//
// What moves with the grid is not drawn again, only put elsewhere. Main thread only.
#pragma once

#include "editor/surface/CurveMarkPlan.h"
#include "platform/layer/Layer.h"

#include <map>
#include <memory>

namespace QVM_NAMESPACE {

class QVMFreqResp;
class ShapeLayer;
class TextLayer;

class CurveMarks {
public:
    CurveMarks();

    // To be put below the curve, in the same box.
    const std::shared_ptr<Layer>& layer() const { return layer_; }
    void setColor(Color color);

    // Where the display's grid and frequencies are now. The boxes are to be kept free of levels.
    void follow(const QVMFreqResp& display, const std::vector<Rect>& keptFree);
    // Hides the marks that something over the curve would cut; empty boxes hide none.
    void giveWayTo(std::vector<Rect> boxes);

    // Those that are shown, whether or not they give way at the moment.
    std::vector<CurveMark> marks() const;

private:
    using Texts = std::map<std::string, std::shared_ptr<TextLayer>>; // by what they say

    void show(const std::vector<CurveMark>& marks, Texts& texts);
    void drawTicks();
    bool isCovered(const CurveMark& mark) const;

    std::shared_ptr<Layer> layer_;
    std::shared_ptr<ShapeLayer> ticks_;
    Texts frequencyTexts_, levelTexts_; // made when they are first shown
    std::vector<CurveMark> frequencies_, levels_;
    CurveScale scale_;      // that the frequencies stand on
    CurveScale levelScale_; // and the levels; the next two are theirs as well
    float reference_ = 0;   // dB
    std::vector<Rect> keptFree_;
    double pixels_ = 0; // a point, for which the ticks are drawn
    Color color_;
    std::vector<Rect> over_; // what marks give way to
};

} // namespace QVM_NAMESPACE
