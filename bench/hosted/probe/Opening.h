// How long a host takes from its start until a plug-in's picture is on the screen.
#pragma once

#include "bench/hosted/probe/ScreenFile.h"

#include <string>
#include <vector>

namespace slantwise_bench {

// What a plug-in looks like once it has come to rest.
struct Look {
    Area area;
    Pixels pixels;            // of ScreenFile::read with Look::step
    std::uint32_t ground = 0; // the commonest colour: it may well be that of a window that nobody has painted yet

    static constexpr int step = 2; // pixels
    // How much of what is not ground here looks the same there, of 1.
    double shareIn(const Pixels& other) const;
};

// Starts the host, and looks until the picture has not changed for a second.
Look learnLook(const std::vector<std::string>& command, const ScreenFile& screen);

struct Opening {
    double milliseconds = 0;       // from the start
    double workedMilliseconds = 0; // of them, by the host's process
};

// Starts the host again, until most of that picture is there.
Opening measureOpening(const std::vector<std::string>& command, const ScreenFile& screen, const Look& look);

} // namespace slantwise_bench
