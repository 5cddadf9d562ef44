#include "editor/surface/DesktopRequests.h"

#include "editor/EditorFixture.h"
#include "editor/RecordingWorkspace.h"
#include "editor/surface/NoticeView.h"

namespace QVM_NAMESPACE {
namespace {

class DesktopRequestsTest : public EditorFixture {
protected:
    // What the remark says, if there is one.
    std::string said() const {
        const NoticeView* const notice = ui_->parts().notice();
        return notice && !notice->isHidden() ? notice->what() + ": " + notice->why() : std::string();
    }
    RecordingWorkspace desktop_;
};

TEST_F(DesktopRequestsTest, CopyingSaysWhereTheAddressIs) {
    copySettings(*ui_);
    EXPECT_EQ(desktop_.clipboard, ui_->session().settings().address());
    EXPECT_EQ(said(), "Copied: The address of all settings is in the clipboard");
}

TEST_F(DesktopRequestsTest, OpeningTheSettingsSaysThatTheyAreCopiedAndWhereThereIsNoBrowser) {
    ui_->logoTapped();
    EXPECT_EQ(desktop_.opened, std::vector{desktop_.clipboard.value_or("")});
    EXPECT_EQ(said(), "Copied: The address of all settings is in the clipboard");
    desktop_.hasBrowser = false;
    ui_->logoTapped();
    time_.advance(1);
    EXPECT_EQ(said(), "No browser could be started: The address of all settings is in the clipboard");
}

TEST_F(DesktopRequestsTest, TheManualThatCannotBeOpenedIsNamed) {
    ui_->openManualWithExtension("#TiltGain");
    time_.advance(1);
    EXPECT_EQ(said(), "");
    desktop_.hasBrowser = false;
    desktop_.file = "/usr/share/doc/slantwise/manual/TiltGain.html";
    ui_->openManualWithExtension("#TiltGain");
    time_.advance(1);
    EXPECT_EQ(said(), "No browser could be started: The manual is /usr/share/doc/slantwise/manual/TiltGain.html");
    desktop_.file.reset();
    ui_->openManualWithExtension("#TiltGain");
    time_.advance(1);
    EXPECT_EQ(said(), "No browser could be started: The manual is " + desktop_.opened.back());
}

// Only the address sanitizer sees what is wrong where it says something.
TEST_F(DesktopRequestsTest, AnEditorThatHasGoneSaysNothing) {
    desktop_.hasBrowser = false;
    openPage(*ui_, "https://ferrowind.example/slantwise");
    ui_->setDelegate(nullptr);
    ui_ = nullptr;
    window_.setContentView(std::make_unique<View>());
    time_.advance(1);
    EXPECT_EQ(desktop_.opened.size(), 1U);
}

} // namespace
} // namespace QVM_NAMESPACE
