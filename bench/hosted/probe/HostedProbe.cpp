// Measures a plug-in in a host, on a display whose server keeps its screen in a file:
// bench_hosted_probe open SCREEN RUNS COMMAND...
// bench_hosted_probe run SCREEN SECONDS HANDLE SPECTRUM COMMAND...
//
// open: milliseconds from the host's start to the plug-in's picture, and those of them that the host's process worked;
// a line for each run. run: one line: private kilobytes of the host, then percent of a core and new pictures a second
// while nothing happens, while noise plays, with the spectrum, and while a handle is dragged with the pointer at 100
// Hz; at last milliseconds from a movement of the pointer to a new picture. HANDLE is "x,y,dx,dy" and SPECTRUM the
// clicks that switch it on, "x,y" or "3@x,y" with the right button, "/" between them; pixels from the corner of the
// plug-in's window, or "-": what is not there is "-" in the line. Needs a JACK server; what the host says is in
// host.log of the working folder.
#include "bench/hosted/probe/Opening.h"
#include "bench/hosted/probe/Running.h"

#include <cstdio>
#include <exception>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace slantwise_bench;

std::vector<Click> clicksOf(const std::string& text) {
    std::vector<Click> clicks;
    if (text == "-") return clicks;
    std::istringstream in(text);
    for (std::string each; std::getline(in, each, '/');) {
        Click click;
        const bool hasButton = each.find('@') != std::string::npos;
        const char* const place = each.c_str() + (hasButton ? 2 : 0);
        if (hasButton) click.button = each[0] - '0';
        if (std::sscanf(place, "%d,%d", &click.at.x, &click.at.y) != 2) throw std::runtime_error("no click: " + each);
        clicks.push_back(click);
    }
    return clicks;
}

std::optional<Handle> handleOf(const std::string& text) {
    Handle handle;
    if (text == "-") return std::nullopt;
    if (std::sscanf(text.c_str(), "%d,%d,%d,%d", &handle.at.x, &handle.at.y, &handle.reach.x, &handle.reach.y) != 4)
        throw std::runtime_error("no handle: " + text);
    return handle;
}

void print(const std::optional<Load>& load) {
    if (load)
        std::printf(" %.3f %.1f", load->corePercent, load->picturesPerSecond);
    else
        std::printf(" - -");
}

void open(const ScreenFile& screen, int runs, const std::vector<std::string>& command) {
    const Look look = learnLook(command, screen);
    for (int i = 0; i < runs; ++i) {
        const Opening opening = measureOpening(command, screen, look);
        std::printf("%.1f %.1f\n", opening.milliseconds, opening.workedMilliseconds);
    }
}

void run(const ScreenFile& screen, double seconds, const std::string& handle, const std::string& spectrum,
         const std::vector<std::string>& command) {
    const Running running = measureRunning(command, screen, seconds, handleOf(handle), clicksOf(spectrum));
    std::printf("%ld", running.privateKilobytes);
    print(running.idle);
    print(running.playing);
    print(running.spectrum);
    print(running.dragging);
    if (running.pointerToPixelMs)
        std::printf(" %.1f\n", *running.pointerToPixelMs);
    else
        std::printf(" -\n");
}

} // namespace

int main(int argumentCount, char* argumentValues[]) {
    const std::vector<std::string> arguments(argumentValues + 1, argumentValues + argumentCount);
    const bool opens = arguments.size() > 3 && arguments[0] == "open",
               runs = arguments.size() > 5 && arguments[0] == "run";
    if (!opens && !runs)
        return std::fputs("usage: bench_hosted_probe open SCREEN RUNS COMMAND...\n"
                          "       bench_hosted_probe run SCREEN SECONDS HANDLE SPECTRUM COMMAND...\n",
                          stderr),
               2;
    try {
        const ScreenFile screen(arguments[1]);
        if (opens)
            open(screen, std::stoi(arguments[2]), {arguments.begin() + 3, arguments.end()});
        else
            run(screen, std::stod(arguments[2]), arguments[3], arguments[4], {arguments.begin() + 5, arguments.end()});
    } catch (const std::exception& error) {
        return std::fprintf(stderr, "bench_hosted_probe: %s\n", error.what()), 1;
    }
    return 0;
}
