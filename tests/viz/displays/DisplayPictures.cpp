// Writes a picture of every live display for every test signal, to be looked at.
//
//   display_pictures FOLDER [gl]
#include "LiveDisplays.h"
#include "viz/analysis/StereoSignals.h"

#include "platform/surface/CpuDrawingSurface.h"
#include "platform/surface/GlDrawingSurface.h"

#include <cstdio>
#include <cstring>
#include <png.h>
#include <string>

namespace QVM_NAMESPACE {
namespace {

constexpr Size kSize = {240, 180};
constexpr double kScale = 2, kRate = 48000;
constexpr std::uint32_t kBackground = 0xFF1B1D22u;

std::uint32_t overBackground(std::uint32_t pixel) {
    std::uint32_t result = 0xFF000000u;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t below = (kBackground >> shift & 255) * (255 - (pixel >> 24)) / 255;
        result |= std::min(255u, (pixel >> shift & 255) + below) << shift;
    }
    return result;
}

bool writePng(Image picture, const std::string& path) {
    for (std::uint32_t& pixel : picture.pixels)
        pixel = overBackground(pixel);
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(picture.width);
    png.height = static_cast<png_uint_32>(picture.height);
    png.format = PNG_FORMAT_BGRA;
    return png_image_write_to_file(&png, path.c_str(), 0, picture.pixels.data(), 0, nullptr) != 0;
}

bool writeDisplay(const LiveDisplayEntry& entry, const NamedSignal& named, DrawingSurface& surface,
                  const std::string& folder) {
    const std::unique_ptr<LiveDisplay> display = entry.make();
    display->init(displayCanvas(static_cast<float>(kSize.width), static_cast<float>(kSize.height), float{kScale}),
                  float{kRate}, kBlock);
    SignalSource source(named.signal, kRate);
    int frame = 0;
    const auto swell = [&] { return 0.6f - 0.4f * std::cos(static_cast<float>(frame++) * 0.13f); };
    play(
        source, kRate, 90,
        [&](QVMAudioBuffer<float>& block, unsigned frames) {
            const float level = swell();
            for (std::size_t i = 0; i < std::size_t{block.numChannels} * block.capacity; ++i)
                block.block[i] *= level;
            display->processAudio(block, frames);
        },
        [&](float dt) { display->prepareForDrawing(dt); });
    surface.begin(kSize, kScale);
    display->draw(surface);
    Image picture;
    return surface.finish(picture) && writePng(picture, folder + "/" + entry.name + "-" + named.name + ".png");
}

} // namespace

int run(int argc, char** argv) {
    if (argc < 2) return std::fputs("display_pictures FOLDER [gl]\n", stderr), 2;
    std::unique_ptr<DrawingSurface> surface = std::make_unique<CpuDrawingSurface>();
    if (argc > 2 && std::strcmp(argv[2], "gl") == 0) {
        std::string problem;
        surface = GlDrawingSurface::make(GlRenderer::any, problem);
        if (!surface) return std::fprintf(stderr, "display_pictures: %s\n", problem.c_str()), 1;
    }
    bool isFine = true;
    for (const LiveDisplayEntry& entry : LiveDisplays) {
        for (const NamedSignal& named : kSignals)
            isFine = writeDisplay(entry, named, *surface, argv[1]) && isFine;
    }
    return isFine ? 0 : 1;
}

} // namespace QVM_NAMESPACE

int main(int argc, char** argv) {
    return slantwise::run(argc, argv);
}
