#include "plugin/lv2/PropertyRequests.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* uri = "urn:plugin";

class PropertyRequestsTest : public testing::Test {
protected:
    ParameterBits asked() const { return requests_.askedFor(port_.sequence()); }

    messages::Urids urids_;
    PropertyRequests requests_{urids_.map(), uri};
    mutable messages::Port port_{urids_};
};

TEST_F(PropertyRequestsTest, AsksForOnePropertyOrForAll) {
    port_.begin();
    EXPECT_EQ(asked(), 0U);
    port_.addGet("urn:plugin:TiltGain");
    EXPECT_EQ(asked(), 1U << pidTiltGain);
    port_.addGet("urn:plugin:HQMode", uri);
    EXPECT_EQ(asked(), 1U << pidTiltGain | 1U << 23);
    port_.addGet({});
    EXPECT_EQ(asked(), allParameters);
}

TEST_F(PropertyRequestsTest, WhatIsNoRequestToThisPlugInAsksForNothing) {
    EXPECT_EQ(requests_.askedFor(nullptr), 0U);
    port_.offer();
    EXPECT_EQ(asked(), 0U) << "no sequence";
    port_.begin();
    port_.addGet("urn:plugin:NoSuchThing");
    port_.addGet({}, "urn:another");
    port_.addSet("urn:plugin:TiltGain", 3);
    EXPECT_EQ(asked(), 0U);
}

TEST_F(PropertyRequestsTest, TellsWhatAMessageIsAbout) {
    port_.begin();
    port_.addSet("urn:plugin:OutputGain", 3);
    port_.addStateChange();
    const LV2_Atom_Event* const set = lv2_atom_sequence_begin(&port_.sequence()->body);
    const LV2_Atom_Event* const change = lv2_atom_sequence_next(set);
    EXPECT_EQ(requests_.setBy(set->body), 1U << pidOutputGain);
    EXPECT_FALSE(requests_.isStateChange(set->body));
    EXPECT_EQ(requests_.setBy(change->body), 0U);
    EXPECT_TRUE(requests_.isStateChange(change->body));
}

} // namespace
} // namespace QVM_NAMESPACE
