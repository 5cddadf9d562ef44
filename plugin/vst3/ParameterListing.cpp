#include "plugin/vst3/ParameterListing.h"

#include "description/tables/ParameterTable.h"

#include <juce_core/juce_core.h>

namespace QVM_NAMESPACE {

using namespace Steinberg::Vst;

namespace {

// The master switch is the host's bypass under another name.
bool isHidden(const tables::ParameterRow& row) {
    return row.pid == pidMasterOnOff || !row.hasEffect;
}

// As the toolkit's wrapper makes it of the name in code.
ParamID identifierOf(const tables::ParameterRow& row) {
    return static_cast<ParamID>(juce::String(row.codesafeName).hashCode()) & 0x7fffffffU;
}

const tables::ParameterRow* rowOf(ParamID id) {
    for (const tables::ParameterRow& row : tables::kParameters)
        if (identifierOf(row) == id) return &row;
    return nullptr;
}

} // namespace

void completeParameterInfo(ParameterInfo& info) {
    if (info.flags & ParameterInfo::kIsProgramChange) info.flags |= ParameterInfo::kIsList;
    const tables::ParameterRow* row = rowOf(info.id);
    if (!row) return;
    if (info.stepCount > 1 && !row->stringValues.empty()) info.flags |= ParameterInfo::kIsList;
    if (!isHidden(*row)) return;
    // The format asks for the three together.
    info.flags &= ~ParameterInfo::kCanAutomate;
    info.flags |= ParameterInfo::kIsHidden | ParameterInfo::kIsReadOnly;
}

} // namespace QVM_NAMESPACE
