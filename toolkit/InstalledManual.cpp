#include "toolkit/InstalledManual.h"

#include "platform/system/UserFolders.h"

#include <dlfcn.h>

#include <algorithm>
#include <fstream>
#include <system_error>

namespace QVM_NAMESPACE {

namespace {

namespace fs = std::filesystem;

constexpr int foldersUp = 8;               // from a bundle to the top of the build folder
constexpr std::size_t headLength = 512;    // bytes, in which a page says of which version it is
constexpr std::size_t longestTopic = 64;   // characters
constexpr const char* page = "index.html"; // the whole

bool isLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

std::string headOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string head(headLength, '\0');
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(in.gcount()));
    return head;
}

bool hasThisVersionsManual(const fs::path& folder) {
    static constexpr const char* mark = "<meta name=\"version\" content=\"" QVM_VERSION_TEXT "\">";
    return headOf(folder / page).find(mark) != std::string::npos;
}

// Of the library or program that this is linked into, links resolved; empty where the system does not say.
fs::path thisBinary() {
    Dl_info info{};
    std::error_code error;
    if (dladdr(reinterpret_cast<const void*>(&thisBinary), &info) == 0 || !info.dli_fname) return {};
    const fs::path named = info.dli_fname;
    // A program is named as it was called, which may be found through PATH only.
    return fs::canonical(named.is_absolute() ? named : fs::path("/proc/self/exe"), error);
}

} // namespace

std::optional<std::string> manualTopicOf(std::string_view address) {
    static constexpr std::string_view place = "/" QVM_VERSION_TEXT "/manual/";
    const std::size_t found = address.find(place);
    if (found == std::string_view::npos) return std::nullopt;
    std::string_view topic = address.substr(found + place.size());
    if (topic.empty()) return std::string();
    if (topic.front() != '#' || topic.size() > longestTopic) return std::nullopt;
    topic.remove_prefix(1);
    return std::all_of(topic.begin(), topic.end(), isLetterOrDigit) ? std::optional(std::string(topic)) : std::nullopt;
}

std::vector<fs::path> manualFolders(const fs::path& binary, const std::vector<fs::path>& dataFolders) {
    std::vector<fs::path> folders;
    if (!binary.empty()) {
        const fs::path beside = binary.parent_path(), around = beside.parent_path();
        folders = {beside / "manual", around / "Resources/manual", around / "share/doc/slantwise/manual"};
        fs::path above = beside;
        for (int i = 0; i < foldersUp; ++i, above = above.parent_path())
            folders.push_back(above / "packaging/manual");
    }
    for (const fs::path& each : dataFolders)
        folders.push_back(each / "doc/slantwise/manual");
    return folders;
}

std::optional<std::string> manualPage(const std::string& topic, const std::vector<fs::path>& folders) {
    const auto found = std::find_if(folders.begin(), folders.end(), hasThisVersionsManual);
    if (found == folders.end()) return std::nullopt;
    const fs::path ofTopic = *found / (topic + ".html");
    std::error_code error;
    return (!topic.empty() && fs::is_regular_file(ofTopic, error) ? ofTopic : *found / page).string();
}

std::optional<std::string> installedManualPage(std::string_view address) {
    const std::optional<std::string> topic = manualTopicOf(address);
    return topic ? manualPage(*topic, manualFolders(thisBinary(), sharedDataFolders())) : std::nullopt;
}

} // namespace QVM_NAMESPACE
