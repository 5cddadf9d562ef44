#include "platform/surface/Image.h"

// stdio first: the JPEG header needs it and does not include it.
#include <cstdio>

#include <jpeglib.h>
#include <png.h>

#include <csetjmp>

namespace QVM_NAMESPACE {

namespace {

constexpr unsigned maxSide = 4096; // pixels; more is a mistake or an attack

bool isSane(unsigned width, unsigned height) {
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide;
}

std::uint32_t premultiplied(std::uint32_t argb) {
    const std::uint32_t a = argb >> 24;
    const auto part = [a, argb](unsigned shift) { return (((argb >> shift) & 0xFF) * a + 127) / 255 << shift; };
    return a << 24 | part(16) | part(8) | part(0);
}

std::shared_ptr<Image> blankImage(unsigned width, unsigned height) {
    auto image = std::make_shared<Image>();
    image->width = static_cast<int>(width);
    image->height = static_cast<int>(height);
    image->pixels.resize(std::size_t{width} * height);
    return image;
}

// Reads as far as the size; the data must outlive it.
struct PngReader {
    explicit PngReader(std::span<const std::byte> data) {
        state.version = PNG_IMAGE_VERSION;
        isPng_ = png_image_begin_read_from_memory(&state, data.data(), data.size()) != 0;
    }
    ~PngReader() { png_image_free(&state); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    bool isReadable() const { return isPng_ && isSane(state.width, state.height); }

    png_image state{};

private:
    bool isPng_ = false;
};

// The library reports errors by a call that must not return, and warnings (data cut short or corrupt) by a count.
struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf escape;
};

[[noreturn]] void leaveDecoder(j_common_ptr decoder) {
    std::longjmp(reinterpret_cast<JpegErrors*>(decoder->err)->escape, 1);
}

void staySilent(j_common_ptr) {}

struct JpegDecoder {
    jpeg_decompress_struct state{};
    JpegErrors errors{};

    JpegDecoder() {
        state.err = jpeg_std_error(&errors.manager);
        errors.manager.error_exit = leaveDecoder;
        errors.manager.output_message = staySilent;
    }
    ~JpegDecoder() { jpeg_destroy_decompress(&state); }
    JpegDecoder(const JpegDecoder&) = delete;
    JpegDecoder& operator=(const JpegDecoder&) = delete;

    // No object with a destructor lives in the two functions that the library may leave by a jump.
    bool readHeader(const unsigned char* data, unsigned long size) {
        if (setjmp(errors.escape)) return false;
        jpeg_create_decompress(&state);
        jpeg_mem_src(&state, data, size);
        if (jpeg_read_header(&state, TRUE) != JPEG_HEADER_OK) return false;
        state.out_color_space = JCS_RGB;
        return isSane(state.image_width, state.image_height);
    }
    // `row` has room for three bytes a pixel.
    bool readPixels(std::uint32_t* pixels, unsigned char* row) {
        if (setjmp(errors.escape)) return false;
        jpeg_start_decompress(&state);
        while (state.output_scanline < state.output_height) {
            std::uint32_t* line = pixels + std::size_t{state.output_scanline} * state.output_width;
            jpeg_read_scanlines(&state, &row, 1);
            for (std::size_t x = 0; x < state.output_width; ++x) {
                const unsigned char* rgb = row + 3 * x;
                line[x] = 0xFF000000u | std::uint32_t{rgb[0]} << 16 | std::uint32_t{rgb[1]} << 8 | rgb[2];
            }
        }
        jpeg_finish_decompress(&state);
        return errors.manager.num_warnings == 0;
    }
};

} // namespace

std::optional<Size> Image::sizeOfPng(std::span<const std::byte> data) {
    const PngReader png(data);
    if (!png.isReadable()) return std::nullopt;
    return Size{static_cast<double>(png.state.width), static_cast<double>(png.state.height)};
}

std::shared_ptr<const Image> Image::fromPng(std::span<const std::byte> data) {
    PngReader png(data);
    if (!png.isReadable()) return nullptr;
    png.state.format = PNG_FORMAT_BGRA;
    const auto image = blankImage(png.state.width, png.state.height);
    if (!png_image_finish_read(&png.state, nullptr, image->pixels.data(), 0, nullptr)) return nullptr;
    for (std::uint32_t& pixel : image->pixels)
        pixel = premultiplied(pixel);
    return image;
}

std::shared_ptr<const Image> Image::fromJpeg(std::span<const std::byte> data) {
    JpegDecoder decoder;
    if (!decoder.readHeader(reinterpret_cast<const unsigned char*>(data.data()), data.size())) return nullptr;
    const auto image = blankImage(decoder.state.image_width, decoder.state.image_height);
    std::vector<unsigned char> row(std::size_t{3} * decoder.state.image_width);
    if (!decoder.readPixels(image->pixels.data(), row.data())) return nullptr;
    return image;
}

} // namespace QVM_NAMESPACE
