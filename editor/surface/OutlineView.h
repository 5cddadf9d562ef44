// A list of one column with titled sections, that scrolls: the preset list's looks and manners.
//
// A press on a leaf chooses it, as an arrow key does with the one before or behind, and a letter with the next one that
// begins with it; a press on a title folds its section. Where there is more beyond an edge the list fades into it.
// Nothing is laid out until it is first shown. Main thread only.
#pragma once

#include "editor/surface/EdgeFades.h"
#include "editor/surface/ListThumb.h"
#include "editor/surface/OutlineItem.h"
#include "editor/surface/OutlineWalk.h"
#include "editor/surface/ThemedView.h"
#include "platform/layer/TextLayer.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace QVM_NAMESPACE {

class OutlineView final : public ThemedView {
public:
    using ChoiceHandler = std::function<void(std::uint32_t id)>;

    explicit OutlineView(const Rect& frame);

    // Only titles at the top level and leaves below them are shown. All sections start unfolded.
    void setItems(std::vector<OutlineItem> items);
    const std::vector<OutlineItem>& items() const { return items_; }
    // Called when the user chooses a leaf, the selected one included.
    void setChoiceHandler(ChoiceHandler handler) { chosen_ = std::move(handler); }
    // The colour of the titles, and what the list stands on for their contrast.
    void setTitleColor(Color color);

    // Marks a leaf without telling anyone; none, or an unknown one, marks nothing. Brings the mark into view.
    void select(std::optional<std::uint32_t> id);
    std::optional<std::uint32_t> selection() const { return selection_; }
    // Where keys lead from here, and going there: the goal is chosen unless it is already. True when there is one.
    OutlineWalk walk();
    bool choose(std::optional<std::uint32_t> id);

    // The rows' frames in own coordinates as they are scrolled now; empty for what is folded or unknown.
    Rect frameOfLeaf(std::uint32_t id);
    Rect frameOfSection(std::size_t section);
    bool isExpanded(std::size_t section) const { return !folded_.contains(section); }
    void setExpanded(std::size_t section, bool expanded);

    // A view of the list's width that stands behind the last row and moves with it, such as something to be typed
    // there; it is brought into view. Null takes the one that is there away.
    void setInlay(std::unique_ptr<View> inlay);

    // Points from the top of the list to the top of the view. Scrolling stops at the ends of the list.
    double scrollOffset() const { return offset_; }
    void scrollTo(double offset);
    double contentHeight();

    void themeUpdated() override;
    void mouseDown(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event&) override { thumb_->letGo(); }
    void mouseCancelled(const Event&) override { thumb_->letGo(); }
    void mouseMoved(const Event& event) override;
    void mouseExited(const Event& event) override;
    void scrollWheel(const Event& event) override;

private:
    struct Row {
        std::size_t section = 0;
        bool isTitle = false;            // of the section
        std::optional<std::uint32_t> id; // none: it cannot be chosen
        Rect frame;                      // in the list's coordinates
        std::string name;                // what the title says
        std::shared_ptr<TextLayer> title, note;
    };

    void layOut();
    void addRow(const OutlineItem& item, std::size_t section, bool isTitle, double& y);
    void style();
    void styleRow(const Row& row) const;
    void placeMarks();
    void placeInlay();
    double greatestOffset() const;
    const Row* rowAt(Point pointInView) const;
    const Row* rowOf(std::optional<std::uint32_t> id) const;

    std::vector<OutlineItem> items_;
    ChoiceHandler chosen_;
    Color titleColor_;
    std::set<std::size_t> folded_; // sections
    std::vector<Row> rows_;        // those that are not folded away
    bool isLaidOut_ = false;
    std::optional<std::uint32_t> selection_;
    std::optional<std::size_t> hovered_; // row
    double offset_ = 0, height_ = 0, inlayTop_ = 0;
    View* inlay_ = nullptr; // a subview
    std::shared_ptr<Layer> list_, selectionMark_, hoverMark_;
    std::optional<EdgeFades> fades_; // from the constructor on, as the next
    std::optional<ListThumb> thumb_;
};

} // namespace QVM_NAMESPACE
