// What stands in a sound file beside the sound.
#pragma once

#include "BuildNamespace.h"

#include <vector>

#include <sndfile.h>

namespace QVM_NAMESPACE {
namespace render {

// Carries texts (title, artist, ...), the broadcast and the cart chunk, cue points with their labels, instrument and
// loops, the channels' places, and the chunks of Wave files that mean nothing to the library, such as iXML. `to` has
// been opened to write, and no sample has been written; what its format has no place for is left out.
void copyMetadata(SNDFILE* from, const SF_INFO& source, SNDFILE* to, const SF_INFO& target);

// The library's code for the place of each channel; empty where the file does not say.
std::vector<int> channelMapOf(SNDFILE* file, int channels);

} // namespace render
} // namespace QVM_NAMESPACE
