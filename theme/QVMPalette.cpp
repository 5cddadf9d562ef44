#include "theme/QVMPalette.h"

#include "theme/Colors.h"

namespace QVM_NAMESPACE {

const QVMPalette& QVMPalette::light() {
    static const QVMPalette palette = {
        .sidePanel = colorFromHex(0xF7F5F4),
        .drawer = colorFromHex(0xF7F5F4),
        .drawerSelection = colorFromHex(0x443C3D),
        .trackFill = colorFromHex(0xE3DEDC),
        .boxFill = colorFromHex(0xF1EEEC),
        .trackBorder = colorFromHex(0xD0C8C7),
        .boxBorder = colorFromHex(0xDAD4D2),
        .pillBorder = colorFromHex(0xCFC9C8),
        .tick = colorFromHex(0x9A8F90),
        .unit = colorFromHex(0x635A5B),
        .note = colorFromHex(0x645C5C),
        .meterBar = colorFromHex(0x776C6D),
        .meterClip = colorFromHex(0xD2322D),
        .menu = colorFromHex(0xFCFBFA),
        .menuBorder = Color::white(0, 0.22f),
        .menuText = Color::white(0.1f),
        .menuHeading = colorFromHex(0x6B6162),
        .hover = Color::white(0, 0.05f),
    };
    return palette;
}

const QVMPalette& QVMPalette::dark() {
    static const QVMPalette palette = {
        .sidePanel = colorFromHex(0x151314),
        .drawer = colorFromHex(0x151314),
        .drawerSelection = colorFromHex(0xCFC6C6),
        .trackFill = colorFromHex(0x2C2728),
        .boxFill = colorFromHex(0x2C2728),
        .trackBorder = colorFromHex(0x423D3E),
        .boxBorder = colorFromHex(0x423D3E),
        .pillBorder = colorFromHex(0x4A4547),
        .tick = colorFromHex(0x7A7273),
        .unit = colorFromHex(0xAFA6A7),
        .note = colorFromHex(0xB0A8A9),
        .meterBar = colorFromHex(0xA89FA0),
        .meterClip = colorFromHex(0xFF5B50),
        .menu = colorFromHex(0x2A2526),
        .menuBorder = Color::white(1, 0.22f),
        .menuText = colorFromHex(0xEDE9E8),
        .menuHeading = colorFromHex(0xB0A8A9),
        .hover = Color::white(1, 0.08f),
        .columnShade = 0.34f,
    };
    return palette;
}

} // namespace QVM_NAMESPACE
