// All that an audio unit and its editor share while the editor is open.
//
// The editor's drawing object has one and draws from it. The editor's host view lends it to the unit, which writes into
// it, and takes it back before it lets the editor go; the unit knows nothing else of an editor. Nothing here locks,
// waits or allocates after it was sized: what both sides touch are single words, read and written whole.
//
//   words                           written by                              read by
//   parameterStates: value,         unit: whoever stores a parameter, any   main thread, each frame
//     auxValue; interpTargets         thread, one at a time (VizLink)
//   parameterStates: displayValue   main thread, each step of the glide     main thread
//   storedParameters                unit: as above, after the values        main thread, which takes them, each frame
//   interpAmount, the two flags     unit starts a glide, main thread ends   main thread
//                                     it
//   levels                          unit: render thread, each block; a      main thread, which takes them, each frame
//                                     reset by the thread that asks for it
//   tap                             unit: render thread, each stretch of    main thread, which takes it, each frame
//                                     sound while it is wanted; whether it
//                                     is: main thread
//   numericMeter words              unit, any thread                        main thread, twice a second
//   frameRequest                    any thread, after it wrote any of the   display link's thread, each refresh; main
//                                     above                                   thread, which takes it, each frame
//
// Everything else, from the count of the parameters to the work space of the glide, is the main thread's, and what has
// a size gets it before the object is lent. The unit is inside the object only until it has given it back, so the owner
// may destroy it then.
#pragma once

#include "description/Types.h"
#include "link/AudioTap.h"
#include "link/FrameRequest.h"
#include "link/LevelWords.h"
#include "link/ParameterGlide.h"

#include <cstddef>

namespace QVM_NAMESPACE {

// A number that the unit wants shown as text.
struct NumericMeterWords {
    SharedWord<float> value = 0;
    SharedWord<const char*> format = ""; // printf's, for one double; the text lives as long as the process
    SharedWord<const char*> suffix = ""; // likewise
};

struct SharedState {
    static constexpr std::size_t meterChannels = 2;
    static constexpr QVMFloat32Range meterRange = {-96, 12}; // dB, that of the slider that the meter stands in

    // Starts a glide towards the targets that were posted, and asks for the frames that show it. As
    // ParameterGlide::restart().
    void restartGlide() {
        glide.restart();
        frameRequest.ask();
    }

    ParameterGlide glide;
    // By pid as bits: what was stored since a frame has taken them, be it what was there before.
    SharedWord<std::uint32_t> storedParameters = 0;
    LevelWords levels{meterChannels, meterRange.min};
    AudioTap tap;
    NumericMeterWords numericMeter;
    FrameRequest frameRequest;
};

} // namespace QVM_NAMESPACE
