// Writes a square PNG at a smaller size: slantwise_smaller_icon PICTURE SIDE RESULT. Runs while the project is built.
#include "packaging/icons/SmallerPicture.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <png.h>
#include <string>
#include <string_view>

namespace QVM_NAMESPACE {
namespace {

constexpr int convertTo8Bit = 1;

// The library's record of one picture, in the form of SquarePicture.
png_image linearImage() {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    return image;
}

std::optional<SquarePicture> readPicture(const char* file, std::string& wrong) {
    png_image image = linearImage();
    SquarePicture picture;
    if (png_image_begin_read_from_file(&image, file)) {
        image.format = PNG_FORMAT_LINEAR_RGB_ALPHA;
        picture.side = static_cast<int>(image.width);
        picture.components.resize(PNG_IMAGE_SIZE(image) / sizeof(std::uint16_t));
        if (image.width != image.height) {
            wrong = "is not square";
        } else if (png_image_finish_read(&image, nullptr, picture.components.data(), 0, nullptr)) {
            return picture;
        }
    }
    if (wrong.empty()) wrong = image.message;
    png_image_free(&image);
    return std::nullopt;
}

bool writePicture(const char* file, const SquarePicture& picture, std::string& wrong) {
    png_image image = linearImage();
    image.width = image.height = static_cast<png_uint_32>(picture.side);
    image.format = PNG_FORMAT_LINEAR_RGB_ALPHA;
    if (png_image_write_to_file(&image, file, convertTo8Bit, picture.components.data(), 0, nullptr)) return true;
    wrong = image.message;
    return false;
}

int run(const char* from, std::string_view sideText, const char* to) {
    const auto fail = [](const char* what, std::string_view wrong) {
        std::fprintf(stderr, "slantwise_smaller_icon: %s %.*s\n", what, static_cast<int>(wrong.size()), wrong.data());
        return 1;
    };
    std::string wrong;
    const std::optional<SquarePicture> picture = readPicture(from, wrong);
    if (!picture) return fail(from, wrong);
    int side = 0;
    std::from_chars(sideText.data(), sideText.data() + sideText.size(), side);
    if (side < 1 || side > picture->side) return fail(from, "cannot be made that size");
    return writePicture(to, smallerPicture(*picture, side), wrong) ? 0 : fail(to, wrong);
}

} // namespace
} // namespace QVM_NAMESPACE

int main(int count, char** arguments) {
    if (count == 4) return slantwise::run(arguments[1], arguments[2], arguments[3]);
    std::fputs("usage: slantwise_smaller_icon PICTURE SIDE RESULT\n", stderr);
    return 2;
}
