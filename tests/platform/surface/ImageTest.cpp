#include "platform/surface/Image.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>

#include <random>

namespace QVM_NAMESPACE {
namespace {

using Bytes = std::vector<std::byte>;

// Straight 0xAARRGGBB pixels.
Bytes pngOf(unsigned width, unsigned height, const std::vector<std::uint32_t>& pixels) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = width;
    png.height = height;
    png.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = 0;
    png_image_write_get_memory_size(png, size, 0, pixels.data(), 0, nullptr);
    Bytes bytes(size);
    png_image_write_to_memory(&png, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
    return bytes;
}

// `components` bytes a pixel: 1 is grey, 3 is RGB.
Bytes jpegOf(unsigned width, unsigned height, int components, std::vector<unsigned char> pixels) {
    jpeg_compress_struct encoder{};
    jpeg_error_mgr errors{};
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&encoder, &memory, &size);
    encoder.image_width = width;
    encoder.image_height = height;
    encoder.input_components = components;
    encoder.in_color_space = components == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&encoder);
    jpeg_set_quality(&encoder, 100, TRUE);
    jpeg_start_compress(&encoder, TRUE);
    for (unsigned y = 0; y < height; ++y) {
        unsigned char* row = pixels.data() + std::size_t{y} * width * static_cast<unsigned>(components);
        jpeg_write_scanlines(&encoder, &row, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    const auto* first = reinterpret_cast<const std::byte*>(memory);
    Bytes bytes(first, first + size);
    std::free(memory);
    return bytes;
}

std::vector<std::uint32_t> noise(std::size_t count) {
    std::mt19937 random(5);
    std::vector<std::uint32_t> pixels(count);
    for (std::uint32_t& pixel : pixels)
        pixel = static_cast<std::uint32_t>(random());
    return pixels;
}

TEST(ImageTest, APngKeepsItsPixelsPremultiplied) {
    const auto image =
        Image::fromPng(pngOf(3, 2, {0xFF102030, 0x80FF8000, 0x00FFFFFF, 0xFFFFFFFF, 0x01FF0000, 0x7F0000FF}));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 3);
    EXPECT_EQ(image->height, 2);
    EXPECT_EQ(image->pixels,
              (std::vector<std::uint32_t>{0xFF102030, 0x80804000, 0x00000000, 0xFFFFFFFF, 0x01010000, 0x7F00007F}));
}

TEST(ImageTest, TheSizeOfAPngIsKnownFromItsHeaderAlone) {
    const Bytes png = pngOf(32, 20, noise(32 * 20));
    EXPECT_EQ(Image::sizeOfPng(png), (Size{32, 20}));
    EXPECT_EQ(Image::sizeOfPng(std::span(png).first(png.size() / 2)), (Size{32, 20}));
    EXPECT_EQ(Image::sizeOfPng(std::span(png).first(20)), std::nullopt);
    EXPECT_EQ(Image::sizeOfPng({}), std::nullopt);
    EXPECT_EQ(Image::sizeOfPng(pngOf(4097, 1, noise(4097))), std::nullopt);
}

TEST(ImageTest, AJpegIsOpaqueAndRgb) {
    std::vector<unsigned char> red;
    for (int i = 0; i < 16 * 16; ++i)
        red.insert(red.end(), {250, 10, 20});
    const auto image = Image::fromJpeg(jpegOf(16, 16, 3, red));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 16);
    for (const std::uint32_t pixel : image->pixels) {
        EXPECT_EQ(pixel >> 24, 0xFFu);
        EXPECT_NEAR(static_cast<int>(pixel >> 16 & 0xFF), 250, 3);
        EXPECT_NEAR(static_cast<int>(pixel & 0xFF), 20, 3);
    }
}

TEST(ImageTest, AGreyJpegDecodesToo) {
    const auto image = Image::fromJpeg(jpegOf(8, 8, 1, std::vector<unsigned char>(64, 200)));
    ASSERT_NE(image, nullptr);
    EXPECT_NEAR(static_cast<int>(image->pixels[9] >> 8 & 0xFF), 200, 2);
}

TEST(ImageTest, TruncatedDataDoesNotDecode) {
    const Bytes png = pngOf(32, 32, noise(32 * 32));
    const Bytes jpeg = jpegOf(32, 32, 3, std::vector<unsigned char>(32 * 32 * 3, 77));
    ASSERT_NE(Image::fromPng(png), nullptr);
    ASSERT_NE(Image::fromJpeg(jpeg), nullptr);
    for (const double part : {0.0, 0.01, 0.1, 0.5, 0.9}) {
        const auto cut = [part](const Bytes& all) {
            return std::span(all).first(static_cast<std::size_t>(part * static_cast<double>(all.size())));
        };
        EXPECT_EQ(Image::fromPng(cut(png)), nullptr) << part;
        EXPECT_EQ(Image::fromJpeg(cut(jpeg)), nullptr) << part;
    }
}

TEST(ImageTest, GarbageDoesNotDecodeNorCrash) {
    std::mt19937 random(3);
    const Bytes png = pngOf(16, 16, noise(256));
    const Bytes jpeg = jpegOf(16, 16, 3, std::vector<unsigned char>(16 * 16 * 3, 77));
    for (int round = 0; round < 300; ++round) {
        for (Bytes data : {png, jpeg}) {
            for (int i = 0; i < 8; ++i)
                data[random() % data.size()] = static_cast<std::byte>(random());
            for (const auto& image : {Image::fromPng(data), Image::fromJpeg(data)}) {
                if (!image) continue;
                EXPECT_EQ(image->pixels.size(), std::size_t(image->width) * image->height);
            }
        }
    }
    EXPECT_EQ(Image::fromPng({}), nullptr);
    EXPECT_EQ(Image::fromJpeg({}), nullptr);
    EXPECT_EQ(Image::fromJpeg(png), nullptr);
    EXPECT_EQ(Image::fromPng(jpeg), nullptr);
}

TEST(ImageTest, APictureBeyond4096PixelsASideIsRefused) {
    EXPECT_NE(Image::fromPng(pngOf(4096, 1, noise(4096))), nullptr);
    EXPECT_EQ(Image::fromPng(pngOf(4097, 1, noise(4097))), nullptr);
    EXPECT_EQ(Image::fromPng(pngOf(1, 4097, noise(4097))), nullptr);
    EXPECT_NE(Image::fromJpeg(jpegOf(1, 4096, 1, std::vector<unsigned char>(4096))), nullptr);
    EXPECT_EQ(Image::fromJpeg(jpegOf(4097, 1, 1, std::vector<unsigned char>(4097))), nullptr);
}

} // namespace
} // namespace QVM_NAMESPACE
