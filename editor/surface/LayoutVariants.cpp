#include "editor/surface/LayoutVariants.h"

#include "controls/QVMSymbolButton.h"
#include "description/ParameterIDs.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetsDrawer.h"

#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr std::int32_t variantCount = 3, compactStep = 2;
constexpr double drawerEndSeconds = 0.5; // until a drawer that was told to close is out of the way

} // namespace

void LayoutVariants::request(std::int32_t altFrame) {
    const std::optional<std::int32_t> before = std::exchange(asked_, altFrame);
    if (QVMGenericUIDelegate* delegate = ui_.delegate()) delegate->interfaceWantsToAssumeFrame(ui_, altFrame);
    asked_ = before;
}

void LayoutVariants::assume(std::int32_t altFrame, bool scaleChanged) {
    current_ = altFrame;
    if (current_ == QVMAltFrameCompact) ui_.hideAllDrawers(); // they would lie over the whole of it
    layOut();
    if (scaleChanged) ui_.viewDidChangeBackingProperties();
    if (QVMPowerBox* box = ui_.powerBox()) {
        if (QVMSymbolButton* gear = box->gear()) gear->setSelected(current_ == QVMAltFrameDoubleWide);
        box->themeUpdated();
    }
    if (QVMGenericUIDelegate* delegate = ui_.delegate())
        delegate->interfaceWantsToSaveUIState(ui_, static_cast<std::uint32_t>(current_));
}

void LayoutVariants::layOut() {
    ui_.parts().assumeLayout(current_, ui_.parameterControlWithPid(pidMasterOnOff), drawerPlace_);
    ui_.sketches().assumeLayout(EditorLayoutForAltFrame(current_));
    ui_.focus().dropIfHidden();
}

void LayoutVariants::restore(std::uint32_t kept) {
    const auto altFrame = static_cast<std::int32_t>(kept);
    if (kept < variantCount && altFrame != current_) request(altFrame);
}

void LayoutVariants::toggleDoubleWide() {
    request(current_ == QVMAltFrameDoubleWide ? QVMAltFrameNormal : QVMAltFrameDoubleWide);
}

void LayoutVariants::toggleCompact() {
    requestCall_.cancel();
    if (!ui_.drawers().arePresetsOpen()) {
        requestNext();
        return;
    }
    ui_.hideDrawerIfVisible(ui_.presetDrawer());
    requestCall_.schedule(drawerEndSeconds, [this] { requestNext(); });
}

void LayoutVariants::requestNext() {
    const std::int32_t next = current_ + compactStep;
    request(next < variantCount ? next : QVMAltFrameNormal);
}

void LayoutVariants::setDrawerPlace(DrawerPlace place) {
    if (std::exchange(drawerPlace_, place) != place && current_ == QVMAltFrameDoubleWide) layOut();
}

} // namespace QVM_NAMESPACE
