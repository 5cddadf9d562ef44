// Finishes an LV2 bundle after the build: Finish BUNDLE_DIRECTORY PLUGIN_URI. See BundleText.h.
#include "plugin/lv2/BundleText.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>

namespace {

namespace fs = std::filesystem;

bool write(const fs::path& file, const std::string& text) {
    return static_cast<bool>(std::ofstream(file, std::ios::binary) << text << std::flush);
}

bool rewrite(const fs::path& file, const std::function<std::optional<std::string>(const std::string&)>& repaired) {
    std::ifstream in(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in || text.empty()) return false;
    in.close();
    const std::optional<std::string> better = repaired(text);
    return better && write(file, *better);
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 3) return std::fputs("usage: Finish BUNDLE_DIRECTORY PLUGIN_URI\n", stderr), 2;
    const fs::path bundle = arguments[1];
    const std::string uri = arguments[2];
    if (!write(bundle / slantwise::lv2ExtraFile, slantwise::lv2ExtraText(uri)) ||
        !write(bundle / slantwise::lv2PresetsFile, slantwise::lv2PresetsText(uri)) ||
        !rewrite(bundle / "manifest.ttl",
                 [&uri](const std::string& text) -> std::optional<std::string> {
                     const bool isFinished = text.find(slantwise::lv2PresetsFile) != std::string::npos;
                     if (isFinished) return text;
                     std::optional<std::string> manifest = slantwise::repairedLv2Manifest(text);
                     if (manifest) *manifest += slantwise::lv2VersionText(uri) + slantwise::lv2PresetsManifestText(uri);
                     return manifest;
                 }) ||
        !rewrite(bundle / "dsp.ttl", slantwise::repairedLv2Dsp) ||
        !rewrite(bundle / "ui.ttl", slantwise::repairedLv2Ui)) {
        return std::fprintf(stderr, "Finish: cannot rewrite the text of %s\n", bundle.c_str()), 1;
    }
    return 0;
}
