#include "toolkit/Conversions.h"

#include <gtest/gtest.h>

namespace QVM_NAMESPACE {
namespace {

using Element = juce::Path::Iterator;

TEST(Conversions, ColourKeepsItsParts) {
    EXPECT_EQ(toToolkit(Color{1, 0.2f, 0, 0.4f}), juce::Colour::fromRGBA(255, 51, 0, 102));
}

TEST(Conversions, TransformTakesAPointToTheSamePlace) {
    const AffineTransform transform{2, 3, 5, 7, 11, 13};
    const Point expected = transform.apply(Point{17, 19});
    const auto moved = juce::Point<float>(17, 19).transformedBy(toToolkit(transform));
    EXPECT_EQ(moved, juce::Point<float>(static_cast<float>(expected.x), static_cast<float>(expected.y)));
}

TEST(Conversions, EachEdgeGoesToItsOwnNearestPixel) {
    EXPECT_EQ(toNearestPixels({0.6, 1.4, 1.8, 2}), juce::Rectangle<int>(1, 1, 1, 2));
    EXPECT_EQ(toToolkit(Rect{0.5, 1, 2, 3}), juce::Rectangle<float>(0.5f, 1, 2, 3));
}

TEST(Conversions, PathKeepsItsElementsInTheirOrder) {
    const Path path = Path{}.moveTo({0, 0}).lineTo({1, 0}).cubicTo({2, 0}, {3, 1}, {3, 2}).close();
    const juce::Path converted = toToolkit(path, AffineTransform::scale(10, 10));
    Element element(converted);
    ASSERT_TRUE(element.next());
    EXPECT_EQ(element.elementType, Element::startNewSubPath);
    ASSERT_TRUE(element.next());
    EXPECT_EQ(element.elementType, Element::lineTo);
    EXPECT_EQ(element.x1, 10);
    ASSERT_TRUE(element.next());
    EXPECT_EQ(element.elementType, Element::cubicTo);
    EXPECT_EQ(juce::Point<float>(element.x2, element.y2), juce::Point<float>(30, 10));
    EXPECT_EQ(juce::Point<float>(element.x3, element.y3), juce::Point<float>(30, 20));
    ASSERT_TRUE(element.next());
    EXPECT_EQ(element.elementType, Element::closePath);
    EXPECT_FALSE(element.next());
}

TEST(Conversions, PictureComesBackAsItWas) {
    const Image image{2, 2, {0xFF102030u, 0u, 0x80402010u, 0xFFFFFFFFu}};
    const Image back = fromToolkit(toToolkit(image));
    EXPECT_EQ(back.width, 2);
    EXPECT_EQ(back.height, 2);
    EXPECT_EQ(back.pixels, image.pixels);
}

TEST(Conversions, CanvasIsClearAndNeverEmpty) {
    EXPECT_EQ(fromToolkit(makeCanvas(2, 1)).pixels, (std::vector<std::uint32_t>{0, 0}));
    EXPECT_EQ(makeCanvas(0, 0).getBounds(), juce::Rectangle<int>(1, 1));
}

TEST(Conversions, FlattenedPathStaysWithinATenthOfTheCurve) {
    constexpr double radius = 100;
    const juce::Path circle = flattened(toToolkit(Path{}.addArc({0, 0}, radius, 0, 6.28).close(), {}));
    int points = 0;
    for (Element element(circle); element.next();) {
        if (element.elementType == Element::closePath) continue;
        ASSERT_NE(element.elementType, Element::cubicTo);
        ++points;
    }
    EXPECT_GT(points, 30);
    for (int degrees = 0; degrees < 359; ++degrees) {
        const double angle = degrees * juce::MathConstants<double>::pi / 180;
        const auto at = [&](double r) {
            return juce::Point<double>(r * std::cos(angle), r * std::sin(angle)).toFloat();
        };
        EXPECT_TRUE(circle.contains(at(radius - 0.1))) << degrees;
        EXPECT_FALSE(circle.contains(at(radius + 0.1))) << degrees;
    }
}

} // namespace
} // namespace QVM_NAMESPACE
