#include "editor/surface/QVMClumpView.h"

#include "controls/QVMParameterControl.h"
#include "description/QVMParameter.h"
#include "editor/surface/EdgeInsets.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double rippleStep = 0.02; // seconds between one control and the next
constexpr const char* rippleKey = "dimRipple";
constexpr double dimmedAlpha = 0.5;
constexpr double lineWidth = 1; // points
constexpr double outlineInset = 4;
constexpr double interiorGap = 12; // points between a line and what it stands beside
constexpr LabelStyle headingStyle = {12, 1.2};
constexpr LabelStyle taggedLabelStyle = {10, 1};
constexpr LabelStyle parameterLabelStyle = {9, 0.9};
constexpr float leastAccentChroma = 0.15f; // below it a colour is a grey and makes no accent

bool isLaidOut(const QVMParameter& parameter) {
    return !parameter.hidden && !parameter.frame.isEmpty();
}

// Labels side by side head columns.
bool headsColumn(const Rect& frame, const QVMClump& clump) {
    return std::ranges::any_of(clump.taggedLabels, [&frame](const auto& entry) {
        const Rect& other = entry.second.frame;
        return other.y == frame.y && (other.minX() >= frame.maxX() || other.maxX() <= frame.minX());
    });
}

float chroma(const QVMColor& color) {
    return std::max({color.r, color.g, color.b}) - std::min({color.r, color.g, color.b});
}

// A control takes its state at once; only what is seen of it follows later than the one before. A delay of 0 leaves the
// control's own fade alone.
void delayFade(Layer& layer, double presentedBefore, double delay) {
    if (presentedBefore == layer.opacity() || delay <= 0) return layer.animations().remove(rippleKey);
    BasicAnimation fade;
    fade.keyPath = "opacity";
    fade.fromValue = presentedBefore;
    fade.toValue = layer.opacity();
    fade.beginDelay = delay;
    layer.animations().add(std::move(fade), rippleKey);
}

} // namespace

QVMClumpView::QVMClumpView(const Rect& frame, QVMClump& clump) : ThemedView(frame), clump_(clump) {
    layer()->setName("clump:" + clump.codesafeName);
    addOutline();
    addInteriorBorders();
    addLabels();
    themeUpdated();
}

std::vector<QVMParameterControl*> QVMClumpView::parameterControls() const {
    std::vector<QVMParameterControl*> controls;
    for (const auto& subview : subviews())
        if (auto* control = dynamic_cast<QVMParameterControl*>(subview.get())) controls.push_back(control);
    return controls;
}

void QVMClumpView::setDimmedDelayPriority(bool dimmed, double delay, std::uint32_t priority) {
    dimmed_ = dimmed;
    const std::vector<QVMParameterControl*> controls = parameterControls();
    const std::vector<double> delays = rippleDelays(controls.size(), delay);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const double before = controls[i]->layer()->presentation().opacity;
        controls[i]->setDimmedDelayPriorityKey(dimmed, delays[i], priority, "Clump");
        delayFade(*controls[i]->layer(), before, delays[i]);
    }
    animateAlpha(dimmed ? dimmedAlpha : 1);
}

std::vector<double> QVMClumpView::rippleDelays(std::size_t count, double delay) {
    std::vector<double> delays(count);
    for (std::size_t i = 0; i < count; ++i)
        delays[i] = delay + static_cast<double>(i) * rippleStep;
    return delays;
}

Rect QVMClumpView::useableRect() const {
    return insetByEdges(bounds(), clump_.inset);
}

Rect QVMClumpView::newRoundedBorderRect() const {
    return useableRect().insetBy(outlineInset, outlineInset);
}

void QVMClumpView::themeUpdated() {
    const QVMUITheme& theme = QVMUITheme::theme();
    const Color label = theme.labelColorGivenInk(theme.palette.labelInk);
    for (Label& entry : labels_)
        entry.label.setColor(entry.kind == LabelKind::heading ? headingColor() : label);
    for (const auto& line : interiorBorders_)
        line->look().setBackgroundColor(theme.interiorBorderColor);
    if (outline_) outline_->look().setBorder(lineWidth, theme.palette.boxBorder);
}

View* QVMClumpView::hitTest(Point pointInSuperview) {
    View* hit = View::hitTest(pointInSuperview);
    return hit == this ? nullptr : hit;
}

void QVMClumpView::addLabels() {
    if (!clump_.labelFrame.isEmpty())
        addLabel({clump_.label, clump_.labelString, clump_.labelFrame, QVMLabelAlignment::left, headingStyle},
                 LabelKind::heading);
    for (const auto& [text, tagged] : clump_.taggedLabels) {
        const bool heads = headsColumn(tagged.frame, clump_);
        addLabel({"", text, tagged.frame, tagged.alignment, heads ? headingStyle : taggedLabelStyle},
                 heads ? LabelKind::heading : LabelKind::label);
    }
    for (const QVMParameter* parameter : clump_.parameters) {
        if (!isLaidOut(*parameter) || parameter->labelFrame.isEmpty()) continue;
        addLabel({parameter->label, parameter->labelString.empty() ? parameter->name : parameter->labelString,
                  parameter->labelFrame.offsetBy(parameter->frame.x, parameter->frame.y), QVMLabelAlignment::center,
                  parameterLabelStyle},
                 LabelKind::label);
    }
}

void QVMClumpView::addLabel(LabelContent content, LabelKind kind) {
    Label& added = labels_.emplace_back(Label{LabelLayer(std::move(content)), kind});
    layer()->tree().add(added.label.layer());
}

void QVMClumpView::addOutline() {
    if (clump_.edges.empty()) return;
    outline_ = std::make_shared<Layer>();
    outline_->setName("outline");
    outline_->setFrame(newRoundedBorderRect());
    outline_->look().setCornerRadius(radii::box);
    layer()->tree().add(outline_);
}

// Labels side by side head columns, which a line parts; what is displaced below the columns is parted by another.
void QVMClumpView::addInteriorBorders() {
    if (!clump_.showInteriorBorders) return;
    std::vector<Rect> heads;
    for (const auto& [text, tagged] : clump_.taggedLabels)
        heads.push_back(tagged.frame);
    std::sort(heads.begin(), heads.end(), [](const Rect& a, const Rect& b) { return a.x < b.x; });

    double bottom = 0;
    const QVMParameter* below = nullptr;
    for (const QVMParameter* parameter : clump_.parameters) {
        if (!isLaidOut(*parameter)) continue;
        if (parameter->isDisplaced)
            below = parameter;
        else
            bottom = std::max(bottom, parameter->frame.maxY());
    }
    bool hasColumns = false;
    for (std::size_t i = 1; i < heads.size(); ++i) {
        if (heads[i - 1].maxX() > heads[i].minX() || heads[i - 1].y != heads[i].y) continue;
        const double middle = (heads[i - 1].maxX() + heads[i].minX()) / 2;
        addInteriorBorder({middle - lineWidth / 2, heads[i].y, lineWidth, bottom + interiorGap - heads[i].y});
        hasColumns = true;
    }
    if (!hasColumns || !below || below->frame.y < bottom) return;
    addInteriorBorder({heads.front().x, (bottom + interiorGap + below->frame.y) / 2,
                       heads.back().maxX() - heads.front().x, lineWidth});
}

void QVMClumpView::addInteriorBorder(const Rect& box) {
    auto line = std::make_shared<Layer>();
    line->setName("interiorBorder");
    line->setFrame(Rect{std::round(box.x), std::round(box.y), box.width, box.height});
    layer()->tree().add(line);
    interiorBorders_.push_back(std::move(line));
}

// A clump whose main slider has a colour of its own is headed in it; the others in the theme's.
Color QVMClumpView::headingColor() const {
    const QVMUITheme& theme = QVMUITheme::theme();
    const auto& parameters = clump_.parameters;
    const auto slider = std::find_if(parameters.begin(), parameters.end(), [](const QVMParameter* parameter) {
        return parameter->controlType == QVMControlTypeSlider && isLaidOut(*parameter);
    });
    if (slider == parameters.end() || chroma((*slider)->color) < leastAccentChroma)
        return theme.labelColorGivenInk(theme.palette.headingInk);
    return contrasted(theme.foregroundGivenSpecified(QVMCGColor((*slider)->color)), theme.backgroundColor);
}

} // namespace QVM_NAMESPACE
