// A host that restores a state by the format's own interface, with a lock of its own around it that it takes again when
// the plug-in asks it to read the values. The built VST3, without an editor.
#include "plugin/host/Vst3Module.h"

#include <gtest/gtest.h>

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstmessage.h>
#include <public.sdk/source/common/memorystream.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <semaphore>
#include <thread>
#include <vector>

namespace slantwise_tests {
namespace {

using namespace Steinberg;
using namespace std::chrono_literals;

// The lock is not recursive: where the host would hang for good, that is written down instead.
class LockingHost final : public Vst::IComponentHandler {
public:
    Vst::IEditController* controller = nullptr;
    Vst::ParamID parameter = 0;

    template <class Call>
    void withLock(Call call) {
        const std::scoped_lock lock(mutex_);
        holder_ = std::this_thread::get_id();
        call();
        holder_ = std::thread::id();
    }

    tresult PLUGIN_API restartComponent(int32 flags) override {
        if (holder_ == std::this_thread::get_id()) {
            hasHung_ = true;
            return kResultFalse;
        }
        const std::scoped_lock lock(mutex_);
        requests_.push_back({flags, controller->getParamNormalized(parameter)});
        hasRequest_.release();
        return kResultTrue;
    }
    tresult PLUGIN_API beginEdit(Vst::ParamID) override { return kResultTrue; }
    tresult PLUGIN_API performEdit(Vst::ParamID, Vst::ParamValue) override { return kResultTrue; }
    tresult PLUGIN_API endEdit(Vst::ParamID) override { return kResultTrue; }

    struct Request {
        int32 flags;
        Vst::ParamValue value; // as the plug-in says at that time
    };
    bool hasHung() const { return hasHung_; }
    bool waitForRequest() { return hasRequest_.try_acquire_for(20s); }
    std::vector<Request> requests() {
        const std::scoped_lock lock(mutex_);
        return requests_;
    }

    // As hosts do whose handler outlives the plug-in: nobody counts.
    tresult PLUGIN_API queryInterface(const TUID, void** object) override {
        *object = nullptr;
        return kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }

private:
    std::mutex mutex_;
    std::atomic<std::thread::id> holder_;
    std::atomic<bool> hasHung_ = false;
    std::vector<Request> requests_;
    std::counting_semaphore<> hasRequest_{0};
};

class Vst3Restore : public testing::Test {
protected:
    void SetUp() override {
        component_->initialize(nullptr);
        controller_->initialize(nullptr);
        host_.controller = controller_;
        controller_->setComponentHandler(&host_);
        const FUnknownPtr<Vst::IConnectionPoint> processing(component_), editing(controller_);
        processing->connect(editing);
        editing->connect(processing);
        Vst::ParameterInfo info;
        ASSERT_EQ(controller_->getParameterInfo(3, info), kResultOk);
        host_.parameter = info.id;
        controller_->setParamNormalized(info.id, saved);
        ASSERT_NEAR(controller_->getParamNormalized(info.id), saved, 1e-6);
        component_->getState(&state_);
    }
    void TearDown() override { takeAway(); }

    void changeAndRestore() {
        controller_->setParamNormalized(host_.parameter, 0.125);
        restore();
    }
    void restore() {
        host_.withLock([this] {
            state_.seek(0, IBStream::kIBSeekSet, nullptr);
            EXPECT_EQ(component_->setState(&state_), kResultOk);
            state_.seek(0, IBStream::kIBSeekSet, nullptr);
            controller_->setComponentState(&state_);
        });
    }
    void takeAway() {
        if (!controller_) return;
        const FUnknownPtr<Vst::IConnectionPoint> processing(component_), editing(controller_);
        processing->disconnect(editing);
        editing->disconnect(processing);
        controller_->terminate();
        component_->terminate();
        controller_ = nullptr;
        component_ = nullptr;
    }

    static constexpr double saved = 0.75;
    LockingHost host_;
    Vst3Module module_;
    IPtr<Vst::IComponent> component_ = module_.create<Vst::IComponent>(kVstAudioEffectClass);
    IPtr<Vst::IEditController> controller_ = module_.create<Vst::IEditController>(kVstComponentControllerClass);
    MemoryStream state_;
};

TEST_F(Vst3Restore, TheHostIsToldOfTheValuesOnceAndNotWithinItsOwnCall) {
    for (std::size_t restored = 1; restored <= 5; ++restored) {
        changeAndRestore();
        ASSERT_TRUE(host_.waitForRequest());
        ASSERT_FALSE(host_.hasHung());
        const auto requests = host_.requests();
        ASSERT_EQ(requests.size(), restored);
        EXPECT_EQ(requests.back().flags, Vst::kParamValuesChanged);
        EXPECT_NEAR(requests.back().value, saved, 1e-6);
    }
}

TEST_F(Vst3Restore, TheHostIsNotToldOnceTheComponentIsGone) {
    for (int i = 0; i < 20; ++i)
        changeAndRestore();
    takeAway();
    const std::size_t toldBefore = host_.requests().size();
    std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(host_.hasHung());
    EXPECT_EQ(host_.requests().size(), toldBefore);
}

} // namespace
} // namespace slantwise_tests
