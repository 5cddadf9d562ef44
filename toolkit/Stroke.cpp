#include "toolkit/Stroke.h"

#include "toolkit/Conversions.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace QVM_NAMESPACE {

namespace {

using Dash = std::vector<juce::Point<float>>;

struct Figure {
    Dash points;
    bool isClosed = false;
};

std::vector<Figure> figuresOf(const juce::Path& lines) {
    std::vector<Figure> figures;
    for (juce::Path::Iterator i(lines); i.next();) {
        if (i.elementType == juce::Path::Iterator::startNewSubPath) {
            figures.push_back({{{i.x1, i.y1}}, false});
        } else if (i.elementType == juce::Path::Iterator::lineTo && !figures.empty()) {
            figures.back().points.emplace_back(i.x1, i.y1);
        } else if (i.elementType == juce::Path::Iterator::closePath && !figures.empty()) {
            Figure& figure = figures.back();
            figure.isClosed = true;
            if (figure.points.front() != figure.points.back()) figure.points.push_back(figure.points.front());
        }
    }
    return figures;
}

// Where in a dash pattern a pen is.
class Pen {
public:
    Pen(const std::vector<double>& lengths, double phase) : lengths_(lengths) {
        const double once = std::accumulate(lengths.begin(), lengths.end(), 0.0);
        const double whole = lengths.size() % 2 == 0 ? once : once * 2; // an odd pattern swaps on and off each time
        double left = std::fmod(phase, whole);
        if (left < 0) left += whole;
        left_ = lengths_[0];
        while (left > 0 && left >= left_) {
            left -= left_;
            next();
        }
        left_ -= left;
    }
    bool isDown() const { return index_ % 2 == 0; }
    double left() const { return left_; }
    void move(double length) { left_ -= length; }
    void next() { left_ = lengths_[++index_ % lengths_.size()]; }

private:
    const std::vector<double>& lengths_;
    std::size_t index_ = 0;
    double left_ = 0;
};

std::vector<Dash> cut(const Figure& figure, Pen pen) {
    std::vector<Dash> dashes;
    const bool startsDown = pen.isDown();
    if (startsDown) dashes.push_back({figure.points.front()});
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        const juce::Point<float> from = figure.points[i - 1], to = figure.points[i];
        const double length = from.getDistanceFrom(to);
        double at = 0;
        while (length - at > pen.left()) {
            at += pen.left();
            const juce::Point<float> cutAt = from + (to - from) * static_cast<float>(at / length);
            if (pen.isDown()) dashes.back().push_back(cutAt);
            pen.next();
            if (pen.isDown()) dashes.push_back({cutAt});
        }
        pen.move(length - at);
        if (pen.isDown()) dashes.back().push_back(to);
    }
    if (figure.isClosed && startsDown && pen.isDown() && dashes.size() > 1) {
        Dash& last = dashes.back();
        last.insert(last.end(), dashes.front().begin() + 1, dashes.front().end());
        dashes.erase(dashes.begin());
    }
    return dashes;
}

juce::PathStrokeType strokeType(const ShapeLayer& layer, double width) {
    using Type = juce::PathStrokeType;
    const auto joint = layer.lineJoin() == LineJoin::miter   ? Type::mitered
                       : layer.lineJoin() == LineJoin::round ? Type::curved
                                                             : Type::beveled;
    const auto end = layer.lineCap() == LineCap::butt    ? Type::butt
                     : layer.lineCap() == LineCap::round ? Type::rounded
                                                         : Type::square;
    return {static_cast<float>(width), joint, end};
}

} // namespace

juce::Path dashed(const juce::Path& lines, const std::vector<double>& lengths, double phase) {
    const bool canDash = std::none_of(lengths.begin(), lengths.end(), [](double l) { return !(l >= 0); }) &&
                         std::accumulate(lengths.begin(), lengths.end(), 0.0) > 0.01;
    if (!canDash || !std::isfinite(phase)) return lines;
    juce::Path out;
    for (const Figure& figure : figuresOf(lines)) {
        for (const Dash& dash : cut(figure, Pen(lengths, phase))) {
            out.startNewSubPath(dash.front());
            for (std::size_t i = 1; i < dash.size(); ++i)
                out.lineTo(dash[i]);
        }
    }
    return out;
}

juce::Path strokeOutline(const juce::Path& path, const ShapeLayer& layer, double dashPhase, double pixelsPerPoint) {
    const juce::Path lines = flattened(path);
    std::vector<double> lengths = layer.lineDashPattern();
    for (double& length : lengths)
        length *= pixelsPerPoint;
    juce::Path outline;
    strokeType(layer, layer.lineWidth() * pixelsPerPoint)
        .createStrokedPath(outline, lengths.empty() ? lines : dashed(lines, lengths, dashPhase * pixelsPerPoint));
    return outline;
}

} // namespace QVM_NAMESPACE
