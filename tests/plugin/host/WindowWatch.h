// Watches what becomes of the windows of one title: which sizes they have when they are mapped, and when the window
// manager takes one.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct _XDisplay;

namespace slantwise_tests {

class WindowWatch {
public:
    using Size = std::pair<int, int>;

    // Those that are created from now on. Connects to the display that DISPLAY names.
    explicit WindowWatch(std::string title);
    ~WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;

    // Called when the window manager has put a frame around a window.
    std::function<void()> wasFramed;

    // Takes in what has happened up to now.
    void look();
    // Whether there is such a window, seen or not.
    bool isThere();
    // The sizes with which windows have been mapped, in order.
    const std::vector<Size>& mapped() const { return mapped_; }
    // The sizes that the mapped windows have now.
    std::vector<Size> present();

private:
    void adopt(unsigned long window);
    bool isMeant(unsigned long window);
    Size sizeOf(unsigned long window);

    const std::string title_;
    _XDisplay* display_ = nullptr;
    std::map<unsigned long, Size> sizes_; // of all windows since
    std::vector<Size> mapped_;
};

} // namespace slantwise_tests
