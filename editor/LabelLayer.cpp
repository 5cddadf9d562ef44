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

} // namespace

LabelLayer::LabelLayer(LabelContent content) : content_(std::move(content)) {
    std::shared_ptr<const Image> image;
    if (content_.image.starts_with(base64LabelPrefix)) image = QVMImageFromBase64String(content_.image);
    showsImage_ = image != nullptr;
    if (showsImage_) {
        layer_ = std::make_shared<Layer>();
        layer_->setFrame(SituatedRectInsideRectForImage(content_.frame, *image, labelImageScale, content_.alignment));
        layer_->setContents(image, ContentsGravity::resize);
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

Rect SituatedRectInsideRectForImage(const Rect& rect, const Image& image, double imageScale,
                                    QVMLabelAlignment alignment) {
    if (rect.isEmpty() || image.width <= 0 || image.height <= 0) return {rect.x, rect.y, 0, 0};
    const double width = image.width / imageScale, height = image.height / imageScale;
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
