// The window that a plug-in draws into, found from outside, and a real pointer over it.
#pragma once

#include "bench/hosted/probe/ScreenFile.h"

#include <optional>

struct _XDisplay;

namespace slantwise_bench {

class HostWindow {
public:
    // Connects to the display that DISPLAY names; throws std::runtime_error when there is none. Nobody sees the pointer
    // as long as this lives.
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    // Where the last window that the window manager knows has its largest part: the deepest window in it that fills
    // most of the one around it. Absent while there is none.
    std::optional<Area> findPluginArea();

    void movePointer(int x, int y);
    void button(int number, bool down);

    // From here on the server tells of all that is drawn into that window.
    void watchDrawing();
    // Waits for something drawn, for so long at most, and takes all that has been told.
    bool waitForDrawing(double seconds);

private:
    unsigned long lastClient();

    _XDisplay* display_;
    unsigned long window_ = 0; // found last
};

} // namespace slantwise_bench
