#include "editor/surface/ToolTips.h"

#include "editor/EditorFixture.h"

#include "controls/QVMRangeControl.h"
#include "controls/QVMSymbolButton.h"
#include "description/tables/GestureTable.h"
#include "editor/surface/ClipLight.h"
#include "editor/surface/QVMPowerBox.h"
#include "editor/surface/QVMPresetBar.h"
#include "editor/surface/QVMPresetControl.h"
#include "editor/surface/ScaleGrip.h"
#include "platform/view/Menu.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr Button firstButton = Button::logo, lastButton = Button::sizeGrip;

template <class Action>
void forEachButton(Action action) {
    for (int i = static_cast<int>(firstButton); i <= static_cast<int>(lastButton); ++i)
        action(static_cast<Button>(i));
}

class ToolTips : public EditorFixture {
protected:
    std::string toolTipAt(Point at) const {
        const View* view = window_.toolTippedViewAt(at);
        return view ? view->toolTip() : "";
    }
    // All titles of the menu, and of its part that has what is a button.
    std::vector<std::string> menuTitles() const {
        std::vector<std::string> found;
        const auto menu = ui_->menuForKeyboard();
        for (const auto* items : {&menu->items, &menu->items.back().submenu})
            for (const MenuItem& item : *items)
                found.push_back(item.title);
        return found;
    }
};

TEST_F(ToolTips, EveryParametersControlSaysWhatItDoesAndWithWhichKeys) {
    for (const QVMParameterControl* each : ui_->parameterControls()) {
        const QVMParameter& parameter = *each->parameter();
        const std::string& text = each->toolTip();
        EXPECT_THAT(text, StartsWith(parameter.name + "\n"));
        EXPECT_THAT(text, HasSubstr("\nKeys: ")) << parameter.name;
        EXPECT_GE(std::count(text.begin(), text.end(), '\n'), 3) << text;
    }
}

TEST_F(ToolTips, WhatAControlDoesFollowsItsKind) {
    EXPECT_EQ(control(pidTiltGain).toolTip(), "Tilt Gain\n"
                                              "How much the spectrum leans between the two ends of the tilt range.\n"
                                              "Ctrl fine \u00b7 Shift coarse \u00b7 Alt-click resets\n"
                                              "Keys: arrows \u00b7 digits \u00b7 Return");
    EXPECT_EQ(control(pidFilterListenLow).toolTip(), "Filter Listen Low\n"
                                                     "Lets only what the low filter takes away be heard.\n"
                                                     "Click \u00b7 Alt-click resets\n"
                                                     "Keys: arrows \u00b7 Return");
    EXPECT_THAT(control(pidTiltLoudnessMode).toolTip(), Not(HasSubstr("digits")));
    EXPECT_THAT(control(pidFilterSlopeHigh).toolTip(), HasSubstr("digits"));
    EXPECT_THAT(control(pidFilterSlopeHigh).toolTip(), HasSubstr("Drag up or down"));
    EXPECT_THAT(control(pidMasterOnOff).toolTip(), HasSubstr("Shift+F10, Editor, Power"))
        << "it never has the keyboard";
}

TEST_F(ToolTips, TheBandBetweenTwoHandlesSaysThatItMovesBoth) {
    const QVMRangeControl& band = *control(pidTiltRangeHigh).range();
    EXPECT_EQ(band.toolTip(), "Tilt Range\nDrag moves both ends \u00b7 Alt-click resets") << "the name of neither end";
}

TEST_F(ToolTips, EveryButtonHasOneWithItsPlaceInTheMenu) {
    forEachButton([](Button button) {
        const std::string text = toolTipOf(button);
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2) << text;
        const std::string place = button == Button::sizeGrip ? "" : "Editor, ";
        EXPECT_THAT(text, HasSubstr("\nKeys: Shift+F10, " + place + std::string(menuTitleOf(button))));
    });
}

TEST_F(ToolTips, TheMenuHasEveryPlaceThatTheyName) {
    std::vector<std::string> titles = menuTitles();
    ui_->presetBar()->ab().toggleBooleanControl();
    for (const std::string& title : menuTitles())
        titles.push_back(title); // of the other side
    forEachButton([&](Button button) { EXPECT_THAT(titles, testing::Contains(menuTitleOf(button))); });
    EXPECT_THAT(titles, testing::Contains("Power"));
}

TEST_F(ToolTips, WhatStandsInTheEditorHasThem) {
    QVMPresetBar& bar = *ui_->presetBar();
    EXPECT_EQ(bar.undo().toolTip(), toolTipOf(Button::undo));
    EXPECT_EQ(bar.redo().toolTip(), toolTipOf(Button::redo));
    EXPECT_EQ(toolTipAt(middleOf(bar.ab().arrow())), toolTipOf(Button::copyAToB));
    EXPECT_EQ(toolTipAt(middleOf(*ui_->sketch())), toolTipOf(Button::curve));
    EXPECT_EQ(toolTipAt(middleOf(ui_->powerBox()->logo())), toolTipOf(Button::logo));
    EXPECT_EQ(toolTipAt(middleOf(*ui_->parts().scaleGrip())), toolTipOf(Button::sizeGrip));
    EXPECT_EQ(ClipLight({100, 100}, nullptr).toolTip(), toolTipOf(Button::clipLight));
}

TEST_F(ToolTips, ThePresetsArrowsHaveTheirOwn) {
    const QVMParameterControl& presets = *ui_->presetBar()->presetControl();
    const auto& inner = dynamic_cast<const QVMPresetControl&>(*presets.primaryControl());
    const Rect frame = inner.coordinates().toWindow(inner.bounds());
    const auto at = [&](double x) {
        const Point point = {x, frame.midY()};
        window_.sendEvent(mouseEvent(EventType::mouseMoved, point));
        return toolTipAt(point);
    };
    EXPECT_EQ(at(frame.minX() + 10), toolTipOf(Button::previousPreset));
    EXPECT_EQ(at(frame.maxX() - 10), toolTipOf(Button::nextPreset));
    EXPECT_EQ(at(frame.midX()), toolTipOf(Button::presets));
}

TEST_F(ToolTips, TheWindowKnowsTheControlWithTheFocus) {
    EXPECT_EQ(window_.keyboardView(), nullptr);
    ui_->bringParameterControlIntoFocus(&control(pidTiltGain));
    EXPECT_EQ(window_.keyboardView(), &control(pidTiltGain));
    ui_->bringParameterControlIntoFocus(nullptr);
    EXPECT_EQ(window_.keyboardView(), nullptr);
}

TEST(GestureTable, NamesNothingTwiceAndTheMousesComeFirst) {
    bool isKeyboard = false;
    std::vector<std::string> calls;
    for (const tables::GestureRow& row : tables::Gestures()) {
        EXPECT_THAT(calls, Not(testing::Contains(row.call)));
        calls.emplace_back(row.call);
        isKeyboard = isKeyboard || row.device == tables::GestureDevice::keyboard;
        EXPECT_EQ(row.device == tables::GestureDevice::keyboard, isKeyboard) << row.call;
        EXPECT_EQ(*row.brief != 0, row.subjects != tables::onNothing) << row.call;
    }
}

TEST(GestureTable, HasTheKeysForSizesAndLists) {
    std::string calls;
    for (const tables::GestureRow& row : tables::Gestures())
        calls += std::string(row.call) + '\n';
    for (const char* call : {"Drag a corner", "Ctrl with +, -, 0", "Home, End, letters"})
        EXPECT_THAT(calls, HasSubstr(call));
}

} // namespace
} // namespace QVM_NAMESPACE
