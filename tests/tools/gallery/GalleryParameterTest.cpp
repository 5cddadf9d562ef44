#include "tools/gallery/GalleryParameter.h"

#include "tools/gallery/Parameters.h"

#include <gtest/gtest.h>

#include <set>

namespace QVM_NAMESPACE {
namespace {

std::string textOf(const char* key, float value) {
    std::string text;
    std::optional<std::string> suffix;
    galleryParameter(key)->valueString(&text, &suffix, value);
    return suffix ? text + " " + *suffix : text;
}

TEST(GalleryParameter, PositionsRunFromZeroToOneAndBack) {
    for (const GalleryParameter& parameter : galleryParameters()) {
        EXPECT_FLOAT_EQ(parameter.percentageFromFloatValue(parameter.minValue), 0) << parameter.name;
        EXPECT_FLOAT_EQ(parameter.percentageFromFloatValue(parameter.maxValue), 1) << parameter.name;
        for (const float percent : {0.0f, 0.25f, 0.5f, 1.0f}) {
            const float value = parameter.normalizedFloatValueFromPercent(percent, QVMGranularityFine);
            EXPECT_EQ(parameter.normalizeFloatValue(value, QVMGranularityFine), value) << parameter.name;
        }
    }
}

TEST(GalleryParameter, AFrequencysMiddleIsItsGeometricMean) {
    const GalleryParameter& cutoff = *galleryParameter("Cutoff");
    EXPECT_NEAR(cutoff.normalizedFloatValueFromPercent(0.5f, QVMGranularityFine), 632.5, 0.06);
    EXPECT_NEAR(cutoff.percentageFromFloatValue(632.4555f), 0.5, 1e-6);
}

TEST(GalleryParameter, TextsAreNamesNumbersAndKilohertz) {
    EXPECT_EQ(textOf("Mode", 2), "Band");
    EXPECT_EQ(textOf("Mode", 9), "");
    EXPECT_EQ(textOf("Gain", -3), "-3.0 dB");
    EXPECT_EQ(textOf("Cutoff", 999), "999 Hz");
    EXPECT_EQ(textOf("Cutoff", 1500), "1.50 kHz");
    EXPECT_EQ(textOf("Cutoff", 12000), "12.0 kHz");
    EXPECT_EQ(textOf("Quality", 1), "\uE206");
    EXPECT_EQ(textOf("Steps", 7), "7");
}

TEST(GalleryParameter, EveryParameterIsWhole) {
    std::set<std::string> keys;
    for (const GalleryParameter& parameter : galleryParameters()) {
        EXPECT_TRUE(keys.insert(parameter.codesafeName).second) << parameter.codesafeName;
        EXPECT_LT(parameter.minValue, parameter.maxValue) << parameter.name;
        EXPECT_GE(parameter.initialValue, parameter.minValue) << parameter.name;
        EXPECT_LE(parameter.initialValue, parameter.maxValue) << parameter.name;
        EXPECT_GE(parameter.pid, 24u) << "no product's number";
        const auto names = static_cast<float>(parameter.stringValues.size());
        EXPECT_TRUE(names == 0 || names == parameter.valueRange() + 1) << parameter.name;
    }
    EXPECT_EQ(galleryParameter("Nope"), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
