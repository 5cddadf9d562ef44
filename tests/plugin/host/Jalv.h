// The LV2 bundle in a host that is not ours: jalv with a dummy audio server.
#pragma once

#include "plugin/host/EditorProgram.h"
#include "plugin/lv2/Properties.h"
#include "support/ShellCommand.h"

#include "description/Description.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace QVM_NAMESPACE {

class Jalv : public EditorProgram {
protected:
    void SetUp() override {
        for (const char* program : {"jackd", "jack_metro", "jack_connect", "jalv.gtk3"}) {
            if (!slantwise_tests::isInstalled(program)) GTEST_SKIP() << program << " is not installed";
        }
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        // With patience for clients (milliseconds): on a busy machine it would drop them.
        jack_ =
            std::make_unique<ChildProcess>(std::vector<std::string>{"jackd", "-n", server_, "-r", "-m", "-t", "10000",
                                                                    "-d", "dummy", "-r", "48000", "-p", "256"},
                                           environment_, log_);
        rest(1);
        ASSERT_TRUE(jack_->isRunning()) << textOf(log_);
    }

    void TearDown() override {
        sounds_.reset();
        program_.reset();
        jack_.reset();
        for (const std::string& file : {log_, keys_})
            std::filesystem::remove(file);
    }

    // Its output is whole lines, and tells what plug-in and host say to each other.
    void openEditor() {
        start({"stdbuf", "-oL", "jalv.gtk3", "-d", SLANTWISE_LV2_URI}, environment_, log_);
        if (HasFatalFailure()) FAIL() << textOf(log_);
    }

    // The plug-in is given short sounds from now on, several a second.
    void playSounds() {
        sounds_ =
            std::make_unique<ChildProcess>(std::vector<std::string>{"jack_metro", "--bpm", "400"}, environment_, log_);
        const std::string connect =
            "JACK_DEFAULT_SERVER=" + server_ + " jack_connect metro:400_bpm Slantwise:audio_in_1 >/dev/null 2>&1";
        ASSERT_TRUE(comesTrue([&] { return slantwise_tests::runCommand(connect).status == 0; }));
    }

    struct Sent {
        std::string codename;
        double value; // as the host has it
    };

    // All values that the plug-in sent, in their order.
    std::vector<Sent> sent() const {
        std::vector<Sent> found;
        std::istringstream text(textOf(log_));
        std::string codename;
        for (std::string line; std::getline(text, line);) {
            if (const auto at = line.find("patch:property <"); at != std::string::npos)
                codename = line.substr(line.rfind(':') + 1, line.rfind('>') - line.rfind(':') - 1);
            else if (const auto value = line.find("patch:value \""); value != std::string::npos)
                found.push_back({codename, std::stod(line.substr(value + 13))});
        }
        return found;
    }
    // The last value sent of a parameter; its initial one while there is none.
    double shown(std::uint32_t pid) const {
        const QVMParameter& parameter = *GetParameter(pid);
        double value = parameter.initialValue;
        for (const Sent& each : sent())
            if (each.codename == propertyName(parameter)) value = each.value;
        return value;
    }
    bool becomes(std::uint32_t pid, double value, double tolerance) const {
        return comesTrue([=, this] { return std::abs(shown(pid) - value) <= tolerance; });
    }
    // How often it said that the session is another one now.
    std::size_t stateChanges() const {
        const std::string text = textOf(log_), word = "state#StateChanged";
        std::size_t count = 0;
        for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
            ++count;
        return count;
    }

    static std::string textOf(const std::string& fileName) {
        std::ifstream file(fileName);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // What the host's window was given since the editor opened.
    std::vector<std::string> hostKeys() const {
        std::vector<std::string> keys;
        std::istringstream text(textOf(keys_));
        for (std::string line; std::getline(text, line);)
            keys.push_back(line);
        return keys;
    }
    bool hostGets(const std::vector<std::string>& keys) const {
        return comesTrue([&] { return hostKeys() == keys; });
    }

    const std::string server_ = "slantwise-test-" + std::to_string(getpid());
    const std::string log_ = (std::filesystem::temp_directory_path() / (server_ + ".log")).string();
    const std::string keys_ = (std::filesystem::temp_directory_path() / (server_ + ".keys")).string();
    const std::map<std::string, std::string> environment_ = {
        {"JACK_DEFAULT_SERVER", server_},
        {"JACK_NO_AUDIO_RESERVATION", "1"},
        {"GTK_THEME", "Adwaita"},
        {"GTK_MODULES", SLANTWISE_GTK_KEY_LOG},
        {"SLANTWISE_KEY_LOG", keys_},
        {"LV2_PATH", std::string(SLANTWISE_LV2_FOLDER) + ":/usr/lib/lv2:/usr/lib/x86_64-linux-gnu/lv2"}};
    std::unique_ptr<ChildProcess> jack_, sounds_;
};

} // namespace QVM_NAMESPACE
