#include "controls/SweptControl.h"

#include "controls/Gestures.h"
#include "platform/runloop/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

constexpr double kPart = 40; // points

// Four parts beside each other.
class FourParts final : public SweptControl {
public:
    using SweptControl::SweptControl;

protected:
    void redraw() override { drawPlainBox(); }
    int indexAt(Point point) const override { return static_cast<int>(point.x / kPart); }
    void takeValueFromEvent(const QVMEvent& event) override { takeIndex(indexAt(event.point)); }
};

TEST(SweptControl, TakesThePartThatIsPressedAndThoseThatAreSweptOver) {
    VirtualTime time;
    const QVMParameter parameter = parameterLike(pidTiltLoudnessMode);
    FourParts control({0, 0, 4 * kPart, 30}, parameter, BoxShape::rounded);
    const GestureRecord record{control};
    press(control, {1.5 * kPart, 15});
    EXPECT_EQ(control.floatValue(), 1);
    drag(control, {3.5 * kPart, 15});
    drag(control, {2.5 * kPart, 15});
    EXPECT_EQ(control.floatValue(), 2);
    release(control, {2.5 * kPart, 15});
    EXPECT_THAT(record.lines, ElementsAre("action 1", "began", "action 3", "action 2", "ended"));
}

} // namespace
} // namespace QVM_NAMESPACE
