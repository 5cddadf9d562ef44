#include "editor/surface/LabelLayer.h"

#include "editor/surface/LabelImage.h"
#include "platform/layer/TextLayer.h"
#include "theme/QVMUITheme.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

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

} // namespace

LabelLayer::LabelLayer(LabelContent content) : content_(std::move(content)) {
    layer_ = DrawLabelImage(std::move(content_.image), content_.frame, content_.alignment);
    showsImage_ = layer_ != nullptr;
    if (!showsImage_) {
        auto text = std::make_shared<TextLayer>();
        text->setFrame(content_.frame);
        text->setAlignment(textAlignment(content_.alignment), TextPlacement::middle);
        layer_ = text;
    }
    layer_->setName("label:" + content_.text);
}

void LabelLayer::setColor(Color color) {
    if (showsImage_) {
        layer_->look().setContentsTint(color);
        return;
    }
    AttributedString text(capitals(content_.text), QVMUITheme::unitFontOfSize(content_.style.pointSize), color);
    text.runs.front().kern = content_.style.kern;
    static_cast<TextLayer&>(*layer_).setString(text);
}

std::string capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

} // namespace QVM_NAMESPACE
