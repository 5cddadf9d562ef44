// Pictures kept as text in the description: base64 of a PNG, with or without a word and a comma before it.
#pragma once

#include "platform/surface/Image.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// What marks a label of the description as a picture.
inline constexpr std::string_view base64LabelPrefix = "base64,";

class QVMBase64Decoder {
public:
    // The bytes that a text stands for; none when it is no base64. The label prefix may stand before it. Any thread.
    static std::vector<std::byte> decode(std::string_view text);
};

// Width and height of the picture in pixels, without decoding it; none when the text is no picture. Any thread.
std::optional<Size> QVMImageSizeFromBase64String(std::string_view text);

// The picture, or null when the text is none. Pictures of the description live as long as the process, so each text is
// decoded once and shared by all editors. Main thread.
std::shared_ptr<const Image> QVMImageFromBase64String(std::string_view text);

} // namespace QVM_NAMESPACE
