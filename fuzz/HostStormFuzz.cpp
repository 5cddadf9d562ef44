// A storm of whatever hosts and users do: values, states, programs, formats, blocks, an editor that comes and goes,
// pointer, keys, menus. Gestures never nest and none is left open, values are finite and in range, what is
// heard is finite, the editor shows what the unit holds, and a step forward undoes a step back.
#include "HostStorm.h"

#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int mostSteps = 300;
    slantwise_fuzz::HostedUnit host;
    slantwise_fuzz::HostStorm storm(host);
    slantwise_fuzz::ByteSource in({data, size});
    host.openEditor();
    host.wait(1);
    for (int i = 0; i < mostSteps && !in.isEmpty(); ++i)
        storm.step(in);
    return 0;
}
