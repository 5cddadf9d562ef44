// How a VST3 host lists a parameter: what the toolkit's edit controller leaves out of the record.
//
// What has a name for each of its values is a list and no slider. The master switch is hidden, as the host's bypass is
// the same value under the name that hosts look for, and so are the link switches and ratios, which have no effect on
// the sound; both keep their identifiers and places for the sessions that have them.
#pragma once

#include "BuildNamespace.h"

#include <pluginterfaces/vst/ivsteditcontroller.h>

namespace QVM_NAMESPACE {

// Main thread. What is none of the product's parameters is left as it is, save that a program is chosen from a list.
void completeParameterInfo(Steinberg::Vst::ParameterInfo& info);

} // namespace QVM_NAMESPACE
