#include "plugin/lv2/PropertyUrids.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

TEST(PropertyUrids, FormerNamesAreThoseOfTheFrequenciesAlone) {
    messages::Urids names;
    const PropertyUrids urids(names.map(), "urn:plugin");
    EXPECT_EQ(names.nameOf(urids.plugin), "urn:plugin");
    EXPECT_EQ(names.nameOf(urids.properties[pidTiltRangeLow]), "urn:plugin:TiltRangeLowHz");
    EXPECT_EQ(names.nameOf(urids.formerProperties[pidTiltRangeLow]), "urn:plugin:TiltRangeLow");
    EXPECT_EQ(names.nameOf(urids.properties[pidTiltGain]), "urn:plugin:TiltGain");
    EXPECT_EQ(std::ranges::count(urids.formerProperties, 0U), QVMParameterCount - 4);
}

} // namespace
} // namespace QVM_NAMESPACE
