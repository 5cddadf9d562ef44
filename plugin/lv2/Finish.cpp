// Finishes an LV2 bundle after the build: Finish BUNDLE_DIRECTORY PLUGIN_URI. See BundleText.h.
#include "plugin/lv2/BundleText.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

bool rewrite(const fs::path& file, std::string (*repaired)(const std::string&)) {
    std::ifstream in(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in || text.empty()) return false;
    in.close();
    return static_cast<bool>(std::ofstream(file, std::ios::binary) << repaired(text) << std::flush);
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 3) return std::fputs("usage: Finish BUNDLE_DIRECTORY PLUGIN_URI\n", stderr), 2;
    const fs::path bundle = arguments[1];
    std::ofstream extra(bundle / slantwise::lv2ExtraFile, std::ios::binary);
    if (!(extra << slantwise::lv2ExtraText(arguments[2]) << std::flush) ||
        !rewrite(bundle / "manifest.ttl", slantwise::repairedLv2Manifest) ||
        !rewrite(bundle / "dsp.ttl", slantwise::repairedLv2Dsp)) {
        return std::fprintf(stderr, "Finish: cannot rewrite the text of %s\n", bundle.c_str()), 1;
    }
    return 0;
}
