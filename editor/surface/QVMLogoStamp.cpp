#include "editor/surface/QVMLogoStamp.h"

#include "editor/surface/QVMBase64Decoder.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

namespace {

// Each channel is moved by as much as takes the middle between the lightest and the darkest one to the other side of
// grey: hue and chroma stay.
std::uint32_t withInvertedLightness(std::uint32_t pixel) {
    const auto channel = [pixel](int shift) { return static_cast<int>((pixel >> shift) & 0xFFu); };
    const int alpha = channel(24);
    std::array<int, 3> color = {channel(16), channel(8), channel(0)}; // premultiplied
    const auto [least, most] = std::ranges::minmax(color);
    std::uint32_t out = static_cast<std::uint32_t>(alpha);
    for (const int level : color)
        out = out << 8 | static_cast<std::uint32_t>(level + alpha - least - most);
    return out;
}

std::shared_ptr<const Image> withInvertedLightness(const Image& picture) {
    Image inverted = picture;
    std::ranges::transform(inverted.pixels, inverted.pixels.begin(),
                           [](std::uint32_t pixel) { return withInvertedLightness(pixel); });
    return std::make_shared<const Image>(std::move(inverted));
}

} // namespace

QVMLogoStamp::QVMLogoStamp(const Rect& frame, std::string_view logo)
    : ThemedView(frame), logo_(QVMImageFromBase64String(logo)) {
    layer()->setName("logoStamp");
    if (logo_) layer()->look().setContents(logo_, ContentsGravity::resizeAspect);
    QVMLogoStamp::themeUpdated();
}

void QVMLogoStamp::themeUpdated() {
    const bool inverts = QVMUITheme::theme().invertLabels;
    if (!logo_ || inverts == showsInverted_) return;
    showsInverted_ = inverts;
    layer()->look().setContents(inverts ? withInvertedLightness(*logo_) : logo_, ContentsGravity::resizeAspect);
}

} // namespace QVM_NAMESPACE
