#include "editor/surface/LabelImage.h"

#include "editor/surface/QVMBase64Decoder.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double labelImageScale = 6; // pixels a point in the description's pictures

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

Rect SituatedRectInsideRectForImage(const Rect& rect, Size pixels, double imageScale, QVMLabelAlignment alignment) {
    if (rect.isEmpty() || !(pixels.width > 0 && pixels.height > 0)) return {rect.x, rect.y, 0, 0};
    const double width = pixels.width / imageScale, height = pixels.height / imageScale;
    const double fit = std::min({1.0, rect.width / width, rect.height / height});
    const Size size{width * fit, height * fit};
    return {rect.x + (rect.width - size.width) * shareOfSlackBefore(alignment),
            rect.y + (rect.height - size.height) / 2, size.width, size.height};
}

std::shared_ptr<Layer> DrawLabelImage(std::string label, const Rect& rect, QVMLabelAlignment alignment) {
    if (!label.starts_with(base64LabelPrefix)) return nullptr;
    const std::optional<Size> pixels = QVMImageSizeFromBase64String(label);
    if (!pixels) return nullptr;
    auto picture = std::make_shared<PictureLayer>(std::move(label));
    picture->setFrame(SituatedRectInsideRectForImage(rect, *pixels, labelImageScale, alignment));
    return picture;
}

} // namespace QVM_NAMESPACE
