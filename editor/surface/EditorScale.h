// How large the editor is shown: what its frames are multiplied with, on top of the device's own scale.
//
// The user chooses it, here; or a window that is given another size does. The delegate multiplies the frames with it,
// whoever has the window draws everything at that scale, and nothing in the editor is laid out anew. Main thread only.
#pragma once

#include "geometry/Geometry.h"
#include "platform/runloop/DelayedCall.h"

#include <array>
#include <functional>
#include <optional>

namespace QVM_NAMESPACE {

class LayoutVariants;
class QVMGenericUI;

class EditorScale {
public:
    static constexpr float least = 0.75F, greatest = 3;
    // What menu and keys offer.
    static constexpr std::array<float, 6> steps = {0.75F, 1, 1.25F, 1.5F, 2, 3};
    // The preference that reports it: the scale, or this while the editor is to be as large as its window gives room
    // for.
    static constexpr const char* preferenceKey = "scale";
    static constexpr double preferenceToFit = 0;

    // Both are borrowed; nothing is asked of them here.
    EditorScale(QVMGenericUI& ui, LayoutVariants& layouts) : ui_(ui), layouts_(layouts) {}

    float current() const { return current_; }
    // What it comes to in the present window, which need not grant it, and where the editor stands there; as whoever
    // has the window says.
    double shown() const { return shown_.value_or(static_cast<double>(current_)); }
    Point origin() const { return origin_; }
    void setShown(double scale, Point origin) {
        shown_ = scale;
        origin_ = origin;
    }
    bool fitsWindow() const { return fitsWindow_; }

    // The user wants a scale, and the nearest possible one is asked for and remembered. `show` leaves the remembering
    // to a call of `keep`: for who drags.
    void choose(float scale);
    void show(float scale);
    void keep();
    // The next of the steps that is larger (1) or smaller (-1); none beyond the last.
    void step(int direction);
    // The user wants the editor as large as there is room for, in this window and the next.
    void fitWindow();

    // Whoever has the window says how the editor comes to fit it: by calling `followWindow` with the scale that does.
    void setFitter(std::function<void()> fitter) { fitter_ = std::move(fitter); }
    // The window has another size, which this scale fits, as near as is possible. `kept`: it is what the user made of
    // the window, to be remembered once it rests.
    enum class Kept : bool { no, yes };
    void followWindow(float scale, Kept kept);
    // What the user made of the window is remembered now, if it still waits to rest: the window is about to go.
    void keepWaiting();

    // The preference as it is to be remembered; and one that was, unless it makes no sense. Nothing is asked for.
    double preference() const;
    void adoptPreference(double value);

private:
    void apply(float scale);

    QVMGenericUI& ui_;
    LayoutVariants& layouts_;
    float current_ = 1;
    std::optional<double> shown_;
    Point origin_;
    bool fitsWindow_ = false;
    std::function<void()> fitter_;
    DelayedCall keepCall_;
};

} // namespace QVM_NAMESPACE
