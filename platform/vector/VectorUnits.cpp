// Which vector units this machine has, as the vector library's headers ask for it. The library itself is not linked: it
// would do the same, but measures a clock for some four milliseconds whenever it is loaded, and with it every scan of a
// host and every opening.
#include <hwy/targets.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#if HWY_ARCH_X86
#include <cpuid.h>
#endif

namespace hwy {

namespace {

std::atomic<int64_t> unitsUnderTest{0}, unitsInUse{-1};

#if HWY_ARCH_X86

bool hasAll(unsigned found, unsigned wanted) {
    return (found & wanted) == wanted;
}

// Registers that the operating system saves: a bit for each kind.
unsigned savedRegisters() {
    unsigned low = 0, high = 0;
    asm("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}

// A unit has all of the one before it. What each one takes for granted is in the library's set_macros-inl.h.
int64_t unitsOfThisMachine() {
    unsigned a = 0, b = 0, c = 0, d = 0, unused = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d) || !hasAll(c, bit_SSSE3)) return HWY_STATIC_TARGET;
    int64_t units = HWY_STATIC_TARGET | HWY_SSSE3;
    if (!hasAll(c, bit_SSE4_1 | bit_SSE4_2 | bit_PCLMUL | bit_AES)) return units;
    units |= HWY_SSE4;

    constexpr unsigned halves = 0x6, masks = 0xE0; // of 256 bits; of 512 bits, with their masks
    if (!hasAll(c, bit_OSXSAVE | bit_AVX | bit_FMA | bit_F16C)) return units;
    const unsigned saved = savedRegisters();
    unsigned extensions = 0, longest = 0;
    if (!__get_cpuid_count(7, 0, &unused, &extensions, &unused, &unused) ||
        !__get_cpuid(0x80000001, &unused, &unused, &longest, &unused))
        return units;
    if (!hasAll(saved, halves) || !hasAll(extensions, bit_AVX2 | bit_BMI | bit_BMI2) || !hasAll(longest, bit_LZCNT))
        return units;
    units |= HWY_AVX2;
    if (hasAll(saved, halves | masks) && hasAll(extensions, bit_AVX512F | bit_AVX512VL | bit_AVX512DQ | bit_AVX512BW))
        units |= HWY_AVX3;
    return units;
}

#else

int64_t unitsOfThisMachine() {
    return HWY_STATIC_TARGET;
}

#endif

} // namespace

ChosenTarget& GetChosenTarget() {
    static constinit ChosenTarget chosen;
    return chosen;
}

int64_t SupportedTargets() {
    static const int64_t found = unitsOfThisMachine();
    const int64_t underTest = unitsUnderTest;
    return underTest != 0 ? underTest : found & unitsInUse;
}

void SetSupportedTargetsForTest(int64_t targets) {
    unitsUnderTest = targets;
    GetChosenTarget().DeInit();
}

void DisableTargets(int64_t targets) {
    unitsInUse = ~targets | HWY_STATIC_TARGET;
    GetChosenTarget().DeInit();
}

// Where the headers find that they are used wrongly.
void Abort(const char* file, int line, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::fprintf(stderr, "%s:%d: ", file, line);
    std::vfprintf(stderr, format, arguments);
    std::fputc('\n', stderr);
    va_end(arguments);
    std::abort();
}

} // namespace hwy
