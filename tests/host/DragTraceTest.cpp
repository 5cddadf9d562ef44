// The way of one drag: which classes a value passes from the slider to the unit, and from there back to the slider. The
// real objects are asked, by a look at who calls whom at either end, and held to what ARCHITECTURE.md tells.
#include "host/HostViewFixture.h"

#include "controls/QVMVerticalSlider.h"
#include "controls/ValueFollower.h"
#include "platform/layer/TextMetrics.h"
#include "support/CallStack.h"
#include "unit/QVM0015_AudioUnit.h"
#include "viz/sketches/PBGLSketchAbstract.h"
#include "viz/sketches/QVMParameterSketch.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <regex>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {
namespace {

using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::Le;
using ::testing::Not;
using ::testing::PrintToString;
using ::testing::SizeIs;
using ::testing::StartsWith;

// The real unit, and who sets a parameter of it.
class WatchedUnit final : public AudioUnitInstance {
public:
    QVM0015_AudioUnit real;
    std::function<void()> onSet;

    OSStatus getParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element,
                          float* value) const override {
        return real.getParameter(id, scope, element, value);
    }
    OSStatus setParameter(AudioUnitParameterID id, AudioUnitScope scope, AudioUnitElement element, float value,
                          std::uint32_t offset) override {
        if (onSet) onSet();
        return real.setParameter(id, scope, element, value, offset);
    }
    OSStatus propertyInfo(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                          AudioUnitPropertyInfo* info) const override {
        return real.propertyInfo(id, scope, element, info);
    }
    OSStatus getProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element, void* data) override {
        return real.getProperty(id, scope, element, data);
    }
    OSStatus setProperty(AudioUnitPropertyID id, AudioUnitScope scope, AudioUnitElement element,
                         const void* data) override {
        return real.setProperty(id, scope, element, data);
    }
};

// Who has a text measured: a slider does that with its value when it shows one.
class WatchedMetrics final : public TextMetrics {
public:
    WatchedMetrics() { install(this); }
    ~WatchedMetrics() override { install(nullptr); }
    std::function<void()> onWidth;

    double width(const AttributedString& text) const override {
        if (onWidth) onWidth();
        return nominal_.width(text);
    }
    double ascent(const Font& font) const override { return nominal_.ascent(font); }
    double descent(const Font& font) const override { return nominal_.descent(font); }
    bool hasFace(const std::string& face) const override { return nominal_.hasFace(face); }

private:
    const TextMetrics& nominal_ = TextMetrics::current();
};

using Classes = std::vector<std::string>;

// Adds what the way has not passed yet: a class that hands on to its own base has one name in it.
void append(Classes& way, const Classes& more) {
    for (const std::string& each : more)
        if (std::find(way.begin(), way.end(), each) == way.end()) way.push_back(each);
}

// Who calls, the outermost first, without what the platform carries.
Classes callers() {
    Classes way, all = call_stack::classes(SLANTWISE_SOURCE);
    std::erase_if(all, [](const std::string& each) { return each.starts_with("platform/"); });
    append(way, all);
    return way;
}

// The stations of a way in ARCHITECTURE.md: each item of the list below the line that begins so is about one file,
// which it names first.
Classes told(const std::string& line) {
    std::ifstream text(SLANTWISE_SOURCE "/docs/ARCHITECTURE.md");
    const std::regex item("[0-9]+\\. `([^`]+)`.*");
    Classes stations;
    std::smatch match;
    bool isInList = false;
    for (std::string each; std::getline(text, each);) {
        if (std::regex_match(each, match, item) && isInList)
            stations.push_back(match[1]);
        else if (!each.empty() && each.front() != ' ')
            isInList = each.starts_with(line);
    }
    return stations;
}

const Classes wayOut = told("From the slider to the unit");
const Classes wayBack = told("From the unit to the slider");
constexpr std::size_t mostOut = 6, mostBack = 5; // files

// Whether `seen` has nothing but stations of the way, in its order. One whose last act is the call of the next leaves
// no trace in an optimised build.
bool keepsTo(const Classes& way, const Classes& seen) {
    auto station = way.begin();
    for (const std::string& each : seen) {
        station = std::find(station, way.end(), each);
        if (station == way.end()) return false;
        ++station;
    }
    return true;
}

class DragTrace : public HostView, protected ValueFollower {
protected:
    DragTrace() {
        view = QVM0015_CocoaViewFactory2().uiViewForAudioUnitWithSize(&watched_, {});
        ui_ = &view->ui();
        window_.setContentView(std::move(view));
        settle();
    }
    // Until the pictures are there and at rest.
    void settle() {
        time.advance(1);
        for (int i = 0; i < 12; ++i)
            frame();
    }
    QVMParameterControl& control() { return *ui_->parameterControlWithPid(pidTiltGain); }
    QVMVerticalSlider& slider() { return dynamic_cast<QVMVerticalSlider&>(*control().primaryControl()); }
    void drag(double dx) {
        Event event;
        event.locationInWindow = slider().coordinates().toWindow(slider().readoutBulb()->position());
        event.clickCount = 1;
        for (const EventType type : {EventType::mouseDown, EventType::mouseDragged, EventType::mouseUp}) {
            event.type = type;
            window_.sendEvent(event);
            if (type == EventType::mouseDown) event.locationInWindow.x += dx;
        }
    }

    // Has who calls the unit, and the unit itself, appended to `way_`.
    void watchTheUnit() {
        watched_.onSet = [this] {
            ++sets_;
            append(way_, callers());
            append(way_, {"unit/QVM0015_AudioUnit"});
        };
    }
    // The same for who calls the followers of the slider's control. It may jump to whom its action is for and leave no
    // trace then.
    void watchTheControl() { control().addFollower(*this); }
    void followMember(const QVMParameterControl&) override { append(way_, callers()); }
    void forgetMember(const QVMParameterControl&) override {}

    Classes way_;
    int sets_ = 0; // of a parameter of the unit
    WatchedMetrics metrics_;
    WatchedUnit watched_;
    Window window_;
    QVMGenericUI* ui_ = nullptr;
};

TEST_F(DragTrace, NoWayIsLongerThanItMayBe) {
    EXPECT_THAT(wayOut, SizeIs(Le(mostOut))) << PrintToString(wayOut);
    EXPECT_THAT(wayBack, SizeIs(Le(mostBack))) << PrintToString(wayBack);
    EXPECT_THAT(wayOut, IsSupersetOf({"controls/QVMVerticalSlider", "unit/QVM0015_AudioUnit"}));
    EXPECT_THAT(wayBack, IsSupersetOf({"unit/VizLink", "controls/QVMVerticalSlider"}));
}

TEST_F(DragTrace, FromTheSliderToTheUnitAValuePassesTheStationsThatAreTold) {
    watchTheControl();
    watchTheUnit();
    drag(40);
    control().removeFollower(*this);
    ASSERT_EQ(sets_, 1);
    EXPECT_TRUE(keepsTo(wayOut, way_)) << PrintToString(way_);
    EXPECT_THAT(way_, SizeIs(Le(mostOut)));
    EXPECT_THAT(way_,
                IsSupersetOf({"controls/QVMVerticalSlider", "controls/QVMParameterControl",
                              "editor/session/EditorValues", "host/QVM0015_CocoaView2", "unit/QVM0015_AudioUnit"}));
}

// What the trace is worth: another way gives another one.
TEST_F(DragTrace, WhatTheHostAsksForPassesNoControl) {
    watchTheUnit();
    ui_->setParameterValuePairs({{"TiltGain", 3.0F}});
    ASSERT_EQ(sets_, 1);
    EXPECT_FALSE(way_.empty());
    EXPECT_FALSE(keepsTo({wayOut.begin(), wayOut.begin() + 3}, way_));
    EXPECT_THAT(way_, Not(Contains(StartsWith("controls/"))));
}

// The unit's end of what it shares with the editor has written the value before the frame comes.
TEST_F(DragTrace, FromTheUnitToTheSliderAValuePassesTheStationsThatAreTold) {
    constexpr float value = -5;
    metrics_.onWidth = [this] {
        if (way_.empty()) way_ = callers();
    };
    AudioUnitSetParameter(&watched_, pidTiltGain, kAudioUnitScope_Global, 0, value, 0);
    const VizRef shared = ui_->sketch()->getVizRef();
    ASSERT_EQ(shared->parameterStates()[pidTiltGain].value, value) << "VizLink has been";
    ASSERT_TRUE(way_.empty());
    ASSERT_NE(slider().floatValue(), value);
    frame();
    ASSERT_EQ(slider().floatValue(), value);
    const auto slider = std::find(way_.begin(), way_.end(), "controls/QVMVerticalSlider");
    ASSERT_NE(slider, way_.end());
    way_.erase(slider + 1, way_.end()); // what it shows the value with
    EXPECT_TRUE(keepsTo(wayBack, way_)) << PrintToString(way_);
    EXPECT_THAT(way_, IsSupersetOf({"viz/sketches/QVMParameterSketch", "editor/session/EditorValues",
                                    "controls/QVMParameterControl", "controls/QVMVerticalSlider"}));
}

} // namespace
} // namespace QVM_NAMESPACE
