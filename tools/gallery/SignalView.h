// What the displays are fed with: the level of each side and how alike the two are.
#pragma once

#include "platform/layer/TextLayer.h"
#include "platform/view/View.h"
#include "tools/gallery/StereoFeed.h"

#include <array>

namespace QVM_NAMESPACE {

class SignalView final : public View {
public:
    // The feed outlives the view.
    SignalView(const Rect& frame, StereoFeed& feed);

    // Over the last tenth of a second or so: root mean square of each side in decibels of full scale, and the
    // correlation, 1 (the same) to -1 (upside down); 0 for silence.
    double levelDb(std::size_t side) const;
    double correlation() const;

private:
    void hear(std::span<const float> left, std::span<const float> right);
    void redraw();

    struct Bar {
        std::shared_ptr<Layer> track, fill;
        std::shared_ptr<TextLayer> label, reading;
    };
    Bar addBar(const char* name, double y);
    void setBar(const Bar& bar, double from, double to, const std::string& reading);

    std::array<Bar, 3> bars_;                   // left, right, correlation
    double left_ = 0, right_ = 0, product_ = 0; // smoothed squares and product
    double sampleRateHz_;
    ObservationToken themeObservation_, feed_;
};

} // namespace QVM_NAMESPACE
