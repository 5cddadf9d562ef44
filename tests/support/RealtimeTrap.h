// Proves that code is fit for the render thread: counts what it must not do while it runs.
//
// A test program that lists RealtimeTrap.cpp among its sources has the heap functions and the blocking functions of the
// thread library replaced by ones that count, on the trapped thread only. On x86-64 Linux the kernel also stops the
// thread at its first system call, so what goes past the libraries is caught as well. With a sanitizer the heap is
// watched through the sanitizer's own hooks, and system calls are not.
#pragma once

#include <ostream>
#include <string>

namespace realtime {

struct Offences {
    unsigned heapCalls = 0;
    unsigned locks = 0;
    unsigned systemCalls = 0; // only the first one is seen
    const char* first = "";   // name of the first heap or lock function called
    long firstSystemCall = -1;

    bool any() const { return heapCalls || locks || systemCalls; }
};

inline std::ostream& operator<<(std::ostream& out, const Offences& o) {
    return out << o.heapCalls << " heap calls, " << o.locks << " locks, " << o.systemCalls
               << " system calls (first: " << o.first << ", number " << o.firstSystemCall << ")";
}

// Whether system calls can be seen here.
bool seesSystemCalls();

// Between the two the calling thread is trapped. Not to be nested.
void arm();
Offences disarm();

// What `code` did that it must not do on the render thread.
template <class Code>
Offences offencesOf(Code&& code) {
    arm();
    code();
    return disarm();
}

} // namespace realtime
