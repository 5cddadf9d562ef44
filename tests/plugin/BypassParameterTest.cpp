#include "plugin/BypassParameter.h"

#include "description/Description.h"
#include "unit/QVM0015_AudioUnit.h"

#include <gtest/gtest.h>

#include <limits>

namespace QVM_NAMESPACE {
namespace {

class BypassParameterTest : public testing::Test {
protected:
    float master() {
        float value = -1;
        AudioUnitGetParameter(&unit_, 0, kAudioUnitScope_Global, 0, &value);
        return value;
    }
    void setMaster(float value) { AudioUnitSetParameter(&unit_, 0, kAudioUnitScope_Global, 0, value, 0); }

    QVM0015_AudioUnit unit_;
    int told_ = 0;
    UnitParameter master_{*GetParameter(pidMasterOnOff), unit_};
    BypassParameter bypass_{master_, [this] { ++told_; }};
};

TEST_F(BypassParameterTest, IsTheMasterSwitchTheOtherWayRound) {
    EXPECT_EQ(bypass_.getValue(), 0);
    EXPECT_EQ(bypass_.getDefaultValue(), 0);
    setMaster(0);
    EXPECT_EQ(bypass_.getValue(), 1);
    bypass_.setValue(0);
    EXPECT_EQ(master(), 1);
    bypass_.setValue(0.5F);
    EXPECT_EQ(master(), 0);
    bypass_.setValue(0.49F);
    EXPECT_EQ(master(), 1);
}

TEST_F(BypassParameterTest, SaysWhenTheHostChangedItAndOnlyThen) {
    setMaster(0);
    EXPECT_EQ(told_, 0);
    bypass_.setValue(1);
    EXPECT_EQ(told_, 0) << "it is so already";
    bypass_.setValue(0);
    EXPECT_EQ(told_, 1);
    bypass_.setValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(told_, 1);
    EXPECT_EQ(master(), 1);
}

// What the host is told of the one name it gives back under either: it is the same value.
TEST_F(BypassParameterTest, AnEchoUnderEitherNameChangesNothing) {
    int masterTold = 0;
    master_.setHostChangeHandler([&] { ++masterTold; });
    setMaster(0); // from the editor
    bypass_.setValue(bypass_.getValue());
    master_.setValue(master_.getValue());
    EXPECT_EQ(told_, 0);
    EXPECT_EQ(masterTold, 0);
    bypass_.setValue(0);
    master_.setValue(1);
    EXPECT_EQ(told_, 1);
    EXPECT_EQ(masterTold, 0) << "it is on already";
    EXPECT_EQ(master(), 1);
}

TEST_F(BypassParameterTest, HasTwoStepsWithText) {
    EXPECT_TRUE(bypass_.isBoolean());
    EXPECT_TRUE(bypass_.isDiscrete());
    EXPECT_EQ(bypass_.getNumSteps(), 2);
    for (const float value : {0.0F, 1.0F})
        EXPECT_EQ(bypass_.getValueForText(bypass_.getText(value, 0)), value);
    EXPECT_EQ(bypass_.getText(1, 3), "Byp");
}

} // namespace
} // namespace QVM_NAMESPACE
