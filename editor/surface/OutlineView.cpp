#include "editor/surface/OutlineView.h"

#include "editor/surface/ElidedText.h"
#include "editor/surface/LabelLayer.h"
#include "editor/surface/PresetNameText.h"
#include "platform/view/Window.h"
#include "theme/Radii.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

// All in points.
constexpr double topPadding = 8, bottomPadding = 12, sectionGap = 9;
constexpr double titleHeight = 19, nameHeight = 17, noteHeight = 13, noteOverlap = 1;
constexpr double titleX = 14, nameX = 18, textRight = 12;
constexpr double markInset = 8;
constexpr double pointsALine = 17;
constexpr double titleSize = 11, titleKern = 1, nameSize = 14, noteSize = 10.5;
constexpr float thumbAlpha = 0.55f;
constexpr const char* nameFace = "HelveticaNeue-Medium";

Font nameFont() {
    return QVMUITheme::safeFontWithNameSize(nameFace, nameSize);
}

Font noteFont() {
    return QVMUITheme::italicFontOfSize(noteSize);
}

std::shared_ptr<TextLayer> makeText(const Rect& frame) {
    auto text = std::make_shared<TextLayer>();
    text->setAlignment(TextAlignment::left, TextPlacement::middle);
    text->setFrame(frame);
    return text;
}

std::shared_ptr<Layer> makeLayer(const char* name, double radius, Layer& parent) {
    auto made = std::make_shared<Layer>();
    made->setName(name);
    made->look().setCornerRadius(radius);
    parent.tree().add(made);
    return made;
}

void place(Layer& mark, const std::optional<Rect>& frame) {
    mark.setHidden(!frame);
    if (frame) mark.setFrame(*frame);
}

} // namespace

OutlineView::OutlineView(const Rect& frame) : ThemedView(frame) {
    layer()->setName("outline");
    layer()->setMasksToBounds(true);
    list_ = makeLayer("list", 0, *layer());
    hoverMark_ = makeLayer("hoverMark", radii::mark, *list_);
    selectionMark_ = makeLayer("selectionMark", radii::mark, *list_);
    fades_.emplace(*layer(), bounds());
    thumb_.emplace(*layer());
    for (const auto& mark : {hoverMark_, selectionMark_})
        mark->setHidden(true);
}

void OutlineView::setItems(std::vector<OutlineItem> items) {
    items_ = std::move(items);
    folded_.clear();
    isLaidOut_ = false;
}

void OutlineView::setTitleColor(Color color) {
    titleColor_ = color;
    style();
}

void OutlineView::layOut() {
    if (isLaidOut_) return;
    isLaidOut_ = true;
    for (const Row& row : rows_) {
        row.title->tree().removeFromSuperlayer();
        if (row.note) row.note->tree().removeFromSuperlayer();
    }
    rows_.clear();
    hovered_.reset();
    double y = topPadding;
    for (std::size_t section = 0; section < items_.size(); ++section) {
        if (section > 0) y += sectionGap;
        addRow(items_[section], section, true, y);
        if (!isExpanded(section)) continue;
        for (const OutlineItem& item : items_[section].children)
            addRow(item, section, false, y);
    }
    inlayTop_ = y;
    if (inlay_) y += inlay_->frame().height;
    height_ = y + bottomPadding;
    style();
    scrollTo(offset_);
    placeMarks();
}

void OutlineView::addRow(const OutlineItem& item, std::size_t section, bool isTitle, double& y) {
    const double x = isTitle ? titleX : nameX, width = bounds().width - x - textRight;
    const double height = isTitle ? titleHeight : nameHeight;
    const auto fitted = [&](const std::string& text, const Font& font) {
        return item.fit == OutlineItem::Fit::cut ? elided(text, font, width) : text;
    };
    const Rect frame = {markInset, y, bounds().width - 2 * markInset, height};
    const std::string name = isTitle ? capitals(item.title) : fitted(item.title, nameFont());
    Row row{section, isTitle, item.id, frame, name, makeText({x, y, width, height}), nullptr};
    row.title->setName(item.title);
    list_->tree().add(row.title);
    if (!item.note.empty()) {
        row.note = makeText({x, y + height - noteOverlap, width, noteHeight});
        row.note->setString({fitted(item.note, noteFont()), {}, {}});
        list_->tree().add(row.note);
        row.frame.height += noteHeight;
    }
    y += row.frame.height;
    rows_.push_back(std::move(row));
}

void OutlineView::style() {
    const QVMPalette& palette = QVMUITheme::theme().palette;
    hoverMark_->look().setBackgroundColor(palette.hover);
    selectionMark_->look().setBackgroundColor(palette.drawerSelection);
    thumb_->setColor(palette.tick.withAlpha(thumbAlpha));
    fades_->setGround(palette.drawer);
    for (const Row& row : rows_)
        styleRow(row);
}

// The chosen row's ground is of the other theme's kind, and its texts are as well.
void OutlineView::styleRow(const Row& row) const {
    const QVMUITheme& theme = QVMUITheme::theme();
    if (row.isTitle) {
        AttributedString title(row.name, QVMUITheme::unitFontOfSize(titleSize), titleColor_);
        title.runs.front().kern = titleKern;
        return row.title->setString(title);
    }
    const bool isChosen = row.id && row.id == selection_;
    const Color ink = row.id ? theme.textColor : theme.palette.note;
    row.title->setString(presetNameText(row.name, nameFont(), isChosen ? theme.backgroundColor : ink));
    if (!row.note) return;
    row.note->setString(
        {row.note->string().string(), noteFont(), isChosen ? theme.subtleTextColor : theme.palette.note});
}

void OutlineView::themeUpdated() {
    style();
}

void OutlineView::placeMarks() {
    const Row* selected = rowOf(selection_);
    place(*selectionMark_, selected ? std::optional(selected->frame) : std::nullopt);
    const Row* hovered = hovered_ && *hovered_ < rows_.size() ? &rows_[*hovered_] : nullptr;
    if (hovered && !hovered->isTitle && (!hovered->id || hovered->id == selection_)) hovered = nullptr;
    place(*hoverMark_, hovered ? std::optional(hovered->frame) : std::nullopt);
}

const OutlineView::Row* OutlineView::rowOf(std::optional<std::uint32_t> id) const {
    if (!id) return nullptr;
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.id == id; });
    return found == rows_.end() ? nullptr : &*found;
}

const OutlineView::Row* OutlineView::rowAt(Point point) const {
    const Point inList = {point.x, point.y + offset_};
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.frame.contains(inList); });
    return found == rows_.end() ? nullptr : &*found;
}

void OutlineView::select(std::optional<std::uint32_t> id) {
    layOut();
    if (const Row* const left = rowOf(std::exchange(selection_, id))) styleRow(*left);
    placeMarks();
    const Row* const row = rowOf(id);
    if (!row) return;
    styleRow(*row);
    // With its section's title where that is next to it; and to the end of the list where no key leads further, if that
    // leaves the row in view.
    const auto at = rows_.begin() + (row - rows_.data());
    const bool isFirst = at != rows_.begin() && (at - 1)->isTitle;
    const bool isLast = std::none_of(at + 1, rows_.end(), [](const Row& each) { return each.id.has_value(); });
    const double top = isFirst ? (at - 1)->frame.minY() - topPadding : row->frame.minY() - EdgeFades::height;
    const double bottom = isLast ? height_ : row->frame.maxY() + EdgeFades::height;
    if (bottom > offset_ + bounds().height) scrollTo(bottom - bounds().height);
    if (top < offset_) scrollTo(top);
}

OutlineWalk OutlineView::walk() {
    layOut();
    OutlineWalk walk{{}, selection_};
    for (const Row& row : rows_)
        if (row.id) walk.leaves.push_back({*row.id, row.name});
    return walk;
}

bool OutlineView::choose(std::optional<std::uint32_t> id) {
    if (!id) return false;
    const bool isNew = id != selection_;
    select(id);
    if (isNew && chosen_) chosen_(*id);
    return true;
}

Rect OutlineView::frameOfLeaf(std::uint32_t id) {
    layOut();
    const Row* row = rowOf(id);
    return row ? row->frame.offsetBy(0, -offset_) : Rect{};
}

Rect OutlineView::frameOfSection(std::size_t section) {
    layOut();
    for (const Row& row : rows_)
        if (row.isTitle && row.section == section) return row.frame.offsetBy(0, -offset_);
    return {};
}

void OutlineView::setExpanded(std::size_t section, bool expanded) {
    if (isExpanded(section) == expanded) return;
    if (expanded)
        folded_.erase(section);
    else
        folded_.insert(section);
    isLaidOut_ = false;
    layOut();
}

double OutlineView::contentHeight() {
    layOut();
    return height_;
}

double OutlineView::greatestOffset() const {
    return std::max(0.0, height_ - bounds().height);
}

void OutlineView::scrollTo(double offset) {
    offset_ = std::round(std::clamp(offset, 0.0, greatestOffset()));
    list_->setFrame({0, -offset_, bounds().width, height_});
    thumb_->place(bounds().size(), height_, offset_);
    fades_->update(offset_, greatestOffset() - offset_);
    placeInlay();
}

void OutlineView::setInlay(std::unique_ptr<View> inlay) {
    if (inlay_) inlay_->removeFromSuperview();
    inlay_ = inlay.get();
    if (inlay) addSubview(std::move(inlay));
    isLaidOut_ = false;
    layOut();
    if (inlay_) scrollTo(greatestOffset());
}

void OutlineView::placeInlay() {
    if (inlay_) inlay_->setFrame({0, inlayTop_ - offset_, inlay_->frame().width, inlay_->frame().height});
}

void OutlineView::scrollWheel(const Event& event) {
    const double points = event.hasPreciseScrollingDeltas ? 1 : pointsALine;
    scrollTo(offset_ - event.scrollingDeltaY * points);
    mouseMoved(event); // another row is under the pointer now
}

void OutlineView::mouseDown(const Event& event) {
    if (window()) window()->makeKey();
    const Point at = coordinates().fromWindow(event.locationInWindow);
    if (const auto offset = thumb_->press(at)) return scrollTo(*offset);
    const Row* row = rowAt(at);
    if (!row) return;
    if (row->isTitle) return setExpanded(row->section, !isExpanded(row->section));
    if (!row->id) return;
    const std::uint32_t id = *row->id;
    select(id);
    if (chosen_) chosen_(id);
}

void OutlineView::mouseDragged(const Event& event) {
    if (const auto offset = thumb_->drag(coordinates().fromWindow(event.locationInWindow))) scrollTo(*offset);
}

void OutlineView::mouseMoved(const Event& event) {
    const Row* row = rowAt(coordinates().fromWindow(event.locationInWindow));
    hovered_ = row ? std::optional(static_cast<std::size_t>(row - rows_.data())) : std::nullopt;
    placeMarks();
}

void OutlineView::mouseExited(const Event&) {
    hovered_.reset();
    placeMarks();
}

} // namespace QVM_NAMESPACE
