#include "plugin/lv2/NotifyPort.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

#include <cstring>

namespace QVM_NAMESPACE {
namespace {

class NotifyPortTest : public testing::Test {
protected:
    // As the toolkit does: into the room that it was given.
    void write(messages::Port& said) { std::memcpy(port_.sequence(), said.sequence(), 8 + said.sequence()->atom.size); }

    messages::Urids urids_;
    PropertyRequests requests_{urids_.map(), "urn:plugin"};
    NotifyPort port_{requests_};
    messages::Port toolkit_{urids_}, host_{urids_};
};

TEST_F(NotifyPortTest, HasRoomForAllValuesAndAChangeOfState) {
    EXPECT_GE(port_.sequence()->atom.size, 8U + 72 * QVMParameterCount + 24 + 8) << "the last for the toolkit's count";
}

TEST_F(NotifyPortTest, AMessageThatDoesNotFitIsSaidToBeUntoldAndASmallerOneBehindItFits) {
    toolkit_.begin();
    toolkit_.addSet("urn:plugin:TiltGain", 1);
    toolkit_.addSet("urn:plugin:OutputGain", 2);
    toolkit_.addStateChange();
    write(toolkit_);
    host_.setRoom(8 + 72 + 24);
    host_.offer();
    const Untold untold = port_.handOn(host_.sequence());
    EXPECT_EQ(host_.words("urn:plugin"), (std::vector<std::string>{"TiltGain=1", "changed"}));
    EXPECT_EQ(untold.values, 1U << pidOutputGain);
    EXPECT_FALSE(untold.stateChange);
}

TEST_F(NotifyPortTest, AHostWithoutRoomIsToldNothing) {
    toolkit_.begin();
    toolkit_.addSet("urn:plugin:TiltGain", 1);
    toolkit_.addStateChange();
    write(toolkit_);
    const Untold untold = port_.handOn(nullptr);
    EXPECT_EQ(untold.values, 1U << pidTiltGain);
    EXPECT_TRUE(untold.stateChange);
}

} // namespace
} // namespace QVM_NAMESPACE
