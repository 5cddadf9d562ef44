// What an open plug-in costs in a host, and how fast it answers.
#pragma once

#include "bench/hosted/probe/ScreenFile.h"

#include <optional>
#include <string>
#include <vector>

namespace slantwise_bench {

// Pixels from the upper left corner of the plug-in's window.
struct Spot {
    int x = 0, y = 0;
};

// Where there is a handle, and how far a drag takes it to either side.
struct Handle {
    Spot at, reach;
};

// A press and a release there; 1 is the left button.
struct Click {
    Spot at;
    int button = 1;
};

struct Load {
    double corePercent = 0;       // of one core, all threads but the one that processes the sound
    double picturesPerSecond = 0; // new ones
};

struct Running {
    long privateKilobytes = 0; // of the host, after the opening
    Load idle, playing;
    std::optional<Load> spectrum, dragging;
    std::optional<double> pointerToPixelMs; // median
};

// `spectrumSwitch` is clicked, in turn, before the spectrum is measured; without any there is none.
Running measureRunning(const std::vector<std::string>& command, const ScreenFile& screen, double secondsEach,
                       std::optional<Handle> handle, const std::vector<Click>& spectrumSwitch);

} // namespace slantwise_bench
