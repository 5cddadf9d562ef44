#include "editor/surface/QVMHUDDisplay.h"

#include "platform/layer/LayerDump.h"

#include <gtest/gtest.h>

#include <array>

namespace QVM_NAMESPACE {
namespace {

TEST(QVMHUDDisplay, AnUpdateChangesNothingVisible) {
    const std::array<float, 2> before = {0, 1}, after = {3, 4};
    const std::array<std::uint8_t, 2> changes = {1, 1};
    QVMHUDDisplay hud({0, 0, 20, 20}, before);
    const std::string tree = dumpLayerTree(*hud.layer());
    const std::uint64_t version = hud.layer()->look().version();
    hud.updateWithParamsChanges(after, changes);
    EXPECT_EQ(dumpLayerTree(*hud.layer()), tree);
    EXPECT_EQ(hud.layer()->look().version(), version);
}

TEST(QVMHUDDisplay, ATappedIndicatorIsTheDelegatesMatter) {
    struct Delegate final : QVMHUDDisplayDelegate {
        void hudWantsToUpdatePid(QVMHUDDisplay&, std::uint32_t pid) override { tapped = pid; }
        std::uint32_t tapped = 0;
    } delegate;
    QVMHUDDisplay hud({}, {});
    hud.indicatorTapped(3); // nobody there
    hud.setDelegate(&delegate);
    hud.indicatorTapped(7);
    EXPECT_EQ(delegate.tapped, 7u);
}

} // namespace
} // namespace QVM_NAMESPACE
