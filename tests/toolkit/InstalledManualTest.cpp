#include "toolkit/InstalledManual.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <fstream>

namespace QVM_NAMESPACE {
namespace {

namespace fs = std::filesystem;

class InstalledManual : public testing::Test {
protected:
    ~InstalledManual() override { fs::remove_all(root_); }
    // A manual of a version, with pages for these topics.
    void write(const fs::path& folder, const std::string& version = QVM_VERSION_TEXT,
               const std::vector<std::string>& topics = {"OutputGain"}) const {
        fs::create_directories(folder);
        std::ofstream(folder / "index.html")
            << "<!DOCTYPE html>\n<meta name=\"version\" content=\"" << version << "\">\n";
        for (const std::string& topic : topics)
            std::ofstream(folder / (topic + ".html")) << "to the heading";
    }
    std::optional<std::string> found(const fs::path& binary, const std::string& topic = "OutputGain") const {
        return manualPage(topic, manualFolders(binary, {root_ / "home/.local/share", root_ / "usr/share"}));
    }

    const fs::path root_ = fs::path(testing::TempDir()) / ("manual" + std::to_string(getpid()));
};

TEST_F(InstalledManual, OnlyAnAddressOfThisVersionsManualIsLookedFor) {
    const std::string base = "https://ferrowind.example/slantwise/" QVM_VERSION_TEXT;
    EXPECT_EQ(manualTopicOf(base + "/manual/#OutputGain"), "OutputGain");
    EXPECT_EQ(manualTopicOf(base + "/manual/"), "");
    EXPECT_EQ(manualTopicOf(base + "/?tg:4.5"), std::nullopt);
    EXPECT_EQ(manualTopicOf("https://ferrowind.example/slantwise/0.0.9/manual/#OutputGain"), std::nullopt);
    EXPECT_EQ(manualTopicOf(base + "/manual/#../../etc/passwd"), std::nullopt);
    EXPECT_EQ(manualTopicOf(base + "/manual/other"), std::nullopt);
}

TEST_F(InstalledManual, IsFoundWhereverTheBinaryWasPut) {
    const std::vector<std::pair<fs::path, fs::path>> cases = {
        {"usr/lib/lv2/Slantwise.lv2/Slantwise.so", "usr/lib/lv2/Slantwise.lv2/manual"},
        {"v/Slantwise.vst3/Contents/x86_64-linux/Slantwise.so", "v/Slantwise.vst3/Contents/Resources/manual"},
        {"opt/bin/slantwise", "opt/share/doc/slantwise/manual"},
        {"build/plugin/Slantwise", "build/packaging/manual"},
        {"build/plugin/Slantwise_artefacts/Release/VST3/Slantwise.vst3/Contents/x86_64-linux/Slantwise.so", ""},
        {"elsewhere/Slantwise.so", "usr/share/doc/slantwise/manual"},
    };
    for (const auto& [binary, folder] : cases) {
        if (!folder.empty()) write(root_ / folder);
        const fs::path expected =
            (folder.empty() ? root_ / "build/packaging/manual" : root_ / folder) / "OutputGain.html";
        EXPECT_EQ(found(root_ / binary), expected.string()) << binary;
    }
}

TEST_F(InstalledManual, OneOfAnotherVersionIsPassedOver) {
    write(root_ / "bundle/manual", "0.0.9");
    EXPECT_EQ(found(root_ / "bundle/Slantwise.so"), std::nullopt);
    write(root_ / "home/.local/share/doc/slantwise/manual");
    EXPECT_EQ(found(root_ / "bundle/Slantwise.so"),
              (root_ / "home/.local/share/doc/slantwise/manual/OutputGain.html").string());
}

TEST_F(InstalledManual, ATopicWithoutAPageOpensTheWhole) {
    write(root_ / "bundle/manual");
    const std::string whole = (root_ / "bundle/manual/index.html").string();
    EXPECT_EQ(found(root_ / "bundle/Slantwise.so", "Nothing"), whole);
    EXPECT_EQ(found(root_ / "bundle/Slantwise.so", ""), whole);
}

TEST_F(InstalledManual, WhereThereIsNoneThereIsNoPage) {
    EXPECT_EQ(found(root_ / "bundle/Slantwise.so"), std::nullopt);
    EXPECT_EQ(found(""), std::nullopt);
}

} // namespace
} // namespace QVM_NAMESPACE
