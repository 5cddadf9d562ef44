#include "plugin/lv2/HostFeatures.h"

#include "plugin/lv2/Messages.h"

#include <gtest/gtest.h>

#include <lv2/options/options.h>
#include <lv2/ui/ui.h>

namespace QVM_NAMESPACE {
namespace {

TEST(HostFeatures, AnotherDataStandsInPlaceOfTheHosts) {
    int first = 1, second = 2, other = 3;
    const LV2_Feature one{"urn:one", &first}, two{"urn:two", &second};
    const LV2_Feature* const host[] = {&one, &two, nullptr};
    HostFeatures features(host);
    features.replace("urn:two", &other);
    features.replace("urn:three", &other);
    EXPECT_EQ(featureData<int>(features.get(), "urn:one"), &first);
    EXPECT_EQ(featureData<int>(features.get(), "urn:two"), &other);
    EXPECT_EQ(featureData<int>(features.get(), "urn:three"), nullptr) << "the host does not have it";
    EXPECT_EQ(featureData<int>(host, "urn:two"), &second) << "the host's own list";
}

TEST(HostFeatures, AHostMayHaveNone) {
    HostFeatures features(nullptr);
    features.replace("urn:one", nullptr);
    EXPECT_EQ(*features.get(), nullptr);
    EXPECT_EQ(featureData<int>(nullptr, "urn:one"), nullptr);
}

TEST(HostFeatures, AScaleIsSaidByAnOptionEvenIfItIsOne) {
    messages::Urids urids;
    const float one = 1, rate = 60;
    const LV2_Options_Option silent[] = {
        {LV2_OPTIONS_INSTANCE, 0, urids["urn:rate"], sizeof(float), urids[LV2_ATOM__Float], &rate}, {}};
    const LV2_Options_Option speaking[] = {
        silent[0],
        {LV2_OPTIONS_INSTANCE, 0, urids[LV2_UI__scaleFactor], sizeof(float), urids[LV2_ATOM__Float], &one},
        {}};
    const LV2_Feature map{LV2_URID__map, &urids.map()};
    const auto saysScale = [&](const LV2_Options_Option* options) {
        const LV2_Feature feature{LV2_OPTIONS__options, const_cast<LV2_Options_Option*>(options)};
        const LV2_Feature* const features[] = {&map, &feature, nullptr};
        return isScaleSaid(features);
    };
    EXPECT_TRUE(saysScale(speaking));
    EXPECT_FALSE(saysScale(silent));
    EXPECT_FALSE(saysScale(nullptr));
    EXPECT_FALSE(isScaleSaid(nullptr));
}

} // namespace
} // namespace QVM_NAMESPACE
