#include "program/NearestName.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

const std::vector<std::string> names = {"Default", "Air", "Sub Love", "Airy"};

TEST(NearestName, TakesTheFewestChanges) {
    EXPECT_EQ(nearestName("Aer", names), "Air");
    EXPECT_EQ(nearestName("Sublove", names), "Sub Love");
    EXPECT_EQ(nearestName("Airyy", names), "Airy");
    EXPECT_EQ(nearestName("", names), "Air");
}

TEST(NearestName, CapitalsCountForNothing) {
    EXPECT_EQ(nearestName("DEFAULT", names), "Default");
    EXPECT_EQ(nearestName("air", names), "Air");
}

TEST(NearestName, OfSeveralItIsTheFirst) {
    EXPECT_EQ(nearestName("b", std::vector<std::string>{"a", "c"}), "a");
}

TEST(NearestName, IsSaidOfAnUnknownOne) {
    EXPECT_EQ(unknownName("preset", "Aer", names), "there is no preset named \"Aer\"; the nearest is \"Air\"");
}

} // namespace
} // namespace QVM_NAMESPACE
