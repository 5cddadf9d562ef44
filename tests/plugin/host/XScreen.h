// The X server of the test: what is on the screen, and a real pointer and keyboard. Coordinates are root pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct _XDisplay;

namespace slantwise_tests {

// A part of the screen as it is now.
struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels; // 0xRRGGBB

    std::size_t distinctColours() const { return std::set(pixels.begin(), pixels.end()).size(); }
    // How many pixels differ from those of an equally large picture.
    std::size_t differingPixels(const Picture& other) const;
    // How many pixels are within `tolerance` of a colour in each channel.
    std::size_t countOf(std::uint32_t colour, int tolerance) const;

    // Pixels from the picture's top left corner.
    struct Box {
        int x = 0, y = 0, width = 0, height = 0;
        bool operator==(const Box&) const = default;
    };
    // The smallest box around what has a colour here and had not in an equally large picture. Rows and columns with few
    // such pixels do not count; absent where no others are.
    std::optional<Box> boxOfNew(std::uint32_t colour, const Picture& before) const;
};

class XScreen {
public:
    // Connects to the display that DISPLAY names; `isOpen` tells whether there is one.
    XScreen();
    ~XScreen();
    XScreen(const XScreen&) = delete;
    XScreen& operator=(const XScreen&) = delete;
    bool isOpen() const { return display_ != nullptr; }

    // The window manager works on the same queue as we do, so what these do is seen a little later.
    void movePointer(int x, int y);
    void button(int number, bool down);
    // Keys by their X names: "Control_L", "Alt_L", "4", "Return".
    void key(const std::string& name, bool down);
    void typeKey(const std::string& name);
    // The window that keys go to.
    unsigned long focus();
    // Whether that window is in another one, or is it.
    bool isFocusIn(unsigned long window);
    // A window of another program, on screen with the focus until this object goes. The window manager does not know
    // it.
    unsigned long showAnotherWindow(int x, int y, int width, int height);
    // Gives the keyboard focus to a window.
    void setFocus(unsigned long window);
    // Takes the keyboard focus away from the window that has it and gives it back at once.
    void blinkFocus();

    // The desktop's resources, in lines as xrdb writes them.
    void setResources(const std::string& lines);

    Picture capture(int x, int y, int width, int height);

    // A visible window of exactly this size, the deepest one, and the window in its line that the window manager put a
    // frame around. Absent while there is none.
    struct Found {
        int x = 0, y = 0;
        unsigned long topLevel = 0;
    };
    std::optional<Found> findWindow(int width, int height);
    int widthOf(unsigned long window);
    // Whether the window manager has any window of a program.
    bool managesWindows();
    // Has the window manager minimise a window, and show it again.
    void minimise(unsigned long topLevel);
    void restore(unsigned long topLevel);
    // Asks a window to close, as its close button does.
    void closeWindow(unsigned long topLevel);

private:
    std::optional<Found> findBelow(unsigned long window, unsigned long topLevel, int width, int height);

    _XDisplay* display_ = nullptr;
};

} // namespace slantwise_tests
