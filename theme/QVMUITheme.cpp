#include "theme/QVMUITheme.h"

#include "platform/layer/TextMetrics.h"
#include "platform/runloop/NotificationCenter.h"
#include "platform/system/Log.h"
#include "platform/view/Window.h"
#include "resources/BundleResources.h"

#include <array>
#include <set>

namespace QVM_NAMESPACE {

namespace {

constexpr const char* kIconFace = "QVM-Icons-Regular";
constexpr const char* kValueFace = "HelveticaNeue-Medium";
constexpr const char* kUnitFace = "HelveticaNeue-CondensedBold";
constexpr const char* kItalicFace = "HelveticaNeue-Italic";
// No face by that name exists: every adapter falls back to the desktop's own for it.
constexpr const char* kSystemFace = "System";
constexpr double kThemeIconSize = 22;
constexpr double kCachedUnitSize = 12;

// Looking a face up can mean a walk over the installed fonts, so those that nearly every control asks for are kept,
// for as long as the measurement that found them is in force.
struct CachedFonts {
    const TextMetrics* foundBy = nullptr;
    std::array<Font, 3> values;
    Font unit;
};

const CachedFonts& cachedFonts() {
    static CachedFonts fonts;
    if (fonts.foundBy != &TextMetrics::current()) {
        const auto value = [](double size) { return QVMUITheme::safeFontWithNameSize(kValueFace, size); };
        fonts = {&TextMetrics::current(),
                 {value(10), value(14), value(16)},
                 QVMUITheme::safeFontWithNameSize(kUnitFace, kCachedUnitSize)};
    }
    return fonts;
}

std::shared_ptr<const Image> pngNamed(const char* name) {
    return Image::fromPng(BundleResources::current().find(name, "png"));
}

} // namespace

Font ExternalFontNamed(const std::string& name, double size) {
    if (!BundleResources::current().find(name, "otf").empty()) return {name, size};
    static std::set<std::string> reported; // every glyph asks anew, one line is enough
    if (reported.insert(name).second) logLine("the font \"" + name + "\" is not among the resources");
    return QVMUITheme::safeFontWithNameSize(kValueFace, size);
}

const QVMUITheme& QVMUITheme::light() {
    static const QVMUITheme theme = {
        .textColor = Color::white(0.1f),
        .subtleTextColor = Color::white(0.75f),
        .symbolColor = Color::white(0.2f),
        .backgroundColor = Color::white(1),
        .backgroundPattern = pngNamed("noised-ottoman"),
        .interiorBorderColor = Color::white(0, 0.2f),
        .useSpecifiedForeground = true,
        .invertLabels = false,
        .iconFont = iconFontOfSize(kThemeIconSize),
        .palette = QVMPalette::light(),
    };
    return theme;
}

const QVMUITheme& QVMUITheme::dark() {
    static const QVMUITheme theme = {
        .textColor = Color::white(1),
        .subtleTextColor = Color::white(0.2f),
        .symbolColor = Color::white(0.5f),
        .backgroundColor = Color::white(0),
        .backgroundPattern = pngNamed("noise_dark"),
        .interiorBorderColor = Color::white(1, 0.3f),
        .useSpecifiedForeground = true,
        .invertLabels = true,
        .iconFont = iconFontOfSize(kThemeIconSize),
        .palette = QVMPalette::dark(),
    };
    return theme;
}

const QVMUITheme*& QVMUITheme::current() {
    static const QVMUITheme* theme = &light();
    return theme;
}

const QVMUITheme& QVMUITheme::theme() {
    cachedFonts();
    return *current();
}

const QVMUITheme& QVMUITheme::toggleThemeForWindow(Window* window) {
    current() = current() == &dark() ? &light() : &dark();
    NotificationCenter::defaultCenter().post(updatedNotification, window);
    return theme();
}

Font QVMUITheme::safeFontWithNameSize(const std::string& name, double size) {
    return {TextMetrics::current().hasFace(name) ? name : kSystemFace, size};
}

Font QVMUITheme::iconFontOfSize(double size) {
    return ExternalFontNamed(kIconFace, size);
}

Font QVMUITheme::unitFontOfSize(double size) {
    return size == kCachedUnitSize ? cachedFonts().unit : safeFontWithNameSize(kUnitFace, size);
}

Font QVMUITheme::italicFontOfSize(double size) {
    return safeFontWithNameSize(kItalicFace, size);
}

Font QVMUITheme::appropriateFontForValueSizeIconSize(const std::string& value, double size, double iconSize) {
    if (!isAscii(value)) return iconFontOfSize(iconSize == 0 ? size : iconSize);
    for (const Font& cached : cachedFonts().values) {
        if (cached.pointSize == size) return cached;
    }
    return safeFontWithNameSize(kValueFace, size);
}

Pattern QVMUITheme::newBackgroundPattern() {
    return Image::fromJpeg(BundleResources::current().find("noised-ottoman-single-res", "jpg"));
}

std::shared_ptr<const Image> QVMUITheme::staticBackgroundImage() {
    return pngNamed("screenshot");
}

} // namespace QVM_NAMESPACE
