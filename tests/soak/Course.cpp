#include "Course.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace slantwise_tests {

namespace {

// Above what the parts of the system need that come and go by themselves.
constexpr long mostBytesATurn = 16, mostBytesOnce = 128 * 1024;
constexpr long mostKb = 1500, mostResources = 20;
constexpr float mostSlowerBy = 1.5F;
constexpr std::size_t fewestCompared = 20; // turns differ as their seed has it

bool expect(bool holds, const char* what) {
    if (!holds) std::printf("  GROWS: %s\n", what);
    return holds;
}

float median(std::vector<float>& of) {
    const auto middle = of.begin() + static_cast<std::ptrdiff_t>(of.size() / 2);
    std::nth_element(of.begin(), middle, of.end());
    return *middle;
}

} // namespace

bool Course::run(const Use& use) {
    done_.reserve(static_cast<std::size_t>(turns_)); // not to be taken for growth
    const long warmUp = turns_ / 2;
    Footprint half;
    for (long i = 0; i < turns_; ++i) {
        if (i == warmUp) {
            use.rest();
            half = Footprint::now();
        }
        use.before();
        const double start = Footprint::threadSeconds();
        const Kind kind = use.measured();
        const double middle = Footprint::threadSeconds();
        yardstick_.run();
        const double end = Footprint::threadSeconds();
        done_.push_back({kind, static_cast<float>((middle - start) / (end - middle))});
    }
    use.rest();
    const Footprint end = Footprint::now();
    half.print("half way:");
    end.print("at the end:");
    const bool isHeld = isHeldTheSame(half, end);
    return isWorkTheSame() && isHeld;
}

bool Course::isHeldTheSame(const Footprint& half, const Footprint& end) const {
    const long turns = turns_ - turns_ / 2, kept = end.heapBytes - half.heapBytes;
    std::printf("  kept a turn: %.1f bytes\n", static_cast<double>(kept) / static_cast<double>(turns));
    bool isSame = expect(kept <= mostBytesOnce + mostBytesATurn * turns, "heap");
    isSame &= expect(end.privateDirtyKb - half.privateDirtyKb <= mostKb, "private memory");
    isSame &= expect(end.threads <= half.threads, "threads");
    isSame &= expect(end.openFiles <= half.openFiles, "open files");
    isSame &= expect(end.serverResources - half.serverResources <= mostResources, "what the X server keeps");
    return isSame;
}

// The first tenth warms up; of the rest the first and the last third are compared.
bool Course::isWorkTheSame() const {
    struct Works {
        std::vector<float> early, late;
    };
    std::map<Kind, Works> works;
    const std::size_t warmUp = done_.size() / 10, third = (done_.size() - warmUp) / 3;
    for (std::size_t i = 0; i < third; ++i) {
        const Turn &early = done_[warmUp + i], &late = done_[done_.size() - third + i];
        works[early.kind].early.push_back(early.work);
        works[late.kind].late.push_back(late.work);
    }
    bool isSame = true;
    for (auto& [kind, of] : works) {
        if (std::min(of.early.size(), of.late.size()) < fewestCompared) continue;
        const float before = median(of.early), after = median(of.late);
        std::printf("  a turn of kind %u: %.2f yardsticks, towards the end %.2f\n", kind, before, after);
        isSame &= expect(after <= before * mostSlowerBy, "a turn's work");
    }
    return isSame;
}

} // namespace slantwise_tests
