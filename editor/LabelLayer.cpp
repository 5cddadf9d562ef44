#include "editor/LabelLayer.h"

#include "editor/QVMBase64Decoder.h"
#include "platform/TextLayer.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double labelImageScale = 6; // pixels a point in the description's pictures

TextAlignment textAlignment(QVMLabelAlignment alignment) {
    switch (alignment) {
    case QVMLabelAlignment::left:
        return TextAlignment::left;
    case QVMLabelAlignment::center:
        return TextAlignment::center;
    case QVMLabelAlignment::right:
        return TextAlignment::right;
    }
    return TextAlignment::left;
}

double shareOfSlackBefore(QVMLabelAlignment alignment) {
    switch (alignment) {
    case QVMLabelAlignment::left:
        return 0;
    case QVMLabelAlignment::center:
        return 0.5;
    case QVMLabelAlignment::right:
        return 1;
    }
    return 0;
}

// A picture that is decoded when it is first drawn: those in a drawer that is never opened are most of all the work.
class PictureLayer final : public Layer {
public:
    explicit PictureLayer(std::string text) : text_(std::move(text)) {}

    const std::shared_ptr<const Image>& contents() const override {
        if (!picture_) picture_ = QVMImageFromBase64String(text_);
        return picture_;
    }
    bool hasLook(const PresentedLayer&) const override { return true; }

private:
    const std::string text_;
    mutable std::shared_ptr<const Image> picture_; // of the text, and nothing else that can be seen
};

} // namespace

LabelLayer::LabelLayer(LabelContent content) : content_(std::move(content)) {
    std::optional<Size> pixels;
    if (content_.image.starts_with(base64LabelPrefix)) pixels = QVMImageSizeFromBase64String(content_.image);
    showsImage_ = pixels.has_value();
    if (showsImage_) {
        layer_ = std::make_shared<PictureLayer>(std::move(content_.image));
        layer_->setFrame(SituatedRectInsideRectForImage(content_.frame, *pixels, labelImageScale, content_.alignment));
    } else {
        auto text = std::make_shared<TextLayer>();
        text->setFrame(content_.frame);
        text->setAlignment(textAlignment(content_.alignment), TextPlacement::middle);
        layer_ = text;
    }
    layer_->setName("label:" + content_.text);
}

void LabelLayer::setColor(Color color) {
    if (showsImage_) {
        layer_->setContentsTint(color);
        return;
    }
    AttributedString text(capitals(content_.text), QVMUITheme::unitFontOfSize(content_.style.pointSize), color);
    text.runs.front().kern = content_.style.kern;
    static_cast<TextLayer&>(*layer_).setString(text);
}

Rect SituatedRectInsideRectForImage(const Rect& rect, Size pixels, double imageScale, QVMLabelAlignment alignment) {
    if (rect.isEmpty() || !(pixels.width > 0 && pixels.height > 0)) return {rect.x, rect.y, 0, 0};
    const double width = pixels.width / imageScale, height = pixels.height / imageScale;
    const double fit = std::min({1.0, rect.width / width, rect.height / height});
    const Size size{width * fit, height * fit};
    return {rect.x + (rect.width - size.width) * shareOfSlackBefore(alignment),
            rect.y + (rect.height - size.height) / 2, size.width, size.height};
}

std::string capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

} // namespace QVM_NAMESPACE
