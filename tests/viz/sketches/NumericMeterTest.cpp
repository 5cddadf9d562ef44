// What the main sketch shows on the numeric meter, and how often.
#include "ParameterSketchFixture.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Readout final : public NumericMeterDisplay {
public:
    void setSuffix(std::optional<std::string> suffix) override { calls.push_back("suffix " + suffix.value_or("none")); }
    void resetGlyphColor(const std::string& text, std::optional<Color> color) override {
        calls.push_back("text " + text + (color ? " coloured" : ""));
    }
    std::vector<std::string> calls;
};

class NumericMeter : public ParameterSketchFixture {
protected:
    void SetUp() override {
        view.setNumericMeter(&readout);
        object().numericMeterFormat() = "%0.1f";
        object().numericMeterSuffix() = "LU";
    }
    void frameAt(double seconds) { view.getFrameWithDurationAndTime(1.0 / 60, seconds); }

    Readout readout;
};

TEST_F(NumericMeter, TheFirstReadingIsAlwaysShown) {
    object().numericMeterValue() = 0;
    frameAt(10);
    EXPECT_THAT(readout.calls, ElementsAre("suffix LU", "text 0.0"));
}

TEST_F(NumericMeter, AnEqualReadingIsNotShownAgainButTakesItsHalfSecond) {
    object().numericMeterValue() = -3;
    frameAt(10);
    readout.calls.clear();
    frameAt(10.6); // equal
    object().numericMeterValue() = -4;
    frameAt(11.0); // within half a second of the equal one
    EXPECT_THAT(readout.calls, IsEmpty());
    frameAt(11.2);
    EXPECT_THAT(readout.calls, ElementsAre("suffix LU", "text -4.0"));
}

TEST_F(NumericMeter, NothingIsShownMoreThanTwiceASecond) {
    for (int i = 0; i < 300; ++i) {
        object().numericMeterValue() = static_cast<float>(i);
        frameAt(10 + i / 60.0);
    }
    EXPECT_EQ(readout.calls.size(), 2u * 10);
}

} // namespace
} // namespace QVM_NAMESPACE
