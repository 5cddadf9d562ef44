// Saved states. Whatever the bytes are, they change nothing or restore all, and an editor that is open takes them over:
// its other side of A/B, its layout and its preset's name are in them.
//
// Each input is given as it is, and once more with its length and its checksum put right, or nothing but the
// checksum would ever be tried.
#include "Fuzz.h"
#include "HostedUnit.h"

#include "editor/surface/QVMGenericUI.h"
#include "editor/surface/QVMPresetBar.h"

#include <span>
#include <vector>

using namespace slantwise;
using slantwise_fuzz::HostedUnit;

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t lengthAt = 8, wordBytes = 4;

void putWord(Bytes& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < wordBytes; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// Length and checksum as the format has them (unit/UnitState.h).
Bytes putRight(std::span<const std::uint8_t> input) {
    Bytes bytes(input.begin(), input.end());
    if (bytes.size() < lengthAt + 2 * wordBytes) return bytes;
    putWord(bytes, lengthAt, static_cast<std::uint32_t>(bytes.size()));
    std::uint32_t hash = 2166136261U;
    for (const std::uint8_t byte : std::span(bytes).first(bytes.size() - wordBytes))
        hash = (hash ^ byte) * 16777619U;
    putWord(bytes, bytes.size() - wordBytes, hash);
    return bytes;
}

void restoreAndUse(HostedUnit& host, std::span<const std::uint8_t> bytes) {
    if (!host.restore(bytes)) return;
    host.play(64, 0.5F);
    host.frame();
    host.checkAtRest();
    host.ui().presetBar()->ab().tap(); // the other side comes from the state too
    host.checkAtRest();
    host.closeEditor();
    host.openEditor();
    host.wait(1);
    host.checkAtRest();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HostedUnit host;
    host.openEditor();
    host.wait(1);
    restoreAndUse(host, {data, size});
    restoreAndUse(host, putRight({data, size}));
    return 0;
}
