#include "bench/hosted/probe/Opening.h"

#include "bench/hosted/probe/HostProcess.h"
#include "bench/hosted/probe/HostWindow.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <stdexcept>
#include <thread>

namespace slantwise_bench {

namespace {

constexpr double patience = 20; // seconds, until there must be a picture
constexpr double enough = 0.8;  // of the picture
constexpr const char* log = "host.log";

void pause(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

std::uint32_t commonest(const Pixels& pixels) {
    std::map<std::uint32_t, std::size_t> counts;
    for (const std::uint32_t pixel : pixels)
        ++counts[pixel];
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? 0 : most->first;
}

} // namespace

double Look::shareIn(const Pixels& other) const {
    if (other.size() != pixels.size()) return 0;
    std::size_t drawn = 0, equal = 0;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        drawn += pixels[i] != ground;
        equal += pixels[i] != ground && pixels[i] == other[i];
    }
    return drawn == 0 ? 0 : static_cast<double>(equal) / static_cast<double>(drawn);
}

Look learnLook(const std::vector<std::string>& command, const ScreenFile& screen) {
    const HostProcess host(command, log);
    HostWindow window;
    window.movePointer(0, 0); // what rests over a control may have its tip shown
    Look look;
    for (int rest = 0; rest < 10; ++rest) {
        pause(0.1);
        const Area area = window.findPluginArea().value_or(Area());
        Pixels pixels = screen.read(area, Look::step);
        // Of a picture that keeps moving anything will do once it is there for long.
        if (area.isEmpty() || area != look.area || (pixels != look.pixels && nowSeconds() < host.startedAt() + 6))
            rest = 0;
        look = {area, std::move(pixels), 0};
        if (nowSeconds() > host.startedAt() + patience || !host.isRunning())
            throw std::runtime_error("no picture from " + command.back());
    }
    look.ground = commonest(look.pixels);
    return look;
}

namespace {

// Until what was there before is gone, and whoever took it away is at rest.
void awaitGround(const ScreenFile& screen, const Look& look) {
    while (look.shareIn(screen.read(look.area, Look::step)) > 1 - enough)
        pause(0.02);
    pause(0.3);
}

} // namespace

Opening measureOpening(const std::vector<std::string>& command, const ScreenFile& screen, const Look& look) {
    awaitGround(screen, look);
    HostWindow().movePointer(0, 0);
    const HostProcess host(command, log);
    while (look.shareIn(screen.read(look.area, Look::step)) < enough) {
        pause(0.0005);
        if (nowSeconds() > host.startedAt() + patience) throw std::runtime_error("no picture from " + command.back());
    }
    const double end = nowSeconds();
    return {1000 * (end - host.startedAt()), 1000 * host.workedSeconds()};
}

} // namespace slantwise_bench
