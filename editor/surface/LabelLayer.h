// One label of the editor: the description's picture of it, or text where there is no picture.
//
// Pictures are templates: only their shape counts, and the theme's colour fills it. Main thread only.
#pragma once

#include "description/Types.h"
#include "platform/layer/Layer.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

// The look of a label's text.
struct LabelStyle {
    double pointSize = 10;
    double kern = 1; // points behind each character
};

// What a label shows, and where: `frame` is in the coordinates of the layer that the label is added to.
struct LabelContent {
    std::string image; // "base64," and a PNG; anything else is no picture
    std::string text;  // shown in capitals where there is no picture
    Rect frame;
    QVMLabelAlignment alignment = QVMLabelAlignment::left;
    LabelStyle style;
};

class LabelLayer {
public:
    explicit LabelLayer(LabelContent content);

    const std::shared_ptr<Layer>& layer() const { return layer_; }
    // Fills the label with a colour.
    void setColor(Color color);

private:
    LabelContent content_;
    std::shared_ptr<Layer> layer_;
    bool showsImage_ = false;
};

// Capital letters for the ASCII letters of a text; all else stays.
std::string capitals(std::string text);

} // namespace QVM_NAMESPACE
