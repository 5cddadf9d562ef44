// A layer that shows one line of styled text, placed by its bounds. Text that does not fit is neither shortened nor
// wrapped: it reaches beyond them. Main thread, like all layers.
#pragma once

#include "platform/layer/AttributedString.h"
#include "platform/layer/Layer.h"

namespace QVM_NAMESPACE {

enum class TextAlignment : unsigned char { left, center, right };
enum class TextPlacement : unsigned char { top, middle, bottom }; // within the height; middle centres the cap height

class TextLayer : public Layer {
public:
    explicit TextLayer(YAxis axis = YAxis::down) : Layer(axis) {}

    const AttributedString& string() const { return string_; }
    // Setting an equal text changes nothing, so it costs nothing.
    void setString(const AttributedString& string);
    TextAlignment alignment() const { return alignment_; }
    TextPlacement placement() const { return placement_; }
    void setAlignment(TextAlignment alignment, TextPlacement placement = TextPlacement::middle);

    // 0 at first.
    double leastOpacity() const override { return leastOpacity_; }
    void setLeastOpacity(double opacity);

    Rect lookBounds(const PresentedLayer& presented) const override;
    bool hasLook(const PresentedLayer& presented) const override;
    bool isPlainRectangle(const PresentedLayer& presented) const override;
    std::string lookDescription() const override;
    const char* kind() const override { return "TextLayer"; }

private:
    template <class T>
    void store(T& member, const T& value);

    AttributedString string_;
    TextAlignment alignment_ = TextAlignment::center;
    TextPlacement placement_ = TextPlacement::middle;
    double leastOpacity_ = 0;
};

} // namespace QVM_NAMESPACE
