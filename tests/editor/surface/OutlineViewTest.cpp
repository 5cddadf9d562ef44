#include "editor/surface/OutlineView.h"

#include "platform/layer/TextLayer.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/Window.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace QVM_NAMESPACE {
namespace {

class OutlineViewTest : public testing::Test {
protected:
    void SetUp() override {
        outline_ = &window_.setContentView(std::make_unique<OutlineView>(Rect{0, 0, 195, 120}));
        std::vector<OutlineItem> items(2);
        for (std::uint32_t id = 0; id < 12; ++id)
            items[id / 6].children.push_back({"Leaf " + std::to_string(id), id == 3 ? "a note" : "", id, {}});
        items[0].title = "First";
        items[1].title = "Second";
        outline_->setItems(std::move(items));
        outline_->setChoiceHandler([this](std::uint32_t id) { chosen_.push_back(id); });
    }
    Event event(EventType type, Point at) {
        Event made;
        made.type = type;
        made.locationInWindow = at;
        made.clickCount = 1;
        return made;
    }
    void click(Point at) {
        window_.sendEvent(event(EventType::mouseDown, at));
        window_.sendEvent(event(EventType::mouseUp, at));
    }
    void wheel(double notches) {
        Event scroll = event(EventType::scrollWheel, {50, 50});
        scroll.scrollingDeltaY = notches;
        window_.sendEvent(scroll);
    }
    const Layer& mark(const char* name) {
        for (const auto& sublayer : outline_->layer()->tree().sublayers().front()->tree().sublayers())
            if (sublayer->name() == name) return *sublayer;
        ADD_FAILURE() << "no layer " << name;
        return *outline_->layer();
    }

    Color colorOf(const std::string& words) {
        for (const auto& sublayer : outline_->layer()->tree().sublayers().front()->tree().sublayers()) {
            const auto* text = dynamic_cast<const TextLayer*>(sublayer.get());
            if (text && text->string().string() == words) return text->string().runs.front().color;
        }
        ADD_FAILURE() << "no text " << words;
        return {};
    }

    VirtualTime time_;
    Window window_;
    OutlineView* outline_ = nullptr;
    std::vector<std::uint32_t> chosen_;
};

TEST_F(OutlineViewTest, TheChosenRowsTextsAreThoseOfTheOtherThemesGround) {
    const QVMUITheme& theme = QVMUITheme::theme();
    outline_->select(3);
    EXPECT_EQ(colorOf("Leaf 3"), theme.backgroundColor);
    EXPECT_EQ(colorOf("a note"), theme.subtleTextColor);
    EXPECT_EQ(colorOf("Leaf 4"), theme.textColor);
    outline_->select(4);
    EXPECT_EQ(colorOf("Leaf 3"), theme.textColor);
    EXPECT_EQ(colorOf("a note"), theme.palette.note);
    EXPECT_EQ(colorOf("Leaf 4"), theme.backgroundColor);
    outline_->select(std::nullopt);
    EXPECT_EQ(colorOf("Leaf 4"), theme.textColor);
}

TEST_F(OutlineViewTest, AChosenRowThatIsFoldedAwayComesBackAsChosen) {
    outline_->select(3);
    outline_->setExpanded(0, false);
    outline_->setExpanded(0, true);
    EXPECT_EQ(colorOf("Leaf 3"), QVMUITheme::theme().backgroundColor);
}

TEST_F(OutlineViewTest, AClickChoosesALeafAlsoTheOneThatIsSelected) {
    const Point at = outline_->frameOfLeaf(1).center();
    click(at);
    click(at);
    EXPECT_EQ(chosen_, (std::vector<std::uint32_t>{1, 1}));
    EXPECT_EQ(outline_->selection(), 1u);
    EXPECT_EQ(mark("selectionMark").frame(), outline_->frameOfLeaf(1));
}

TEST_F(OutlineViewTest, ARowWithANoteIsHigher) {
    EXPECT_GT(outline_->frameOfLeaf(3).height, outline_->frameOfLeaf(2).height);
}

TEST_F(OutlineViewTest, OnlyWhatMayBeCutIsCut) {
    const std::string name(40, 'm');
    for (const auto fit : {OutlineItem::Fit::asIs, OutlineItem::Fit::cut}) {
        outline_->setItems({{"First", "", std::nullopt, {{name, "", 1, {}, fit}}}});
        outline_->select(1);
        const auto& list = outline_->layer()->tree().sublayers().front()->tree().sublayers();
        const auto row = std::ranges::find_if(list, [&](const auto& layer) { return layer->name() == name; });
        ASSERT_NE(row, list.end());
        const std::string shown = dynamic_cast<const TextLayer&>(**row).string().string();
        EXPECT_EQ(shown == name, fit == OutlineItem::Fit::asIs) << shown;
    }
}

TEST_F(OutlineViewTest, ALeafThatCannotBeChosenIsPassedOver) {
    outline_->setItems(
        {{"First", "", std::nullopt, {{"a", "", 1, {}}, {"b", "", std::nullopt, {}}, {"c", "", 3, {}}}}});
    outline_->select(1);
    const Rect above = outline_->frameOfLeaf(1);
    click({above.center().x, above.maxY() + 5});
    EXPECT_TRUE(chosen_.empty());
    EXPECT_TRUE(outline_->isExpanded(0));
    outline_->choose(outline_->walk().by(1));
    EXPECT_EQ(chosen_, std::vector<std::uint32_t>{3});
}

TEST_F(OutlineViewTest, AnInlayStandsBehindTheLastRowIsBroughtIntoViewAndMovesWithTheList) {
    auto made = std::make_unique<View>(Rect{0, 0, 195, 40});
    const View& inlay = *made;
    const double before = outline_->contentHeight();
    outline_->setInlay(std::move(made));
    EXPECT_EQ(outline_->contentHeight(), before + 40);
    EXPECT_EQ(inlay.frame().y, outline_->frameOfLeaf(11).maxY());
    EXPECT_LE(inlay.frame().maxY(), 120);
    const double seen = inlay.frame().y;
    outline_->scrollTo(outline_->scrollOffset() - 10);
    EXPECT_EQ(inlay.frame().y, seen + 10);
    outline_->setInlay(nullptr);
    EXPECT_EQ(outline_->contentHeight(), before);
    EXPECT_TRUE(outline_->subviews().empty());
}

TEST_F(OutlineViewTest, AClickOnATitleFoldsItsSection) {
    const double before = outline_->contentHeight();
    click(outline_->frameOfSection(0).center());
    EXPECT_FALSE(outline_->isExpanded(0));
    EXPECT_TRUE(outline_->frameOfLeaf(0).isEmpty());
    EXPECT_LT(outline_->contentHeight(), before);
    EXPECT_TRUE(chosen_.empty());
    click(outline_->frameOfSection(0).center());
    EXPECT_EQ(outline_->contentHeight(), before);
}

TEST_F(OutlineViewTest, AllSectionsStartUnfolded) {
    EXPECT_TRUE(outline_->isExpanded(0));
    EXPECT_TRUE(outline_->isExpanded(1));
    EXPECT_FALSE(outline_->frameOfLeaf(11).isEmpty());
}

TEST_F(OutlineViewTest, SelectingTellsNobodyAndBringsTheRowIntoView) {
    outline_->select(11);
    EXPECT_TRUE(chosen_.empty());
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
    outline_->select(0);
    EXPECT_EQ(outline_->scrollOffset(), 0);
    outline_->select(std::nullopt);
    EXPECT_TRUE(mark("selectionMark").isHidden());
    outline_->select(99);
    EXPECT_TRUE(mark("selectionMark").isHidden());
}

TEST_F(OutlineViewTest, KeysMoveTheSelectionAcrossSectionsAndStopAtTheEnds) {
    EXPECT_TRUE(outline_->choose(outline_->walk().by(1)));
    EXPECT_EQ(outline_->selection(), 0u);
    for (int i = 0; i < 20; ++i)
        outline_->choose(outline_->walk().by(1));
    EXPECT_EQ(outline_->selection(), 11u);
    EXPECT_EQ(chosen_.size(), 12u); // nothing is chosen again at the end
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
}

TEST_F(OutlineViewTest, TheWheelScrollsWithinTheList) {
    outline_->frameOfLeaf(0);
    wheel(-1);
    const double step = outline_->scrollOffset();
    EXPECT_GT(step, 0);
    wheel(1);
    EXPECT_EQ(outline_->scrollOffset(), 0);
    wheel(5);
    EXPECT_EQ(outline_->scrollOffset(), 0);
    wheel(-1000);
    EXPECT_EQ(outline_->scrollOffset(), outline_->contentHeight() - outline_->bounds().height);
}

TEST_F(OutlineViewTest, ASmoothDeviceScrollsByPoints) {
    outline_->frameOfLeaf(0);
    Event scroll = event(EventType::scrollWheel, {50, 50});
    scroll.scrollingDeltaY = -7;
    scroll.hasPreciseScrollingDeltas = true;
    window_.sendEvent(scroll);
    EXPECT_EQ(outline_->scrollOffset(), 7);
}

TEST_F(OutlineViewTest, TheThumbCanBeDragged) {
    outline_->frameOfLeaf(0);
    window_.sendEvent(event(EventType::mouseDown, {192, 5}));
    EXPECT_EQ(outline_->scrollOffset(), 0);
    window_.sendEvent(event(EventType::mouseDragged, {192, 500}));
    EXPECT_EQ(outline_->scrollOffset(), outline_->contentHeight() - outline_->bounds().height);
    window_.sendEvent(event(EventType::mouseUp, {192, 500}));
    EXPECT_TRUE(chosen_.empty());
}

TEST_F(OutlineViewTest, TheRowUnderThePointerLightsUp) {
    window_.sendEvent(event(EventType::mouseMoved, outline_->frameOfLeaf(1).center()));
    EXPECT_FALSE(mark("hoverMark").isHidden());
    EXPECT_EQ(mark("hoverMark").frame(), outline_->frameOfLeaf(1));
    window_.sendEvent(event(EventType::mouseExited, {-1, -1}));
    EXPECT_TRUE(mark("hoverMark").isHidden());
}

TEST_F(OutlineViewTest, ItsEndsAreChosenAtOnce) {
    EXPECT_TRUE(outline_->choose(outline_->walk().toLast()));
    EXPECT_EQ(outline_->selection(), 11u);
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
    EXPECT_TRUE(outline_->choose(outline_->walk().toFirst()));
    EXPECT_TRUE(outline_->choose(outline_->walk().toFirst()));
    EXPECT_EQ(chosen_, (std::vector<std::uint32_t>{11, 0})) << "what is chosen is not chosen again";
    outline_->setItems({});
    EXPECT_FALSE(outline_->choose(outline_->walk().toLast()));
}

TEST_F(OutlineViewTest, TheLastLeafBringsTheListsEndIntoViewWithWhatCannotBeChosen) {
    std::vector<OutlineItem> items = outline_->items();
    items[1].children.push_back({"broken", "a reason", std::nullopt, {}});
    outline_->setItems(std::move(items));
    outline_->choose(outline_->walk().toLast());
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
    EXPECT_EQ(outline_->scrollOffset(), outline_->contentHeight() - 120) << "nothing is half under a fade";
    outline_->setExpanded(1, false);
    outline_->choose(outline_->walk().toLast());
    EXPECT_EQ(outline_->selection(), 5u);
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfSection(1))) << "the title of what is folded";
    EXPECT_EQ(outline_->scrollOffset(), outline_->contentHeight() - 120);
}

TEST_F(OutlineViewTest, TheLastLeafStaysInViewWhateverStandsBehindIt) {
    std::vector<OutlineItem> items = outline_->items();
    items[1].children.insert(items[1].children.end(), 20, {"broken", "a reason", std::nullopt, {}});
    outline_->setItems(std::move(items));
    outline_->choose(outline_->walk().toLast());
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
}

TEST_F(OutlineViewTest, WhatIsChosenAlreadyComesBackIntoViewAndIsToldNobody) {
    outline_->choose(11);
    chosen_.clear();
    outline_->scrollTo(0);
    EXPECT_TRUE(outline_->choose(outline_->walk().toLast()));
    EXPECT_TRUE(outline_->bounds().contains(outline_->frameOfLeaf(11)));
    EXPECT_TRUE(chosen_.empty());
}

TEST_F(OutlineViewTest, ALetterChoosesTheNextLeafThatBeginsWithIt) {
    outline_->setItems({{"First", "", {}, {{"Air", "", 0, {}}, {"bass", "", 1, {}}, {"Bright", "", 2, {}}}},
                        {"Second", "", {}, {{"Berlin", "", 3, {}}}}});
    for (const char32_t letter : {U'b', U'b', U'B', U'b'})
        EXPECT_TRUE(outline_->choose(outline_->walk().toLetter(letter)));
    EXPECT_EQ(chosen_, (std::vector<std::uint32_t>{1, 2, 3, 1})) << "from the first one on behind the last";
    EXPECT_FALSE(outline_->choose(outline_->walk().toLetter(U'x')));
    EXPECT_FALSE(outline_->choose(outline_->walk().toLetter(U'f'))) << "a section's title is none";
    EXPECT_EQ(outline_->selection(), 1u);
    EXPECT_TRUE(outline_->choose(outline_->walk().toLetter(U'a')));
}

TEST_F(OutlineViewTest, FadesAtAnEndThatHidesMore) {
    const auto fade = [this](const char* name) -> double {
        for (const auto& sublayer : outline_->layer()->tree().sublayers())
            if (sublayer->name() == name) return sublayer->opacity();
        ADD_FAILURE() << "no layer " << name;
        return -1;
    };
    outline_->scrollTo(0);
    outline_->contentHeight();
    EXPECT_EQ(fade("topFade"), 0);
    EXPECT_EQ(fade("bottomFade"), 1);
    outline_->scrollTo(40);
    EXPECT_EQ(fade("topFade"), 1);
    outline_->scrollTo(1e4);
    EXPECT_EQ(fade("topFade"), 1);
    EXPECT_EQ(fade("bottomFade"), 0);
}

} // namespace
} // namespace QVM_NAMESPACE
