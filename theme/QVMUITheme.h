// The one object all drawing takes its colours, background pattern and fonts from.
//
// Two fixed themes exist, light and dark; which of them is current is shared by every editor of the process. Views that
// draw with the theme observe `updatedNotification`, whatever window it names, and draw again. Main thread only.
#pragma once

#include "platform/layer/Font.h"
#include "platform/surface/Color.h"
#include "platform/surface/Image.h"
#include "theme/Colors.h"
#include "theme/QVMPalette.h"

#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class Window;
class ScopedTheme;

// A picture that fills a layer by repetition, one image pixel a point; null where the picture is missing.
using Pattern = std::shared_ptr<const Image>;

// The font whose file `name`.otf is among the plug-in's own resources, without registering it anywhere; the value font
// of that size, and one log line, when there is no such file.
Font ExternalFontNamed(const std::string& name, double size);

class QVMUITheme {
public:
    // Posted with the window as its object after the current theme has changed.
    static constexpr const char* updatedNotification = "QVMUIThemeUpdatedNotification";

    // The two themes, made on first use; they never change and live as long as the process.
    static const QVMUITheme& light();
    static const QVMUITheme& dark();
    // The current one, at first the light one.
    static const QVMUITheme& theme();
    static bool isDark() { return &theme() == &dark(); }
    // Makes the other theme current, posts the notification and returns the new current theme. The window is only a
    // name to post under and may be null.
    static const QVMUITheme& toggleThemeForWindow(Window* window);

    // The named font, or the system font of that size where no such face is found. Sizes are in points.
    static Font safeFontWithNameSize(const std::string& name, double size);
    static Font iconFontOfSize(double size);
    static Font unitFontOfSize(double size);
    static Font italicFontOfSize(double size);
    // For text that is plain ASCII the value font at `size`; for any other, which is glyphs, the icon font at
    // `iconSize`, or at `size` where that is 0.
    static Font appropriateFontForValueSizeIconSize(const std::string& value, double size, double iconSize);

    // The pattern and the picture that belong to no theme.
    static Pattern newBackgroundPattern();
    static std::shared_ptr<const Image> staticBackgroundImage();

    // A control's own colour, or the text colour in a theme that does not let controls bring theirs.
    Color foregroundGivenSpecified(Color specified) const { return useSpecifiedForeground ? specified : textColor; }
    // What a label shows that was drawn in `ink`.
    Color labelColorGivenInk(Color ink) const { return invertLabels ? ink.inverted() : ink; }

    Color textColor;           // values and names
    Color subtleTextColor;     // what stands beside the chosen name, on a ground of the other theme's kind
    Color symbolColor;         // glyphs
    Color backgroundColor;     // the ground under the controls
    Pattern backgroundPattern; // of drawers
    Color interiorBorderColor; // dividers; translucent
    bool useSpecifiedForeground = true;
    bool invertLabels = false;
    Font iconFont;      // 22 points
    QVMPalette palette; // what the above leave open

private:
    friend class ScopedTheme;
    static const QVMUITheme*& current();
};

} // namespace QVM_NAMESPACE
