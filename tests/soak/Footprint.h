// What this process holds: memory, threads, open files, and what the X server keeps for all of its clients.
#pragma once

#include <cstdio>

namespace slantwise_tests {

struct Footprint {
    long heapBytes = 0;      // allocated and not given back; what the allocator keeps for later is none of it
    long privateDirtyKb = 0; // after the allocator has given back what it keeps; 0 under a sanitizer
    long threads = 0;
    long openFiles = 0;
    long serverResources = 0; // of all clients of the display; 0 without one

    // Any thread, while the others are at rest. Takes milliseconds.
    static Footprint now();
    // Processor seconds of the calling thread.
    static double threadSeconds();

    void print(const char* when) const;
};

} // namespace slantwise_tests
