// One block through a hosted VST3 by the format's own interface, for what the toolkit's host keeps to itself: which
// parameters the plug-in changes by the block, all of which a host may write back.
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <map>
#include <string>

namespace slantwise_tests {

// By the names that the host knows; 0 to 1. The instance is prepared for stereo and blocks of 64 frames or more.
std::map<std::string, float> parametersChangedByBlock(juce::AudioPluginInstance& instance);

} // namespace slantwise_tests
