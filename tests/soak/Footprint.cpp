#include "Footprint.h"

#include "support/ServerResources.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <malloc.h>
#include <time.h>

namespace slantwise_tests {

namespace {

long entriesOf(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

// None of a sanitizer's, which keeps what it has seen and looks for leaks itself.
long privateDirtyKb() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return 0;
#else
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.rfind("Private_Dirty:", 0) == 0) return std::atol(line.c_str() + line.find(':') + 1);
    }
    return 0;
#endif
}

} // namespace

Footprint Footprint::now() {
    malloc_trim(0);
    const struct mallinfo2 info = mallinfo2();
    Footprint print;
    print.heapBytes = static_cast<long>(info.uordblks + info.hblkhd);
    print.privateDirtyKb = slantwise_tests::privateDirtyKb();
    print.threads = entriesOf("/proc/self/task");
    print.openFiles = entriesOf("/proc/self/fd");
    print.serverResources = slantwise_tests::serverResources();
    return print;
}

double Footprint::threadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

void Footprint::print(const char* when) const {
    std::printf("  %-10s heap %ld bytes, private dirty %ld KB, threads %ld, open files %ld, X resources %ld\n", when,
                heapBytes, privateDirtyKb, threads, openFiles, serverResources);
}

} // namespace slantwise_tests
