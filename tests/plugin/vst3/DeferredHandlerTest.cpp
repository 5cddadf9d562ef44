#include "plugin/vst3/DeferredHandler.h"

#include <gtest/gtest.h>

#include <juce_events/juce_events.h>

#include <pluginterfaces/vst/ivstunits.h>

#include <functional>
#include <string>
#include <vector>

namespace juce {
// The toolkit's own step of its message loop, which it declares in no public header.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce

namespace QVM_NAMESPACE {
namespace {

using namespace Steinberg;

// What a host gives: a handler that can do more than handle, and that counts.
class Host final : public Vst::IComponentHandler, public Vst::IUnitHandler {
public:
    std::vector<std::string> calls;
    std::function<void()> onRestart = [] {};
    uint32 references = 1;

    tresult PLUGIN_API beginEdit(Vst::ParamID id) override { return write("begin " + std::to_string(id)); }
    tresult PLUGIN_API performEdit(Vst::ParamID id, Vst::ParamValue) override {
        return write("perform " + std::to_string(id));
    }
    tresult PLUGIN_API endEdit(Vst::ParamID id) override { return write("end " + std::to_string(id)); }
    tresult PLUGIN_API restartComponent(int32 flags) override {
        onRestart();
        return write("restart " + std::to_string(flags));
    }
    tresult PLUGIN_API notifyUnitSelection(Vst::UnitID) override { return write("unit"); }
    tresult PLUGIN_API notifyProgramListChange(Vst::ProgramListID, int32) override { return write("programs"); }

    tresult PLUGIN_API queryInterface(const TUID id, void** object) override {
        QUERY_INTERFACE(id, object, Vst::IUnitHandler::iid, Vst::IUnitHandler)
        *object = nullptr;
        return kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return ++references; }
    uint32 PLUGIN_API release() override { return --references; }

private:
    tresult write(std::string call) {
        calls.push_back(std::move(call));
        return kResultTrue;
    }
};

class DeferredHandlerTest : public testing::Test {
protected:
    static void dispatch() {
        while (juce::dispatchNextMessageOnSystemQueue(true)) {}
    }
    using Calls = std::vector<std::string>;

    Host host_;
    IPtr<DeferredHandler> handler_ = owned(new DeferredHandler(host_));
};

TEST_F(DeferredHandlerTest, EditsGoStraightToTheHost) {
    handler_->beginEdit(3);
    handler_->performEdit(3, 0.5);
    handler_->endEdit(3);
    EXPECT_EQ(host_.calls, (Calls{"begin 3", "perform 3", "end 3"}));
    handler_->detach();
}

TEST_F(DeferredHandlerTest, ARestartComesOnceByAMessage) {
    EXPECT_EQ(handler_->restartComponent(Vst::kParamValuesChanged), kResultTrue);
    EXPECT_EQ(handler_->restartComponent(Vst::kParamValuesChanged), kResultTrue);
    EXPECT_EQ(handler_->restartComponent(Vst::kParamTitlesChanged), kResultTrue);
    EXPECT_EQ(host_.calls, Calls{});
    dispatch();
    EXPECT_EQ(host_.calls, (Calls{"restart " + std::to_string(Vst::kParamValuesChanged | Vst::kParamTitlesChanged)}));
    handler_->detach();
}

TEST_F(DeferredHandlerTest, ARestartAskedForWhileOneIsServedComesNext) {
    host_.onRestart = [this] {
        if (host_.calls.empty()) handler_->restartComponent(Vst::kLatencyChanged);
    };
    handler_->restartComponent(Vst::kParamValuesChanged);
    dispatch();
    EXPECT_EQ(host_.calls, (Calls{"restart " + std::to_string(Vst::kParamValuesChanged),
                                  "restart " + std::to_string(Vst::kLatencyChanged)}));
    handler_->detach();
}

TEST_F(DeferredHandlerTest, ARestartForNothingIsNotPassedOn) {
    handler_->restartComponent(0);
    dispatch();
    EXPECT_EQ(host_.calls, Calls{});
    handler_->detach();
}

TEST_F(DeferredHandlerTest, NothingReachesTheHostOnceDetached) {
    handler_->restartComponent(Vst::kParamValuesChanged);
    handler_->detach();
    EXPECT_EQ(host_.references, 1U);
    handler_ = nullptr; // what waits keeps it
    dispatch();
    EXPECT_EQ(host_.calls, Calls{});
    EXPECT_EQ(host_.references, 1U);
}

TEST_F(DeferredHandlerTest, TheHostMayDetachItByServingARestart) {
    host_.onRestart = [this] {
        handler_->detach();
        handler_ = nullptr;
    };
    handler_->restartComponent(Vst::kParamValuesChanged);
    dispatch();
    EXPECT_EQ(host_.calls.size(), 1U);
    EXPECT_EQ(host_.references, 1U);
}

TEST_F(DeferredHandlerTest, WhatElseTheHostOffersIsItsOwn) {
    FUnknownPtr<Vst::IComponentHandler> itself(handler_);
    EXPECT_EQ(itself.getInterface(), handler_.get());
    FUnknownPtr<Vst::IUnitHandler> units(handler_);
    EXPECT_EQ(units.getInterface(), &host_);
    FUnknownPtr<Vst::IComponentHandler2> none(handler_);
    EXPECT_EQ(none.getInterface(), nullptr);
    handler_->detach();
}

} // namespace
} // namespace QVM_NAMESPACE
