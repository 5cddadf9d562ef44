// The window of the trivial plug-in: stripes that the X server draws by itself, so that nothing is left to do here.
#include <lv2/ui/ui.h>

#include <X11/Xlib.h>

#include <cstring>

namespace {

constexpr unsigned width = 480, height = 320; // pixels, as large as the editor
constexpr unsigned stripe = 8;

struct Stripes {
    Display* display = nullptr;
    Window window = 0;
};

// One stripe dark, one light.
Pixmap makePattern(Display* display, Window window) {
    const int screen = DefaultScreen(display);
    const Pixmap pattern =
        XCreatePixmap(display, window, 2 * stripe, stripe, static_cast<unsigned>(DefaultDepth(display, screen)));
    const GC context = XCreateGC(display, pattern, 0, nullptr);
    XSetForeground(display, context, BlackPixel(display, screen));
    XFillRectangle(display, pattern, context, 0, 0, stripe, stripe);
    XSetForeground(display, context, WhitePixel(display, screen));
    XFillRectangle(display, pattern, context, stripe, 0, stripe, stripe);
    XFreeGC(display, context);
    return pattern;
}

LV2UI_Handle instantiate(const LV2UI_Descriptor*, const char*, const char*, LV2UI_Write_Function, LV2UI_Controller,
                         LV2UI_Widget* widget, const LV2_Feature* const* features) {
    Window parent = 0;
    const LV2UI_Resize* resize = nullptr;
    for (; *features; ++features) {
        if (std::strcmp((*features)->URI, LV2_UI__parent) == 0) parent = reinterpret_cast<Window>((*features)->data);
        if (std::strcmp((*features)->URI, LV2_UI__resize) == 0)
            resize = static_cast<const LV2UI_Resize*>((*features)->data);
    }
    auto* const stripes = new Stripes;
    stripes->display = XOpenDisplay(nullptr);
    stripes->window = XCreateSimpleWindow(stripes->display, parent, 0, 0, width, height, 0, 0, 0);
    const Pixmap pattern = makePattern(stripes->display, stripes->window);
    XSetWindowBackgroundPixmap(stripes->display, stripes->window, pattern);
    XFreePixmap(stripes->display, pattern);
    if (resize) resize->ui_resize(resize->handle, width, height);
    XMapWindow(stripes->display, stripes->window);
    XFlush(stripes->display);
    *widget = reinterpret_cast<LV2UI_Widget>(stripes->window);
    return stripes;
}

void cleanup(LV2UI_Handle handle) {
    auto* const stripes = static_cast<Stripes*>(handle);
    XDestroyWindow(stripes->display, stripes->window);
    XCloseDisplay(stripes->display);
    delete stripes;
}

void portEvent(LV2UI_Handle, uint32_t, uint32_t, uint32_t, const void*) {}

constexpr LV2UI_Descriptor descriptor = {"https://ferrowind.example/bench/trivial#window", &instantiate, &cleanup,
                                         &portEvent, nullptr};

} // namespace

LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(uint32_t index) {
    return index == 0 ? &descriptor : nullptr;
}
