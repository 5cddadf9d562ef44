// What a test leaves in the user's folders, the next one does not find.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace slantwise_tests {
namespace {

class FreshFolders : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        for (const char* const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
            const char* const folder = std::getenv(name);
            std::error_code ignored;
            if (folder && isOwn(folder)) std::filesystem::remove_all(folder, ignored);
        }
    }
    // Never the real one, whatever a test has made of the environment.
    static bool isOwn(const std::filesystem::path& folder) {
        return folder.parent_path().filename().string().starts_with("slantwise-test-");
    }
};

[[maybe_unused]] const bool isListening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new FreshFolders);
    return true;
}();

} // namespace
} // namespace slantwise_tests
