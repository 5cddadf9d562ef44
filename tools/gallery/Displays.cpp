#include "tools/gallery/Displays.h"

#include "tools/gallery/LiveDisplayView.h"
#include "tools/gallery/SignalView.h"
#include "viz/displays/GRHistoryDisplay.h"
#include "viz/displays/GoniometerDisplay.h"
#include "viz/displays/HistogramDisplay.h"
#include "viz/displays/StereoscopeDisplay.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

std::unique_ptr<View> signal(const Rect& frame, StereoFeed& feed) {
    return std::make_unique<SignalView>(frame, feed);
}

template <class Display>
std::unique_ptr<View> live(const Rect& frame, StereoFeed& feed) {
    return std::make_unique<LiveDisplayView>(frame, feed, std::make_unique<Display>());
}

constexpr double kUpper = 282, kLower = 208;                                           // points
constexpr Size kSquare = {282, kUpper}, kFan = {540, kUpper}, kColumn = {210, kUpper}; // likewise
constexpr Size kHalf = {526, kLower};

constexpr std::array<GalleryDisplay, 5> kDisplays = {
    {{"Goniometer", "Goniometer", "Mid upwards, side across, at whatever level", kSquare, &live<GoniometerDisplay>},
     {"Stereoscope", "Stereoscope", "20 Hz in the middle, 20 kHz outside; where it is heard is where it is seen", kFan,
      &live<StereoscopeDisplay>},
     {"Signal", "Signal", "Level, and how alike the sides are", kColumn, &signal},
     {"GainReduction", "Gain reduction", "What 4:1 above -20 dB takes away; a line every 6 dB", kHalf,
      &live<GRHistoryDisplay>},
     {"Histogram", "Histogram", "Thirds of an octave from 25 Hz to 20 kHz; a line every 12 dB from -60 dB", kHalf,
      &live<HistogramDisplay>}}};

} // namespace

std::span<const GalleryDisplay> galleryDisplays() {
    return kDisplays;
}

} // namespace QVM_NAMESPACE
