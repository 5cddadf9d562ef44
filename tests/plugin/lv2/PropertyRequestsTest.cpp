#include "plugin/lv2/PropertyRequests.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

constexpr const char* uri = "urn:plugin";

class PropertyRequestsTest : public testing::Test {
protected:
    using Settings = std::vector<std::pair<std::uint32_t, float>>; // pid, and the unit's value

    PropertyRequestsTest() { port_.begin(); }
    ParameterBits asked() const { return requests_.askedFor(port_.sequence()); }
    // What is in the port, which is empty afterwards.
    Settings set() {
        Settings settings;
        requests_.forEachSetting(port_.sequence(),
                                 [&](const PropertySetting& s) { settings.emplace_back(s.pid, s.hostValue); });
        port_.begin();
        return settings;
    }

    messages::Urids names_;
    PropertyUrids urids_{names_.map(), uri};
    PropertyRequests requests_{urids_};
    mutable messages::Port port_{names_};
};

TEST_F(PropertyRequestsTest, AsksForOnePropertyOrForAll) {
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
    EXPECT_EQ(set(), Settings());
    port_.addGet("urn:plugin:NoSuchThing");
    port_.addGet({}, "urn:another");
    port_.addSet("urn:plugin:TiltGain", 3.0F);
    EXPECT_EQ(asked(), 0U);
}

TEST_F(PropertyRequestsTest, SetsANumberOfAnyTypeInOrder) {
    port_.addSet("urn:plugin:OutputGain", -3.5F);
    port_.addSet("urn:plugin:OutputGain", -4.5);
    port_.addSet("urn:plugin:MeterMode", 2, uri);
    port_.addSet("urn:plugin:MeterMode", std::int64_t{1});
    port_.addSet("urn:plugin:HQMode", true);
    EXPECT_EQ(set(), (Settings{{7, -3.5F}, {7, -4.5F}, {8, 2.0F}, {8, 1.0F}, {23, 1.0F}}));
}

TEST_F(PropertyRequestsTest, AFrequencyIsSetInHertzAndByItsFormerNameAsThePositionThatItWas) {
    port_.addSet("urn:plugin:TiltRangeLowHz", 24000);
    port_.addSet("urn:plugin:TiltRangeLowHz", 489.89795F); // in the middle, by octaves
    port_.addSet("urn:plugin:TiltRangeLow", 12005.0F);
    const Settings settings = set();
    ASSERT_EQ(settings.size(), 3U);
    EXPECT_EQ(settings[0], (std::pair{2U, 24000.0F}));
    EXPECT_NEAR(settings[1].second, 12005, 0.01);
    EXPECT_EQ(settings[2], (std::pair{2U, 12005.0F}));
}

TEST_F(PropertyRequestsTest, WhatIsNoNumberForThisPlugInSetsNothing) {
    port_.addSet("urn:plugin:TiltGain", 3.0F, "urn:another");
    port_.addSet("urn:plugin:NoSuchThing", 3.0F);
    port_.addSet("urn:plugin:TiltGain", "3");
    port_.addSet("urn:plugin:TiltGain", std::numeric_limits<float>::quiet_NaN());
    port_.addSet("urn:plugin:TiltGain", std::numeric_limits<double>::infinity());
    port_.addSet("urn:plugin:TiltGain", 1e300);
    port_.addSet({}, 3.0F);
    port_.addGet("urn:plugin:TiltGain");
    EXPECT_EQ(set(), Settings());
}

} // namespace
} // namespace QVM_NAMESPACE
