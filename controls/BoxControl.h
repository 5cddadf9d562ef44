// What the controls have in common that are drawn as one box: the box itself, the light under the pointer, the focus
// border around it, and what makes them draw anew.
//
// A box may have parts (cells, segments) that light up one by one. Main thread only.
#pragma once

#include "controls/QVMFloatControl.h"
#include "platform/layer/Transaction.h"

#include <optional>

namespace QVM_NAMESPACE {

enum class BoxShape : unsigned char { rounded, capsule };

class BoxControl : public QVMFloatControl {
public:
    BoxControl(const Rect& frame, const QVMParameter& parameter, BoxShape shape);

    const std::shared_ptr<Layer>& bg() const { return bg_; }

    void setHighlit(bool highlit) override;
    void setDimmed(bool dimmed) override;
    void setPreventInteraction(bool prevent) override;
    void themeUpdated() override { redraw(); }
    void frameDidChange() override { redraw(); }
    void mouseEntered(const Event& event) override;
    void mouseMoved(const Event& event) override;
    void mouseExited(const Event& event) override;

protected:
    // Lays out and draws everything anew, in the theme's present colours.
    virtual void redraw() = 0;
    // The part at a point (own coordinates), -1 for none; a box without parts is one all over.
    virtual int indexAt(Point) const { return 0; }
    // Where a part lights up, own coordinates; none for one that does not.
    virtual std::optional<Rect> hoverFrame(int /*index*/) const { return bg_->frame(); }
    // The theme's surface under the control, where the theme decides that: what stands on it can be seen.
    virtual std::optional<Color> surface() const;

    // Puts a layer above those that were added before and below the focus border. bg() is there from the start.
    void addPart(const std::shared_ptr<Layer>& part, const char* name);
    // The light under the pointer; the subclass adds it where it belongs among its parts.
    const std::shared_ptr<Layer>& hover() const { return hover_; }
    // Gives the box its frame (own coordinates) and shape, and the light its colour.
    void placeBox(const Rect& frame);
    // Places it over the whole control, in the theme's plain colours.
    void drawPlainBox();
    // After parts have moved or changed their meaning.
    void showHover();
    // Shows or hides the layer that marks a choice. Moved while the result lives, it glides if it was seen before.
    [[nodiscard]] static Transaction moveChoice(Layer& mark, bool isShown, Animate animate);

private:
    void pointTo(int index);

    const BoxShape shape_;
    std::shared_ptr<Layer> bg_, hover_;
    std::size_t partCount_ = 0;
    int hoveredIndex_ = -1;
};

} // namespace QVM_NAMESPACE
