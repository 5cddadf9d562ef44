// What the X server keeps for this process: windows, pictures, colour maps and whatever else it counts.
#pragma once

namespace slantwise_tests {

// All of it, over all connections of the process. Zero without a server.
long serverResources();

} // namespace slantwise_tests
