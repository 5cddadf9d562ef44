#include "tools/gallery/Pages.h"

#include "platform/runloop/VirtualTime.h"
#include "tools/gallery/PageView.h"
#include "tools/gallery/ParameterExhibit.h"
#include "tools/gallery/Parameters.h"
#include "tools/gallery/TestSignal.h"

#include "controls/QVMFocusBorder.h"
#include "controls/QVMGlowingBooleanControl.h"
#include "controls/QVMGridControl.h"
#include "controls/QVMItemizedControl.h"
#include "controls/QVMMeterButton.h"
#include "controls/QVMNoteSlider.h"
#include "controls/QVMNumberControl.h"
#include "controls/QVMRangeSlider.h"
#include "controls/QVMToggleControl.h"
#include "tools/gallery/GalleryView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <typeindex>

namespace QVM_NAMESPACE {
namespace {

using testing::IsSupersetOf;

class GalleryPages : public testing::Test {
protected:
    std::unique_ptr<PageView> viewOf(const GalleryPage& page) {
        return std::make_unique<PageView>(Rect{0, 0, GalleryView::size.width, GalleryView::size.height - 72}, page,
                                          feed, Exhibit::Report());
    }
    static void collect(const View& view, std::set<std::type_index>& classes) {
        classes.insert(typeid(view));
        for (const auto& subview : view.subviews())
            collect(*subview, classes);
    }

    VirtualTime time;
    StereoFeed feed{*testSignal("sine", 8000), "sine"};
};

TEST_F(GalleryPages, ShowEveryClassOfControl) {
    std::set<std::type_index> classes;
    for (const GalleryPage& page : galleryPages())
        collect(*viewOf(page), classes);
    EXPECT_THAT(classes,
                IsSupersetOf(std::set<std::type_index>{
                    typeid(QVMVerticalSlider), typeid(QVMRangeControl), typeid(QVMRangeSlider), typeid(QVMCycleControl),
                    typeid(QVMItemizedControl), typeid(QVMBooleanControl), typeid(QVMGlowingBooleanControl),
                    typeid(QVMNumberControl), typeid(QVMToggleControl), typeid(QVMToggleSegment),
                    typeid(QVMGridControl), typeid(QVMNoteSlider), typeid(QVMSymbolButton), typeid(QVMMeterButton)}));
}

TEST_F(GalleryPages, EveryControlIsShownInEveryStateThatAnyControlHas) {
    for (const GalleryPage& page : galleryPages()) {
        const auto view = viewOf(page);
        std::set<std::string> identifiers;
        for (const Exhibit* exhibit : view->exhibits())
            identifiers.insert(exhibit->identifier());
        EXPECT_EQ(identifiers.size(), view->exhibits().size()) << page.name << ": one name twice";
        for (const ExhibitRow& row : page.rows) {
            if (row.kind != ExhibitKind::parameter && row.kind != ExhibitKind::range) continue;
            for (const char* state : {"normal", "hovered", "focused", "dimmed", "disabled", "lowest", "highest"})
                EXPECT_EQ(identifiers.count(std::string(page.name) + "/" + std::string(row.key) + "/" + state), 1u)
                    << page.name << "/" << row.key << "/" << state;
        }
    }
}

TEST_F(GalleryPages, EveryPageFitsItsWindowAndNothingOverlaps) {
    for (const GalleryPage& page : galleryPages()) {
        const auto view = viewOf(page);
        EXPECT_LE(view->contentHeight(), view->bounds().height) << page.name;
        for (const Exhibit* one : view->exhibits()) {
            EXPECT_TRUE(view->bounds().contains(one->frame())) << one->identifier();
            for (const Exhibit* other : view->exhibits())
                EXPECT_TRUE(one == other || !one->frame().intersects(other->frame())) << one->identifier();
        }
    }
}

TEST_F(GalleryPages, AreTheTabsNames) {
    std::vector<std::string> names;
    for (const GalleryPage& page : galleryPages())
        names.emplace_back(page.name);
    EXPECT_EQ(galleryParameter("Page")->stringValues, names);
    EXPECT_EQ(galleryPageNamed("cHOICES"), galleryPageNamed("Choices"));
    EXPECT_FALSE(galleryPageNamed("Nope"));
}

TEST_F(GalleryPages, StatesAreThoseThatTheControlsThemselvesReport) {
    const ExhibitRow row{"", ExhibitKind::parameter, "Resonance", {80, 44}};
    const auto shown = [&](ExhibitState state) {
        auto exhibit = Exhibit::make(row, state, {0, 0, 80, 44}, feed);
        time.advance(1);
        return exhibit;
    };
    EXPECT_TRUE(shown(ExhibitState::focused)->parameterControl()->focused());
    EXPECT_TRUE(shown(ExhibitState::dimmed)->parameterControl()->isDimmed());
    EXPECT_EQ(shown(ExhibitState::dimmed)->parameterControl()->alpha(), 0.2);
    EXPECT_TRUE(shown(ExhibitState::disabled)->parameterControl()->primaryControl()->isDisabled());
    EXPECT_EQ(shown(ExhibitState::lowest)->parameterControl()->floatValue(), 0);
    EXPECT_EQ(shown(ExhibitState::highest)->parameterControl()->floatValue(), 18);
    const auto typing = shown(ExhibitState::typing);
    const auto* box = dynamic_cast<const QVMNumberControl*>(typing->parameterControl()->primaryControl());
    EXPECT_EQ(box->value()->string().string(), "12.5");
    EXPECT_EQ(shown(ExhibitState::inaccurate), nullptr) << "a number is never inaccurate";
    EXPECT_EQ(shown(ExhibitState::warning), nullptr);
}

TEST_F(GalleryPages, ARowWithoutItsParameterShowsNothing) {
    const ExhibitRow row{"", ExhibitKind::parameter, "Nope", {80, 44}};
    EXPECT_EQ(Exhibit::make(row, ExhibitState::normal, {0, 0, 80, 44}, feed), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
