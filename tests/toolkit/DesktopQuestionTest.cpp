// Which programs the toolkit may start to ask the desktop.
#include "toolkit/DesktopQuestion.h"

#include <gtest/gtest.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <sys/resource.h>

#include <utility>

namespace QVM_NAMESPACE {
namespace {

// Makes the process a program, as a stand-alone is; otherwise it is one into which a plug-in was loaded.
class ScopedProgram {
public:
    ScopedProgram()
        : before_(std::exchange(juce::JUCEApplicationBase::createInstance,
                                []() -> juce::JUCEApplicationBase* { return nullptr; })) {}
    ~ScopedProgram() { juce::JUCEApplicationBase::createInstance = before_; }
    ScopedProgram(const ScopedProgram&) = delete;
    ScopedProgram& operator=(const ScopedProgram&) = delete;

private:
    juce::JUCEApplicationBase::CreateInstanceFunction before_;
};

// Of other programs that this one has started and waited for.
long switchesOfChildren() {
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    return children.ru_nvcsw + children.ru_nivcsw + children.ru_minflt;
}

TEST(DesktopQuestion, theToolkitsDesktopIsMadeWithoutStartingAnotherProgram) {
    const long before = switchesOfChildren();
    juce::Desktop::getInstance();
    EXPECT_EQ(switchesOfChildren(), before);
}

TEST(DesktopQuestion, aPluginAsksForNoScaleBecauseThatIsTheHosts) {
    EXPECT_FALSE(juce::DesktopQuestion().start("/bin/echo scaling-factor"));
}

TEST(DesktopQuestion, aProgramAsksForItsScale) {
    const ScopedProgram program;
    juce::DesktopQuestion question;
    ASSERT_TRUE(question.start("/bin/echo scaling-factor"));
    EXPECT_EQ(question.readAllProcessOutput().trim(), "scaling-factor");
}

TEST(DesktopQuestion, nobodyAsksForTheTheme) {
    const ScopedProgram program;
    EXPECT_FALSE(juce::DesktopQuestion().start("/bin/echo gtk-theme"));
}

TEST(DesktopQuestion, whatIsNoSettingIsStarted) {
    juce::DesktopQuestion chooser;
    EXPECT_TRUE(chooser.start(juce::StringArray("/bin/echo", "file")));
}

} // namespace
} // namespace QVM_NAMESPACE
