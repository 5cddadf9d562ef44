#include "toolkit/Conversions.h"

#include <cmath>
#include <cstring>

namespace QVM_NAMESPACE {

juce::Colour toToolkit(Color c) {
    return juce::Colour::fromFloatRGBA(c.r, c.g, c.b, c.a);
}

juce::AffineTransform toToolkit(const AffineTransform& t) {
    const auto f = [](double v) { return static_cast<float>(v); };
    return {f(t.a), f(t.c), f(t.tx), f(t.b), f(t.d), f(t.ty)};
}

juce::Rectangle<float> toToolkit(const Rect& r) {
    return juce::Rectangle<double>(r.x, r.y, r.width, r.height).toFloat();
}

juce::Rectangle<int> toNearestPixels(const Rect& r) {
    const auto whole = [](double v) { return static_cast<int>(std::lround(v)); };
    return juce::Rectangle<int>::leftTopRightBottom(whole(r.minX()), whole(r.minY()), whole(r.maxX()), whole(r.maxY()));
}

juce::Path toToolkit(const Path& path, const AffineTransform& transform) {
    juce::Path out;
    const auto at = [&transform](Point p) {
        const Point q = transform.apply(p);
        return juce::Point<double>(q.x, q.y).toFloat();
    };
    for (const Path::Element& e : path.elements()) {
        switch (e.verb) {
        case Path::Verb::move:
            out.startNewSubPath(at(e.end));
            break;
        case Path::Verb::line:
            out.lineTo(at(e.end));
            break;
        case Path::Verb::cubic:
            out.cubicTo(at(e.p1), at(e.p2), at(e.end));
            break;
        case Path::Verb::close:
            out.closeSubPath();
            break;
        }
    }
    return out;
}

juce::Image toToolkit(const Image& image) {
    return toToolkit(image, {image.width, image.height});
}

juce::Image toToolkit(const Image& image, juce::Rectangle<int> part) {
    part = part.getIntersection({image.width, image.height});
    juce::Image out = makeCanvas(part.getWidth(), part.getHeight());
    if (part.isEmpty()) return out;
    const juce::Image::BitmapData rows(out, juce::Image::BitmapData::writeOnly);
    const auto width = static_cast<std::size_t>(image.width);
    for (int y = 0; y < part.getHeight(); ++y) {
        const std::size_t row = static_cast<std::size_t>(part.getY() + y) * width;
        std::memcpy(rows.getLinePointer(y), image.pixels.data() + row + static_cast<std::size_t>(part.getX()),
                    static_cast<std::size_t>(part.getWidth()) * sizeof(std::uint32_t));
    }
    return out;
}

Image fromToolkit(const juce::Image& image) {
    const juce::Image argb = image.convertedToFormat(juce::Image::ARGB);
    const juce::Image::BitmapData rows(argb, juce::Image::BitmapData::readOnly);
    Image out;
    out.width = rows.width;
    out.height = rows.height;
    const auto width = static_cast<std::size_t>(rows.width);
    out.pixels.resize(width * static_cast<std::size_t>(rows.height));
    for (int y = 0; y < rows.height; ++y) {
        std::memcpy(out.pixels.data() + static_cast<std::size_t>(y) * width, rows.getLinePointer(y),
                    width * sizeof(std::uint32_t));
    }
    return out;
}

juce::Image makeCanvas(int width, int height) {
    return juce::Image(juce::Image::ARGB, juce::jmax(1, width), juce::jmax(1, height), true, juce::SoftwareImageType());
}

juce::Path flattened(const juce::Path& path, const juce::AffineTransform& transform) {
    constexpr float tolerance = 0.1f;
    juce::Path out;
    bool isOpen = false;
    for (juce::PathFlatteningIterator line(path, transform, tolerance); line.next();) {
        if (!isOpen) out.startNewSubPath(line.x1, line.y1);
        out.lineTo(line.x2, line.y2);
        isOpen = !line.closesSubPath && !line.isLastInSubpath();
        if (line.closesSubPath) out.closeSubPath();
    }
    out.setUsingNonZeroWinding(path.isUsingNonZeroWinding());
    return out;
}

} // namespace QVM_NAMESPACE
