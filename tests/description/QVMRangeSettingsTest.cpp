#include "description/QVMRangeSettings.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

const QVMRangeSettings kSettings({{"low", true}, {"limit", 500.0f}, {"func", std::string("max")}});

TEST(QVMRangeSettings, ValuesAreReadByKey) {
    EXPECT_TRUE(kSettings.boolValue("low"));
    EXPECT_EQ(kSettings.floatValue("limit"), 500.0f);
    EXPECT_EQ(kSettings.stringValue("func"), "max");
}

TEST(QVMRangeSettings, MissingKeysReadAsNothing) {
    EXPECT_FALSE(kSettings.boolValue("high"));
    EXPECT_EQ(kSettings.floatValue("factor"), 0.0f);
    EXPECT_EQ(kSettings.stringValue(""), "");
}

TEST(QVMRangeSettings, ValuesOfAnotherTypeReadAsNothing) {
    EXPECT_FALSE(kSettings.boolValue("limit"));
    EXPECT_EQ(kSettings.floatValue("low"), 0.0f);
    EXPECT_EQ(kSettings.stringValue("low"), "");
}

TEST(QVMRangeSettings, OrderIsKept) {
    ASSERT_EQ(kSettings.entries().size(), 3u);
    EXPECT_EQ(kSettings.entries()[0].first, "low");
    EXPECT_EQ(kSettings.entries()[2].first, "func");
    EXPECT_FALSE(kSettings.empty());
    EXPECT_TRUE(QVMRangeSettings().empty());
}

} // namespace
} // namespace QVM_NAMESPACE
