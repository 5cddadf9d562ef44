#include "editor/surface/InterfacePreferences.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

struct Heard {
    std::string key;
    double value = 0;
    int times = 0, saved = 0;
};

class InterfacePreferencesTest : public testing::Test {
protected:
    void SetUp() override {
        preferences_.observe(
            [this](const std::string& key, double value) {
                heard_.key = key;
                heard_.value = value;
                ++heard_.times;
            },
            [this] { ++heard_.saved; });
    }
    InterfacePreferences preferences_;
    Heard heard_;
};

TEST_F(InterfacePreferencesTest, WhatIsPostedAnywhereIsHeard) {
    InterfacePreferences::post(nullptr, 3, 0.5);
    EXPECT_EQ(heard_.key, "3");
    EXPECT_EQ(heard_.value, 0.5);
    NotificationCenter::defaultCenter().post(InterfacePreferences::savedNotification, this);
    EXPECT_EQ(heard_.saved, 1);
}

TEST_F(InterfacePreferencesTest, ANumberThatIsMissingMakesItNone) {
    NotificationCenter::defaultCenter().post({InterfacePreferences::changedNotification, nullptr, {{"major", 1}}});
    NotificationCenter::defaultCenter().post({InterfacePreferences::changedNotification, nullptr, {{"minor", 1}}});
    EXPECT_EQ(heard_.times, 0);
}

TEST_F(InterfacePreferencesTest, NothingIsHeardAfterTheEnd) {
    preferences_.stop();
    InterfacePreferences::post(nullptr, 3, 0.5);
    NotificationCenter::defaultCenter().post(InterfacePreferences::savedNotification, this);
    EXPECT_EQ(heard_.times + heard_.saved, 0);
}

} // namespace
} // namespace QVM_NAMESPACE
