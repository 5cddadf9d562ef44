// Text that is typed into a parameter control: how it shows, and what it becomes.
#include "controls/ParameterControlBench.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bench = ParameterControlBench;

TEST(QVMParameterControlTyping, TypingOnePointFiveWithACommaAndKSetsFifteenHundred) {
    Bench b(parameterLike(pidTiltRangeLow), 20);
    b.control.setStringValue("1,5k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 1500);
    b.control.setStringValue("2.2k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2200);
    EXPECT_THAT(b.values, ElementsAre(1500, 2200));
    EXPECT_THAT(b.reports, ElementsAre("discrete", "discrete"));
}

TEST(QVMParameterControlTyping, TypingWhatIsNoNumberSetsZero) {
    Bench b(parameterLike(pidTiltGain), 6);
    for (const char* odd : {"abc", "", "-", "1.2.3", "inf", "nan", "k", "1e3", "0x10", " 5"}) {
        b.control.setFloatValue(6);
        b.control.setStringValue(odd);
        EXPECT_FLOAT_EQ(b.control.floatValue(), 0) << odd;
    }
    b.control.setStringValue("-4.5");
    EXPECT_FLOAT_EQ(b.control.floatValue(), -4.5f);
    b.control.setStringValue(".5");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0.5f);
}

TEST(QVMParameterControlTyping, TypedValuesBeyondTheRangeStopAtItsEnds) {
    Bench b(parameterLike(pidTiltRangeLow), 20);
    b.control.setStringValue("abc");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 10);
    b.control.setStringValue("99k");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 24000);
}

TEST(QVMParameterControlTyping, ANumberOfAnyLengthStopsAtTheLimit) {
    for (const std::size_t digits : {10u, 38u, 39u, 40u, 400u}) {
        const std::string nines(digits, '9');
        for (const std::uint32_t pid : {1u, 9u, 15u}) {
            ParameterControlBench b(parameterLike(pid));
            const auto typed = [&b](const std::string& text) {
                b.control.setStringValue(text);
                return b.control.floatValue();
            };
            EXPECT_EQ(typed(nines), b.parameter.maxValue) << digits;
            EXPECT_EQ(typed(nines + "k"), b.parameter.maxValue) << digits;
            EXPECT_EQ(typed(nines + ".5"), b.parameter.maxValue) << digits;
            EXPECT_EQ(typed("-" + nines), b.parameter.minValue) << digits;
        }
    }
    ParameterControlBench b(parameterLike(pidTiltGain), 3);
    b.control.setStringValue("0." + std::string(400, '0') + "1");
    EXPECT_EQ(b.control.floatValue(), 0) << "too near to 0 to be told from it";
    b.control.setStringValue(std::string(400, '0') + "7");
    EXPECT_EQ(b.control.floatValue(), 7);
}

TEST(QVMParameterControlTyping, WithTextEntryNumbersANumberOfAnyLengthIsNearestToTheLargest) {
    ParameterControlBench b(parameterLike(pidTiltGain, [](QVMParameter& p) {
        p.textEntryNumbers = {{1.0, 2.0, 4.0}};
    }));
    b.control.setStringValue(std::string(60, '9') + "k");
    EXPECT_EQ(b.values.back(), 2);
}

TEST(QVMParameterControlTyping, WithTextEntryNumbersTheIndexOfTheNearestIsTheValue) {
    Bench b(parameterLike(pidTiltGain, [](QVMParameter& p) { p.textEntryNumbers = {0.5, 1, 2}; }));
    b.control.setStringValue("1.4");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 1);
    b.control.setStringValue("0.75"); // 0.5 and 1 are equally near: the first
    EXPECT_FLOAT_EQ(b.control.floatValue(), 0);
    b.control.setStringValue("9");
    EXPECT_FLOAT_EQ(b.control.floatValue(), 2);
    Bench empty(parameterLike(pidTiltGain, [](QVMParameter& p) { p.textEntryNumbers.emplace(); }), 6);
    empty.control.setStringValue("7");
    EXPECT_FLOAT_EQ(empty.control.floatValue(), 0);
}

TEST(QVMParameterControlTyping, ADoubleClickOnAnUnfocusedControlDoesNothingVisible) {
    Bench b(parameterLike(pidTiltGain), 3);
    b.control.mouseDown(clickAt(b.control, {5, 5}, 2));
    EXPECT_EQ(b.readout(), "3.0\uE803");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_TRUE(b.slider().readoutBorder()->isHidden());
    EXPECT_THAT(b.values, IsEmpty());
}

TEST(QVMParameterControlTyping, ADoubleClickOnAFocusedControlOpensAnEmptyField) {
    Bench b(parameterLike(pidTiltGain), 3);
    b.control.setFocused(true);
    EXPECT_TRUE(b.slider().highlit());
    const Point handle = b.slider().readoutBulb()->position();
    b.slider().mouseDown(clickAt(b.slider(), handle, 2)); // passed on by the inner control
    EXPECT_TRUE(b.slider().displayingTransientBufferValue());
    EXPECT_EQ(b.readout(), "");
    EXPECT_FALSE(b.slider().readoutBorder()->isHidden());
}

TEST(QVMParameterControlTyping, TypedTextShowsOnlyWhileFocusedAndIsDiscardedWithTheFocus) {
    Bench b(parameterLike(pidTiltGain), 3);
    EXPECT_TRUE(b.control.acceptsTransientStringBuffers());
    b.control.setTransientStringValue("-1");
    EXPECT_EQ(b.readout(), "3.0\uE803");
    b.control.setFocused(true);
    b.control.setTransientStringValue("-1");
    EXPECT_EQ(b.readout(), "-1");
    b.control.setFloatValue(5); // the host moves on; what is typed stays
    EXPECT_EQ(b.readout(), "-1");
    b.control.setFocused(false);
    EXPECT_EQ(b.readout(), "5.0\uE803");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_FALSE(b.slider().highlit());
}

TEST(QVMParameterControlTyping, CommittingTypedTextEndsItsDisplay) {
    Bench b(parameterLike(pidTiltGain), 3);
    b.control.setFocused(true);
    b.control.setTransientStringValue("7");
    b.control.setStringValue("7");
    EXPECT_FALSE(b.slider().displayingTransientBufferValue());
    EXPECT_EQ(b.readout(), "7.0\uE803");
}

} // namespace
} // namespace QVM_NAMESPACE
