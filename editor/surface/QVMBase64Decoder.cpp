#include "editor/surface/QVMBase64Decoder.h"

#include "resources/Base64.h"

#include <map>
#include <string>

namespace QVM_NAMESPACE {

std::vector<std::byte> QVMBase64Decoder::decode(std::string_view text) {
    if (text.starts_with(base64LabelPrefix)) text.remove_prefix(base64LabelPrefix.size());
    return decodeBase64(text);
}

std::optional<Size> QVMImageSizeFromBase64String(std::string_view text) {
    return Image::sizeOfPng(QVMBase64Decoder::decode(text));
}

std::shared_ptr<const Image> QVMImageFromBase64String(std::string_view text) {
    static std::map<std::string, std::shared_ptr<const Image>, std::less<>> decoded;
    const auto known = decoded.find(text);
    if (known != decoded.end()) return known->second;
    return decoded.emplace(text, Image::fromPng(QVMBase64Decoder::decode(text))).first->second;
}

} // namespace QVM_NAMESPACE
