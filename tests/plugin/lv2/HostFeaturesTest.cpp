#include "plugin/lv2/HostFeatures.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace QVM_NAMESPACE
