// What the user prefers of the interface, from one editor to the next.
#include "host/HostViewFixture.h"

#include "preferences/PreferenceFile.h"
#include "theme/QVMUITheme.h"

#include <gmock/gmock.h>

namespace QVM_NAMESPACE {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class HostViewPreferences : public HostView {
protected:
    ~HostViewPreferences() override {
        if (&QVMUITheme::theme() != &QVMUITheme::light()) QVMUITheme::toggleThemeForWindow(nullptr);
    }
    static Preferences kept() { return PreferenceFile::ofUser().read(); }
};

TEST_F(HostViewPreferences, NothingIsWrittenUntilTheUserChangesOne) {
    bind();
    ui().requestFrame(1);
    time.advance(2);
    view.reset();
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(HostViewPreferences, TheScaleIsGivenToTheNextEditor) {
    bind();
    ui().scale().choose(1.5F);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 720, 480}));
    EXPECT_EQ(view->bounds(), (Rect{0, 0, 480, 320}));
    EXPECT_EQ(ui().frame(), view->bounds());
    view.reset();
    bind();
    EXPECT_EQ(ui().currentScale(), 1.5F);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 720, 480}));
    EXPECT_THAT(kept(), ElementsAre(Pair("scale", 1.5)));
}

TEST_F(HostViewPreferences, TheScaleIsThatOfEveryForm) {
    PreferenceFile::ofUser().remember("scale", 0.75);
    unit.addProperty(64010, std::uint32_t{2});
    bind();
    EXPECT_EQ(ui().altFrame(), 2);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 150, 150}));
    ui().requestFrame(1);
    EXPECT_EQ(view->frame(), (Rect{0, 0, 510, 240}));
}

TEST_F(HostViewPreferences, TheThemeIsRememberedAsItIsThoughItIsReportedAsOne) {
    bind();
    ui().toggleUITheme();
    EXPECT_THAT(kept(), ElementsAre(Pair("theme", 1)));
    ui().toggleUITheme();
    EXPECT_EQ(unit.property<std::uint8_t>(64003), 1);
    EXPECT_THAT(kept(), ElementsAre(Pair("theme", 0)));
    view.reset();
    PreferenceFile::ofUser().remember("theme", 1);
    bind();
    EXPECT_EQ(&QVMUITheme::theme(), &QVMUITheme::dark());
}

TEST_F(HostViewPreferences, TheSpectrumIsRememberedToo) {
    bind();
    ui().sketches().spectrum().setMode(SpectrumMode::inputAndOutput);
    ui().preferences().report("spectrum");
    EXPECT_THAT(kept(), ElementsAre(Pair("spectrum", 2)));
}

TEST_F(HostViewPreferences, WhatNoEditorTakesBackIsNotRemembered) {
    bind();
    InterfacePreferences::post(this, 7, 1.5); // heard by every open editor
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(HostViewPreferences, ANewEditorGetsAllAndReportsNone) {
    PreferenceFile::ofUser().remember("scale", 2);
    PreferenceFile::ofUser().remember("of.a.later.version", 7);
    bind();
    EXPECT_THAT(kept(), ElementsAre(Pair("of.a.later.version", 7), Pair("scale", 2)));
    EXPECT_THAT(takeTags(), IsEmpty());
}

} // namespace
} // namespace QVM_NAMESPACE
