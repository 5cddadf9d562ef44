#include "platform/view/View.h"

#include "platform/layer/Transaction.h"
#include "platform/runloop/VirtualTime.h"
#include "platform/view/RecordingView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using ::testing::ElementsAre;

std::unique_ptr<View> view(const Rect& frame, YAxis axis = YAxis::down) {
    return std::make_unique<View>(frame, axis);
}

TEST(View, LayerFollowsTheFrame) {
    View v({10, 20, 30, 40});
    EXPECT_EQ(v.layer()->frame(), (Rect{10, 20, 30, 40}));
    v.setFrame({1, 2, 3, 4});
    EXPECT_EQ(v.layer()->frame(), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(v.bounds(), (Rect{0, 0, 3, 4}));
}

TEST(View, AWindowsContentMayBeShownLargerOrSmallerThanItIsLaidOut) {
    RecordingHost host;
    Window window(&host);
    View& content = window.setContentView(view({0, 0, 480, 320}));
    View& button = content.addSubview(view({450, 300, 20, 10}));
    host.sizes.clear();
    for (const double scale : {0.75, 3.0}) {
        content.setFrame({0, 0, 480 * scale, 320 * scale}, {480, 320});
        EXPECT_EQ(content.frame().size(), (Size{480 * scale, 320 * scale}));
        EXPECT_EQ(content.bounds(), (Rect{0, 0, 480, 320}));
        EXPECT_EQ(content.layer()->frame(), (Rect{0, 0, 480, 320})) << "what is drawn is not laid out anew";
        EXPECT_EQ(window.hitTest({455, 305}), &button);
        EXPECT_EQ(window.hitTest({481, 305}), nullptr);
        EXPECT_EQ(button.coordinates().fromWindow({455, 305}), (Point{5, 5}));
        EXPECT_EQ(button.coordinates().toWindow(Point{5, 5}), (Point{455, 305}));
    }
    EXPECT_THAT(host.sizes, ElementsAre(Size{480, 320}, Size{480, 320})) << "the host is told, as its frame follows";
}

TEST(View, FrameChangeIsToldOnceAndOnlyWhenItIsOne) {
    Record record;
    RecordingView v("v", record, {0, 0, 10, 10});
    v.setFrame({0, 0, 10, 10});
    EXPECT_TRUE(record.empty());
    v.setFrame({0, 0, 11, 10});
    EXPECT_THAT(record, ElementsAre("v frame"));
}

TEST(View, HiddenAndAlphaAreTheLayers) {
    View v;
    v.setHidden(true);
    v.setAlpha(0.25);
    EXPECT_TRUE(v.layer()->isHidden());
    EXPECT_EQ(v.layer()->opacity(), 0.25);
}

TEST(View, AnimatedAlphaGlidesFromWhatIsShown) {
    VirtualTime time;
    View v;
    v.animateAlpha(0.2, 1);
    EXPECT_EQ(v.alpha(), 0.2);
    EXPECT_EQ(v.layer()->presentation().opacity, 1);
    time.advance(2);
    EXPECT_EQ(v.layer()->presentation().opacity, 0.2);
}

TEST(View, SubviewLayersStandInOrderAboveTheViewsOwn) {
    View parent({0, 0, 100, 100});
    const auto own = std::make_shared<Layer>();
    parent.layer()->tree().add(own);
    View& a = parent.addSubview(view({}));
    View& b = parent.addSubview(view({}));
    View& lowest = parent.addSubview(view({}), Order::below);
    View& between = parent.addSubview(view({}), Order::above, &a);
    View& belowB = parent.addSubview(view({}), Order::below, &b);
    EXPECT_THAT(parent.layer()->tree().sublayers(),
                ElementsAre(own, lowest.layer(), a.layer(), between.layer(), belowB.layer(), b.layer()));
    std::vector<View*> order;
    for (const auto& subview : parent.subviews())
        order.push_back(subview.get());
    EXPECT_THAT(order, ElementsAre(&lowest, &a, &between, &belowB, &b));
}

TEST(View, RemovedViewIsHandedBackAndItsLayerGoes) {
    View parent({0, 0, 100, 100});
    View& child = parent.addSubview(view({0, 0, 10, 10}));
    const std::unique_ptr<View> back = child.removeFromSuperview();
    EXPECT_EQ(back.get(), &child);
    EXPECT_EQ(child.superview(), nullptr);
    EXPECT_TRUE(parent.subviews().empty());
    EXPECT_TRUE(parent.layer()->tree().sublayers().empty());
    EXPECT_EQ(child.removeFromSuperview(), nullptr);
}

TEST(View, NextResponderIsTheSuperviewUnlessOneIsGiven) {
    View parent;
    View& child = parent.addSubview(view({}));
    EXPECT_EQ(child.nextResponder(), &parent);
    Responder other;
    child.setNextResponder(&other);
    EXPECT_EQ(child.nextResponder(), &other);
}

TEST(View, HitTestFindsTheDeepestAndTopmost) {
    View root({0, 0, 100, 100});
    View& under = root.addSubview(view({10, 10, 50, 50}));
    View& over = root.addSubview(view({30, 30, 50, 50}));
    View& inner = over.addSubview(view({0, 0, 10, 10}));
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    EXPECT_EQ(root.hitTest({15, 15}), &under);
    EXPECT_EQ(root.hitTest({35, 35}), &inner);
    EXPECT_EQ(root.hitTest({45, 45}), &over);
    EXPECT_EQ(root.hitTest({100, 5}), nullptr);
    EXPECT_EQ(root.hitTest({-1, 5}), nullptr);
}

TEST(View, HitTestSkipsHiddenViewsWithAllThatIsInThem) {
    View root({0, 0, 100, 100});
    View& child = root.addSubview(view({0, 0, 50, 50}));
    child.addSubview(view({0, 0, 50, 50}));
    child.setHidden(true);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    root.setHidden(true);
    EXPECT_EQ(root.hitTest({5, 5}), nullptr);
}

TEST(View, HitTestKeepsATransparentView) {
    View root({0, 0, 100, 100});
    View& child = root.addSubview(view({0, 0, 50, 50}));
    child.setAlpha(0);
    EXPECT_EQ(root.hitTest({5, 5}), &child);
}

TEST(View, HitTestGoesByTheFrameWhileTheLayerIsElsewhere) {
    VirtualTime time;
    View root({0, 0, 100, 100});
    View& child = root.addSubview(view({0, 0, 10, 10}));
    {
        const auto gliding = Transaction::animated(1);
        child.setFrame({50, 0, 10, 10});
    }
    ASSERT_LT(child.layer()->presentation().position.x, 10);
    EXPECT_EQ(root.hitTest({5, 5}), &root);
    EXPECT_EQ(root.hitTest({55, 5}), &child);
}

TEST(View, WhatReachesBeyondTheSuperviewIsNotHitThere) {
    View root({0, 0, 100, 100});
    View& box = root.addSubview(view({0, 0, 20, 20}));
    View& child = box.addSubview(view({10, 0, 20, 20}));
    EXPECT_EQ(root.hitTest({15, 5}), &child);
    EXPECT_EQ(root.hitTest({25, 5}), &root);
}

TEST(View, LayersShowWhereViewsAreHit) {
    // The same tree, asked both ways: a view's box in the window is its layer's.
    View root({0, 0, 100, 100});
    View& up = root.addSubview(view({0, 0, 100, 100}, YAxis::up));
    View& child = up.addSubview(view({10, 70, 20, 30}));
    EXPECT_EQ(child.coordinates().toWindow(child.bounds()), (Rect{10, 0, 20, 30}));
    EXPECT_EQ(child.layer()->frame(), (Rect{10, 70, 20, 30}));
    EXPECT_EQ(up.layer()->yAxis(), YAxis::up);
}

TEST(View, WholeTreeLearnsOfTheWindowParentsFirst) {
    Record record;
    auto root = std::make_unique<RecordingView>("root", record, Rect{0, 0, 10, 10});
    root->addSubview(std::make_unique<RecordingView>("child", record, Rect{}));
    Window window;
    View& content = window.setContentView(std::move(root));
    EXPECT_THAT(record,
                ElementsAre("root willEnterWindow", "child willEnterWindow", "child inWindow", "root inWindow"));
    EXPECT_EQ(content.subviews()[0]->window(), &window);
    record.clear();
    content.subviews()[0]->removeFromSuperview();
    EXPECT_THAT(record, ElementsAre("child willLeaveWindow", "child outOfWindow"));
}

TEST(View, SubviewAddedWhileItsParentEntersTheWindowLearnsOfItOnce) {
    Record record;
    auto root = std::make_unique<RecordingView>("root", record, Rect{0, 0, 10, 10});
    RecordingView& r = *root;
    r.also = [&](const std::string& word) {
        if (word == "inWindow") r.addSubview(std::make_unique<RecordingView>("late", record, Rect{}));
    };
    Window window;
    window.setContentView(std::move(root));
    EXPECT_THAT(record, ElementsAre("root willEnterWindow", "root inWindow", "late willEnterWindow", "late inWindow"));
}

TEST(View, DescendantsIncludeTheViewItself) {
    View root;
    View& child = root.addSubview(view({}));
    View& grandchild = child.addSubview(view({}));
    EXPECT_TRUE(grandchild.isDescendantOf(root));
    EXPECT_TRUE(root.isDescendantOf(root));
    EXPECT_FALSE(root.isDescendantOf(child));
}

TEST(View, LayersOfATreeTakeTheWindowsScaleOnEntering) {
    Window window;
    window.setBackingScaleFactor(2);
    auto root = view({0, 0, 10, 10});
    const auto own = std::make_shared<Layer>();
    root->layer()->tree().add(own);
    View& child = root->addSubview(view({}));
    window.setContentView(std::move(root));
    EXPECT_EQ(own->look().contentsScale(), 2);
    EXPECT_EQ(child.layer()->look().contentsScale(), 2);
}

TEST(View, LayersAndViewsAddedLaterTakeTheWindowsScale) {
    Window window;
    View& root = window.setContentView(view({0, 0, 10, 10}));
    window.setBackingScaleFactor(3);
    const auto late = std::make_shared<Layer>(), nested = std::make_shared<Layer>();
    late->tree().add(nested);
    root.layer()->tree().add(late);
    EXPECT_EQ(late->look().contentsScale(), 3);
    EXPECT_EQ(nested->look().contentsScale(), 3);
    EXPECT_EQ(root.addSubview(view({})).layer()->look().contentsScale(), 3);
}

TEST(View, LayerThatWasGivenAScaleKeepsItWhenAddedLater) {
    View root;
    const auto picture = std::make_shared<Layer>();
    picture->look().setContentsScale(6);
    root.layer()->tree().add(picture);
    EXPECT_EQ(picture->look().contentsScale(), 6);
}

} // namespace
} // namespace QVM_NAMESPACE
