// The LV2 bundle in a host that is not ours: jalv with a dummy audio server.
#pragma once

#include "plugin/host/EditorProgram.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace QVM_NAMESPACE {

class Jalv : public EditorProgram {
protected:
    void SetUp() override {
        for (const char* program : {"jackd", "jalv.gtk3"}) {
            if (!slantwise_tests::isInstalled(program)) GTEST_SKIP() << program << " is not installed";
        }
        ASSERT_TRUE(screen_.isOpen()) << "needs a display";
        jack_ = std::make_unique<ChildProcess>(
            std::vector<std::string>{"jackd", "-n", server_, "-r", "-m", "-d", "dummy", "-r", "48000", "-p", "256"},
            environment_, log_);
        rest(1);
        ASSERT_TRUE(jack_->isRunning()) << textOf(log_);
    }

    void TearDown() override {
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

    static std::string textOf(const std::string& fileName) {
        std::ifstream file(fileName);
        return {std::istreambuf_iterator<char>(file), {}};
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
    std::unique_ptr<ChildProcess> jack_;
};

} // namespace QVM_NAMESPACE
