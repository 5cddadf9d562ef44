#include "editor/surface/SpectrumMenu.h"

#include "editor/EditorFixture.h"

#include "platform/view/Menu.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;

class SpectrumMenu : public EditorFixture {
protected:
    static std::vector<std::string> titles(const MenuItem& item) {
        std::vector<std::string> found;
        for (const MenuItem& choice : item.submenu)
            found.push_back((choice.checked ? "*" : "") + choice.title);
        return found;
    }
    MenuItem submenu() { return spectrumItems(*ui_).front(); }
    // The items called "Spectrum", in submenus too.
    static int spectra(const std::vector<MenuItem>& items) {
        int found = 0;
        for (const MenuItem& item : items)
            found += (item.title == "Spectrum") + spectra(item.submenu);
        return found;
    }
};

TEST_F(SpectrumMenu, TicksThePresentMode) {
    EXPECT_EQ(submenu().title, "Spectrum");
    EXPECT_THAT(titles(submenu()), ElementsAre("*Off", "Output", "Input and output"));
    ui_->sketches().spectrum().setMode(SpectrumMode::inputAndOutput);
    EXPECT_THAT(titles(submenu()), ElementsAre("Off", "Output", "*Input and output"));
}

TEST_F(SpectrumMenu, AChoiceIsShownAndReported) {
    submenu().submenu[1].action();
    EXPECT_EQ(ui_->sketches().spectrum().mode(), SpectrumMode::output);
    submenu().submenu[2].action();
    submenu().submenu[0].action();
    EXPECT_EQ(ui_->sketches().spectrum().mode(), SpectrumMode::off);
    EXPECT_THAT(delegate_.calls,
                ElementsAre("preference spectrum 1", "preference spectrum 2", "preference spectrum 0"));
}

TEST_F(SpectrumMenu, StandsOnceInEveryMenu) {
    EXPECT_EQ(spectra(ui_->menuForEvent(mouseEvent(EventType::rightMouseDown, {10, 15}))->items), 1);
    EXPECT_EQ(spectra(ui_->menuForEvent(mouseEvent(EventType::rightMouseDown, middleOf(control(7))))->items), 1);
    const auto menu = ui_->menuForKeyboard();
    EXPECT_EQ(menu->items.back().title, "Editor");
    EXPECT_EQ(spectra(menu->items.back().submenu), 0);
    EXPECT_EQ(spectra(menu->items), 1);
}

TEST_F(SpectrumMenu, HasAnItemForEachModeInTheSmallWindow) {
    ui_->requestFrame(QVMAltFrameCompact);
    const auto menu = ui_->menuForKeyboard();
    std::vector<std::string> found;
    for (const MenuItem& item : menu->items)
        if (item.title.find("pectrum") != std::string::npos) found.push_back((item.checked ? "*" : "") + item.title);
    EXPECT_THAT(found, ElementsAre("*No spectrum", "Spectrum of output", "Spectrum of input and output"));
    EXPECT_EQ(spectra(menu->items), 0) << "no submenu";
    spectrumItems(*ui_)[2].action();
    EXPECT_EQ(ui_->sketches().spectrum().mode(), SpectrumMode::inputAndOutput);
}

TEST_F(SpectrumMenu, OutlivesTheEditor) {
    const MenuItem item = submenu();
    window_.takeContentView().reset();
    ui_ = nullptr;
    item.submenu[1].action();
    EXPECT_THAT(delegate_.calls, testing::IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
