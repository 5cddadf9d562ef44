#include "theme/QVMPalette.h"

#include "theme/Colors.h"

namespace QVM_NAMESPACE {

const QVMPalette& QVMPalette::light() {
    static const QVMPalette palette = {
        .panel = colorFromHex(0xFFFFFF),
        .sidePanel = colorFromHex(0xF7F5F4),
        .drawer = colorFromHex(0xF1EEEC),
        .drawerSelection = colorFromHex(0xE4D5D4),
        .trackFill = colorFromHex(0xE3DEDC),
        .boxFill = colorFromHex(0xF1EEEC),
        .divider = colorFromHex(0xD6D4D3),
        .trackBorder = colorFromHex(0xD0C8C7),
        .boxBorder = colorFromHex(0xDAD4D2),
        .pillBorder = colorFromHex(0xCFC9C8),
        .tick = colorFromHex(0x9A8F90),
        .heading = colorFromHex(0x333333),
        .label = colorFromHex(0x635A5B),
        .value = colorFromHex(0x221F1F),
        .unit = colorFromHex(0x635A5B),
        .note = colorFromHex(0x645C5C),
        .symbol = colorFromHex(0x333333),
        .meterInk = Color::white(0),
        .hover = Color::white(0, 0.05f),
    };
    return palette;
}

const QVMPalette& QVMPalette::dark() {
    static const QVMPalette palette = {
        .panel = colorFromHex(0x151314),
        .sidePanel = colorFromHex(0x1B1819),
        .drawer = colorFromHex(0x211E1F),
        .drawerSelection = colorFromHex(0x4A3538),
        .trackFill = colorFromHex(0x2C2728),
        .boxFill = colorFromHex(0x2C2728),
        .divider = colorFromHex(0x363435),
        .trackBorder = colorFromHex(0x423D3E),
        .boxBorder = colorFromHex(0x423D3E),
        .pillBorder = colorFromHex(0x4A4547),
        .tick = colorFromHex(0x7A7273),
        .heading = colorFromHex(0xB0A8A9),
        .label = colorFromHex(0xACA4A5),
        .value = colorFromHex(0xFAFAFA),
        .unit = colorFromHex(0xAFA6A7),
        .note = colorFromHex(0xB0A8A9),
        .symbol = colorFromHex(0xC9C3C3),
        .meterInk = Color::white(1),
        .hover = Color::white(1, 0.08f),
    };
    return palette;
}

} // namespace QVM_NAMESPACE
