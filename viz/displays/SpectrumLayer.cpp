#include "viz/displays/SpectrumLayer.h"

#include "platform/surface/PackedColor.h"

#include <algorithm>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr double kLineWidth = 1;        // points
constexpr double kLeastForAnEdge = 100; // points across: in a smaller picture it would crowd the curve

// In a column, the outline: it comes from the middle of the way from the column before and goes to that of the next.
struct Course {
    float from = 0, here = 0, to = 0; // pixels from the top
    float highest() const { return std::min({from, here, to}); }
    float lowest() const { return std::max({from, here, to}); }
};
Course courseAt(const std::vector<float>& tops, std::size_t x) {
    const float here = tops[x], before = tops[x == 0 ? x : x - 1], behind = tops[std::min(x + 1, tops.size() - 1)];
    return {(before + here) / 2, here, (here + behind) / 2};
}

// The share of a pixel in a row that is below a straight line across it.
float shareBelow(float row, float one, float other) {
    const auto sum = [](float u) { return u <= 0 ? 0 : u >= 1 ? u - 0.5f : u * u / 2; }; // of clamp(u, 0, 1), up to u
    const float high = row + 1 - std::min(one, other), low = row + 1 - std::max(one, other);
    constexpr float level = 1e-3f;
    return high - low < level ? std::clamp(high, 0.0f, 1.0f) : (sum(high) - sum(low)) / (high - low);
}

// Everything below the outline.
void fillBelow(Image& picture, const std::vector<float>& tops, Color color) {
    const Shades shades(color);
    const std::uint32_t whole = shades.at(1);
    std::vector<int> wholeFrom(tops.size()); // rows
    for (std::size_t x = 0; x < tops.size(); ++x) {
        const Course course = courseAt(tops, x);
        wholeFrom[x] = static_cast<int>(std::ceil(course.lowest()));
        for (auto y = static_cast<int>(course.highest()); y < std::min(wholeFrom[x], picture.height); ++y) {
            const auto row = static_cast<float>(y);
            const float share =
                (shareBelow(row, course.from, course.here) + shareBelow(row, course.here, course.to)) / 2;
            picture.pixels[static_cast<std::size_t>(y) * tops.size() + x] = shades.at(share);
        }
    }
    for (int y = *std::ranges::min_element(wholeFrom); y < picture.height; ++y) {
        std::uint32_t* const row = picture.pixels.data() + static_cast<std::size_t>(y) * tops.size();
        for (std::size_t x = 0; x < tops.size(); ++x)
            row[x] = y >= wholeFrom[x] ? whole : row[x];
    }
}

// The outline itself, where it is above the bottom.
void drawOutline(Image& picture, const std::vector<float>& tops, float width, Color color) {
    const Shades shades(color);
    const auto bottom = static_cast<float>(picture.height);
    for (std::size_t x = 0; x < tops.size(); ++x) {
        const Course course = courseAt(tops, x);
        if (course.highest() >= bottom) continue;
        const float from = std::max(course.highest() - width / 2, 0.0f);
        const float to = std::min(course.lowest() + width / 2, bottom);
        for (auto y = static_cast<int>(from); y < picture.height && static_cast<float>(y) < to; ++y) {
            const auto row = static_cast<float>(y);
            const float covered = std::min(row + 1, to) - std::max(row, from);
            std::uint32_t& pixel = picture.pixels[static_cast<std::size_t>(y) * tops.size() + x];
            pixel = blendedOver(shades.at(covered), pixel);
        }
    }
}

} // namespace

SpectrumLayer::SpectrumLayer(const SpectrumColours& colours) : colours_(colours) {
    setName("spectrum");
    look().setContents(nullptr, ContentsGravity::topLeft);
}

void SpectrumLayer::setColours(const SpectrumColours& colours) {
    colours_ = colours;
    look().setNeedsDisplay();
}

SpectrumLayer::PixelSize SpectrumLayer::pixelSize() const {
    const auto pixels = [this](double points) { return static_cast<int>(std::ceil(points * look().contentsScale())); };
    return {pixels(bounds().width), pixels(bounds().height)};
}

SpectrumTrace SpectrumLayer::traceOf(const std::vector<float>& levels) const {
    return {levels, pixelSize().width, pixelSize().height};
}

Redraw SpectrumLayer::show(std::span<const float> output, std::span<const float> input) {
    std::vector<float> newOutput(output.begin(), output.end()), newInput(input.begin(), input.end());
    const auto differ = [this](const std::vector<float>& now, const std::vector<float>& before) {
        if (now.empty() || before.empty()) return now.size() != before.size();
        return traceOf(now).differsFrom(traceOf(before));
    };
    if (!differ(newOutput, output_) && !differ(newInput, input_)) return Redraw::no;
    output_ = std::move(newOutput);
    input_ = std::move(newInput);
    look().setNeedsDisplay();
    return Redraw::yes;
}

const std::shared_ptr<const Image>& SpectrumLayer::contents() const {
    if (drawnVersion_ != look().version() || drawnSize_ != pixelSize()) draw();
    return shown_;
}

void SpectrumLayer::draw() const {
    drawnVersion_ = look().version();
    drawnSize_ = pixelSize();
    const long ours = 2; // picture_ and shown_
    if (!picture_ || picture_.use_count() > ours) picture_ = std::make_shared<Image>();
    shown_ = picture_;
    picture_->width = drawnSize_.width;
    picture_->height = highestRow_ = drawnSize_.height;
    picture_->pixels.assign(static_cast<std::size_t>(drawnSize_.width) * static_cast<std::size_t>(drawnSize_.height),
                            0);
    if (picture_->isEmpty()) return;
    const auto width = static_cast<float>(kLineWidth * look().contentsScale());
    const auto reach = [&](const SpectrumTrace& trace) {
        const float top = *std::ranges::min_element(trace.tops()) - width;
        highestRow_ = std::min(highestRow_, static_cast<int>(std::max(top, 0.0f)));
    };
    if (!output_.empty()) {
        const SpectrumTrace output = traceOf(output_);
        fillBelow(*picture_, output.tops(), colours_.area);
        if (bounds().width >= kLeastForAnEdge) drawOutline(*picture_, output.tops(), width, colours_.edge);
        if (!output.isEmpty()) reach(output);
    }
    if (!input_.empty()) {
        const SpectrumTrace input = traceOf(input_);
        drawOutline(*picture_, input.tops(), width, colours_.line);
        if (!input.isEmpty()) reach(input);
    }
}

Rect SpectrumLayer::lookBounds(const PresentedLayer& presented) const {
    contents();
    const double above = highestRow_ / look().contentsScale();
    const Rect& box = presented.bounds;
    return Rect{box.x, box.y + above, box.width, box.height - above}.intersectionWith(box);
}

bool SpectrumLayer::hasLook(const PresentedLayer& presented) const {
    return !presented.bounds.isEmpty() && !lookBounds(presented).isEmpty();
}

} // namespace QVM_NAMESPACE
