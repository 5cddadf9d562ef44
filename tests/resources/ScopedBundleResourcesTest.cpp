#include "resources/ScopedBundleResources.h"

#include <gtest/gtest.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

bool hasIconFont() {
    return !BundleResources::current().find("QVM-Icons-Regular", "otf").empty();
}

TEST(ScopedBundleResources, AMissingFileCanBeTriedOut) {
    ASSERT_TRUE(hasIconFont());
    {
        const ScopedBundleResources none{BundleResources({})};
        EXPECT_FALSE(hasIconFont());
    }
    EXPECT_TRUE(hasIconFont());
}

TEST(ScopedBundleResources, ScopesNest) {
    const std::array<std::byte, 1> outerBytes{std::byte{7}};
    const ScopedBundleResources outer{BundleResources({{"a", "png", outerBytes}})};
    {
        const ScopedBundleResources inner{BundleResources({})};
        EXPECT_TRUE(BundleResources::current().find("a", "png").empty());
    }
    EXPECT_EQ(BundleResources::current().find("a", "png").data(), outerBytes.data());
    EXPECT_FALSE(hasIconFont());
}

} // namespace
} // namespace QVM_NAMESPACE
