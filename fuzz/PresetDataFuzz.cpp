// What presets are made of where it comes from outside: names, numbers, values by codename or in a row, the other side
// of A/B as text, the word that says which layout is open, paths. An input is a row of such offers to an open editor
// and its unit.
#include "ByteSource.h"
#include "Fuzz.h"
#include "HostedUnit.h"

#include "description/Description.h"
#include "description/Presets.h"
#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"
#include "unit/PrivateProperties.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

using namespace slantwise;
using slantwise_fuzz::ByteSource;
using slantwise_fuzz::HostedUnit;
using slantwise_fuzz::require;

namespace {

constexpr int mostOffers = 60;

template <class Value>
OSStatus setProperty(HostedUnit& host, AudioUnitPropertyID id, const Value& value) {
    return AudioUnitSetProperty(&host.unit(), id, kAudioUnitScope_Global, 0, &value, sizeof value);
}

// A name in the unit, as a session brings it; now and then longer than any that fits.
void nameInUnit(HostedUnit& host, ByteSource& in) {
    std::string name = in.text();
    if (in.below(16) == 0) name.resize(SavedSettings::maxTextBytes + 1, 'n');
    const std::string* reference = &name;
    const bool isTaken = setProperty(host, kQVMProperty_PresetName, reference) == noErr;
    require(isTaken == (name.size() <= SavedSettings::maxTextBytes), "a name is taken or refused by its length");
    const std::int32_t index = host.unit().presetIndex();
    require(index >= -1 && index < static_cast<std::int32_t>(QVMPresetCount), "a name has a number or none");
    host.ui().lastSavedPresetWasNamed(name);
}

void nameInEditor(HostedUnit& host, ByteSource& in) {
    const auto& names = GetPresets()->stringValues;
    const bool isKnown = in.below(2) == 0;
    host.view().requestPresetNamed(isKnown ? names[in.below(names.size())] : in.text());
}

void number(HostedUnit& host, ByteSource& in) {
    const auto index = static_cast<std::int32_t>(in.below(2) == 0 ? in.word() : in.below(32));
    const bool isThere = PresetIndexToPresetValues(index).has_value();
    require(host.unit().choosePreset(index) == isThere, "a number is a preset's or refused");
    host.ui().lastSavedPresetWasKeyed(static_cast<std::uint32_t>(index));
}

void pairs(HostedUnit& host, ByteSource& in) {
    std::vector<std::pair<std::string, float>> values;
    for (std::size_t count = in.below(8); count > 0; --count) {
        const std::size_t pid = in.below(QVMParameterCount + 2);
        const std::string name =
            pid < QVMParameterCount ? GetParameter(static_cast<std::uint32_t>(pid))->codesafeName : in.text();
        values.emplace_back(name, in.number());
    }
    host.view().setParameterValuePairs(values);
}

void values(HostedUnit& host, ByteSource& in) {
    std::vector<float> row(in.below(64));
    for (float& value : row)
        value = in.number();
    host.ui().applyPresetValues(row);
}

void otherSide(HostedUnit& host, ByteSource& in) {
    const std::uint32_t side = in.below(8) == 0 ? in.word() : static_cast<std::uint32_t>(in.below(3));
    const std::string text = in.text(8);
    setProperty(host, kQVMProperty_ABState, QVMABRecord{side, 0, &text});
    host.view().adoptRestoredState();
    host.ui().presetBar()->ab().tap();
}

void layout(HostedUnit& host, ByteSource& in) {
    setProperty(host, kQVMProperty_InterfaceState, in.below(2) == 0 ? in.word() : std::uint32_t{in.byte()});
    host.view().adoptRestoredState();
}

void path(HostedUnit& host, ByteSource& in) {
    const std::string text = in.text(8);
    const std::string* reference = &text;
    setProperty(host, kQVMProperty_BufferPath, reference);
}

void again(HostedUnit& host, ByteSource&) {
    host.closeEditor();
    host.openEditor();
    host.wait(1);
}

constexpr std::array offers = {nameInUnit, nameInEditor, number, pairs, values, otherSide, layout, path, again};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HostedUnit host;
    host.openEditor();
    host.wait(1);
    ByteSource in({data, size});
    for (int i = 0; i < mostOffers && !in.isEmpty(); ++i) {
        offers[in.below(offers.size())](host, in);
        host.checkAtRest();
    }
    host.checkUndoAndRedo();
    return 0;
}
