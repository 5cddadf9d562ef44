#include "plugin/lv2/NotifyPort.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

class NotifyPortTest : public testing::Test {
protected:
    using Words = std::vector<std::string>;

    void begin(std::uint32_t room) {
        host_.setRoom(room);
        host_.offer();
        port_.begin(host_.sequence());
    }
    Words words() { return host_.words("urn:plugin"); }

    messages::Urids names_;
    PropertyUrids urids_{names_.map(), "urn:plugin"};
    NotifyPort port_{urids_};
    messages::Port host_{names_};
};

TEST_F(NotifyPortTest, TellsWholeNumbersOfSwitchesAndModesAndFractionsOfTheRest) {
    begin(9920);
    EXPECT_TRUE(port_.tellValue(pidTiltRangeLow, 63.5F));
    EXPECT_TRUE(port_.tellStateChange());
    EXPECT_TRUE(port_.tellValue(pidTiltLoudnessMode, 3));
    EXPECT_EQ(words(), (Words{"TiltRangeLowHz=63.5", "changed", "TiltLoudnessMode=int 3"}));
    begin(9920);
    EXPECT_EQ(words(), Words()) << "a block's messages are not the next one's";
}

TEST_F(NotifyPortTest, AMessageThatDoesNotFitIsNotWrittenAndASmallerOneBehindItFits) {
    begin(8 + 72 + 24);
    EXPECT_TRUE(port_.tellValue(pidTiltGain, 1));
    EXPECT_FALSE(port_.tellValue(pidOutputGain, 2));
    EXPECT_TRUE(port_.tellStateChange());
    EXPECT_FALSE(port_.tellStateChange());
    EXPECT_EQ(words(), (Words{"TiltGain=1", "changed"}));
}

TEST_F(NotifyPortTest, WithoutRoomForASequenceTheHostsIsLeftAlone) {
    begin(7);
    EXPECT_FALSE(port_.tellStateChange());
    EXPECT_EQ(host_.sequence()->atom.size, 7U);
    port_.begin(nullptr);
    EXPECT_FALSE(port_.tellStateChange());
}

} // namespace
} // namespace QVM_NAMESPACE
