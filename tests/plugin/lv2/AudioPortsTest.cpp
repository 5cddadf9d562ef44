#include "plugin/lv2/AudioPorts.h"

#include <gtest/gtest.h>

#include <vector>

namespace QVM_NAMESPACE {
namespace {

// What the toolkit does with its ports, and all that it reads.
struct Copier {
    std::array<float*, AudioPorts::count> ports{};
    int runs = 0;

    void run(std::uint32_t frames) {
        ++runs;
        for (std::uint32_t i = 0; i < frames; ++i)
            for (std::uint32_t channel = 0; channel < AudioPorts::inputs; ++channel)
                if (float* const out = ports[AudioPorts::inputs + channel]) out[i] = ports[channel][i] + 1;
    }
};

const LV2_Descriptor descriptor{"urn:plugin",
                                nullptr,
                                [](LV2_Handle handle, std::uint32_t port, void* data) {
                                    static_cast<Copier*>(handle)->ports.at(port) = static_cast<float*>(data);
                                },
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr};

class AudioPortsTest : public testing::Test {
protected:
    static constexpr std::uint32_t frames = 1000;

    void run() {
        ports_.render(frames, [this](std::uint32_t piece) { toolkit_.run(piece); });
    }

    Copier toolkit_;
    AudioPorts ports_{descriptor, &toolkit_};
    std::vector<float> in_ = std::vector<float>(frames, 0.5F), left_ = std::vector<float>(frames),
                       right_ = std::vector<float>(frames);
};

TEST_F(AudioPortsTest, AConnectedBlockIsRunInOnePiece) {
    ports_.connect(0, in_.data());
    ports_.connect(1, in_.data());
    ports_.connect(2, left_.data());
    ports_.connect(3, nullptr);
    run();
    EXPECT_EQ(toolkit_.runs, 1);
    EXPECT_EQ(left_, std::vector<float>(frames, 1.5F));
}

TEST_F(AudioPortsTest, AnInputThatIsLeftOutIsSilentToTheBlocksEnd) {
    ports_.connect(0, in_.data());
    ports_.connect(1, nullptr);
    ports_.connect(2, left_.data());
    ports_.connect(3, right_.data());
    run();
    EXPECT_EQ(left_, std::vector<float>(frames, 1.5F));
    EXPECT_EQ(right_, std::vector<float>(frames, 1.0F));
    ports_.connect(1, in_.data());
    run();
    EXPECT_EQ(right_, std::vector<float>(frames, 1.5F)) << "connected again";
}

TEST_F(AudioPortsTest, NothingConnectedIsNothingTouched) {
    run();
    EXPECT_EQ(left_, std::vector<float>(frames));
}

} // namespace
} // namespace QVM_NAMESPACE
