// The built program, run as a user would run it in a shell with no display.
#include "support/ShellCommand.h"
#include "tools/render/RenderFiles.h"
#include "tools/render/UnitChain.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <thread>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace QVM_NAMESPACE {
namespace render {
namespace {

using slantwise_tests::CommandResult;
using testing::HasSubstr;

constexpr int wav24 = SF_FORMAT_WAV | SF_FORMAT_PCM_24, wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

class RenderProgram : public testing::Test {
protected:
    CommandResult run(const std::string& arguments) const {
        return slantwise_tests::runCommand("cd " + directory_.file("") +
                                           " && env -u DISPLAY -u WAYLAND_DISPLAY " SLANTWISE_RENDER " " + arguments);
    }
    std::string sound(const std::string& name, int format = wav24, int channels = 2, int frames = 9000) const {
        return directory_.audio(name, format, channels, 48000, tones(channels, frames));
    }
    std::size_t entries() const { return entriesIn(directory_.file("")); }

    audiofiles::Directory directory_;
};

TEST_F(RenderProgram, WritesBitForBitWhatTheUnitMakesOfAFile) {
    const std::string from = sound("a.wav", wavFloat, 5);
    const CommandResult result = run("--preset Air a.wav 2>&1");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("a.wav -> a-slantwise.wav  "));
    ChosenSettings settings;
    ASSERT_EQ(settings.choosePreset("Air"), "");
    std::vector<double> expected = samplesOf(from);
    UnitChain(settings, 5, 48000, SampleWidth::single).process(expected);
    EXPECT_EQ(samplesOf(directory_.file("a-slantwise.wav")), expected);
    EXPECT_EQ(entries(), 2U);
}

TEST_F(RenderProgram, SeveralAtOnceWriteTheSameBytesAsOneByOne) {
    std::string names;
    for (int i = 0; i < 6; ++i) {
        const std::string name = std::to_string(i) + ".wav";
        sound(name, wav24, 1 + i % 3, 3000 + 1000 * i);
        names += " " + name;
    }
    const std::string what = " --preset 3 --normalise --dither --bits 16" + names;
    const CommandResult serial = run("--jobs 1 --suffix -one" + what), parallel = run("--jobs 4 --suffix -all" + what);
    EXPECT_EQ(serial.status, 0);
    EXPECT_EQ(parallel.status, 0);
    for (int i = 0; i < 6; ++i) {
        const std::string one = bytesOf(directory_.file(std::to_string(i) + "-one.wav"));
        EXPECT_FALSE(one.empty());
        EXPECT_EQ(one, bytesOf(directory_.file(std::to_string(i) + "-all.wav")));
    }
    EXPECT_LT(parallel.output.find("0.wav"), parallel.output.find("1.wav")) << "lines in the order of the files";
}

TEST_F(RenderProgram, BadFilesAreNamedAndTheOthersGoOn) {
    ASSERT_EQ(mkfifo(directory_.file("pipe.wav").c_str(), 0600), 0);
    std::filesystem::create_directory(directory_.file("folder.wav"));
    directory_.bytes("empty.wav", "");
    sound("many.wav", wav24, 200, 2);
    const std::string whole = bytesOf(sound("cut.wav"));
    directory_.bytes("cut.wav", whole.substr(0, whole.size() / 2));
    sound("good.wav");
    const CommandResult result =
        run("pipe.wav folder.wav empty.wav many.wav none.wav cut.wav good.wav 2>&1 >/dev/null");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "slantwise-render: cannot render \"pipe.wav\": it is no file but a pipe or a device\n"
              "slantwise-render: cannot render \"folder.wav\": it is a directory\n"
              "slantwise-render: cannot render \"empty.wav\": it is empty\n"
              "slantwise-render: cannot render \"many.wav\": it has 200 channels, and there can be 1 to 8\n"
              "slantwise-render: cannot render \"none.wav\": No such file or directory\n"
              "slantwise-render: \"cut.wav\" is damaged, and rendered as far as it can be read (0.1 s)\n");
    EXPECT_EQ(samplesOf(directory_.file("good-slantwise.wav")).size(), 18000U);
}

TEST_F(RenderProgram, ArgumentsThatMakeNoSenseDoNothing) {
    sound("a.wav");
    EXPECT_EQ(run("--preset Aire a.wav 2>&1").output,
              "slantwise-render: there is no preset named \"Aire\"; the nearest is \"Air\"\n");
    EXPECT_EQ(run("--preset Aire a.wav 2>/dev/null").status, 2);
    EXPECT_EQ(run("2>/dev/null").status, 2);
    EXPECT_EQ(run("--output b.wav a.wav a.wav 2>/dev/null").status, 2);
    EXPECT_EQ(entries(), 1U);
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--list-presets >/dev/full 2>/dev/null").status, 1);
}

TEST_F(RenderProgram, JsonHoldsEverythingAndNothingElseIsPrinted) {
    sound("a.wav", wavFloat, 2, 48000);
    const CommandResult result = run("--json --settings '/?out:-6' --format flac a.wav none.wav 2>/dev/null");
    EXPECT_EQ(result.status, 1);
    const auto json = nlohmann::json::parse(result.output);
    ASSERT_EQ(json["files"].size(), 2U);
    const auto& file = json["files"][0];
    EXPECT_EQ(file["output"], "a-slantwise.flac");
    EXPECT_NEAR(file["before"]["loudness_lufs"].get<double>() - file["after"]["loudness_lufs"].get<double>(), 6, 0.01);
    EXPECT_EQ(json["files"][1]["problem"], "cannot render \"none.wav\": No such file or directory");
    EXPECT_TRUE(std::filesystem::exists(directory_.file("a-slantwise.flac")));
}

TEST_F(RenderProgram, WhoAsksForJsonIsToldInItWhatIsWrongWithTheArguments) {
    const std::array<std::string, 6> lines = {"--json",
                                              "--bogus --json a.wav",
                                              "a.wav --preset Aiir --json",
                                              "--json a.wav --output",
                                              "--force=3 a.wav --json",
                                              "--json --output one.wav a.wav b.wav"};
    for (const std::string& line : lines) {
        SCOPED_TRACE(line);
        const CommandResult result = run(line + " 2>errors.txt");
        EXPECT_EQ(result.status, 2);
        const auto json = nlohmann::json::parse(result.output, nullptr, false);
        ASSERT_TRUE(json.is_object()) << result.output;
        EXPECT_TRUE(json["files"].empty());
        EXPECT_EQ(bytesOf(directory_.file("errors.txt")),
                  "slantwise-render: " + json["problem"].get<std::string>() + "\n");
    }
    EXPECT_EQ(run("--preset Aiir --suffix --json a.wav 2>/dev/null").output, "") << "it is the suffix";
}

TEST_F(RenderProgram, AReaderThatHasGoneAwayIsAFailureAndNoEndInTheMiddle) {
    sound("a.wav");
    sound("b.wav");
    EXPECT_EQ(run("--jobs 1 a.wav b.wav >/dev/full 2>/dev/null").status, 1);
    EXPECT_TRUE(std::filesystem::exists(directory_.file("b-slantwise.wav")));
}

// The program as a process of its own that a signal can be sent to.
class Running {
public:
    Running(const std::string& folder, const std::vector<std::string>& arguments) : pid_(fork()) {
        if (pid_ != 0) return;
        std::vector<char*> words = {const_cast<char*>(SLANTWISE_RENDER)};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        if (chdir(folder.c_str()) == 0) execv(SLANTWISE_RENDER, words.data());
        _exit(127);
    }
    ~Running() {
        if (pid_ > 0) kill(pid_, SIGKILL), waitpid(pid_, nullptr, 0);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    // Whether it has a file open that has no name, which is what it writes to.
    bool isWriting() const {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/" + std::to_string(pid_) + "/fd", error)) {
            std::error_code gone;
            const std::string target = std::filesystem::read_symlink(entry.path(), gone).string();
            if (target.ends_with("(deleted)") && target.find("memfd") == std::string::npos) return true;
        }
        return false;
    }
    void send(int signal) const { kill(pid_, signal); }
    // The signal that ended it, 0 for none.
    int wait() {
        int status = 0;
        waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t pid_;
};

TEST_F(RenderProgram, EndedInTheMiddleItLeavesNothingBehind) {
    sound("long.wav", wav24, 8, 48000 * 60);
    for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
        Running program(directory_.file(""), {"--preset", "Air", "long.wav"});
        while (!program.isWriting())
            std::this_thread::yield();
        program.send(signal);
        EXPECT_EQ(program.wait(), signal);
        EXPECT_EQ(entries(), 1U) << signal;
    }
}

} // namespace
} // namespace render
} // namespace QVM_NAMESPACE
