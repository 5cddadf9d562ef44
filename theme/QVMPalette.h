// The colours of surfaces, lines and texts that a theme's few named colours do not reach: one table for each theme, so
// that controls and editor agree and a change of look is a change of one file.
#pragma once

#include "platform/Color.h"

namespace QVM_NAMESPACE {

// All opaque unless a comment says otherwise. Every text colour stands out from every surface by at least 4.5 to 1.
struct QVMPalette {
    // Surfaces.
    Color panel;           // under the ordinary clumps
    Color sidePanel;       // preset bar, output clump and advanced drawer
    Color drawer;          // presets drawer
    Color drawerSelection; // the chosen row in it
    Color trackFill;       // groove of a slider
    Color boxFill;         // box of a number, background of a plain cycle control

    // Lines.
    Color divider;     // between clumps
    Color trackBorder; // around a groove
    Color boxBorder;   // around a box
    Color pillBorder;  // around a switch that is off
    Color tick;        // scale marks

    // Texts.
    Color heading; // clump headings, capitals
    Color label;   // parameter labels, scale texts
    Color value;   // numbers and names
    Color unit;    // units beside or under them
    Color note;    // remarks in italics

    // Tool glyphs on the side panel; faded by opacity when there is nothing to do.
    Color symbol;
    // What the meter's translucent bars shade their groove with.
    Color meterInk;

    // Text and marks on an accent colour, the same in both themes.
    Color onAccent = Color::white(1);
    // Translucent; laid over whatever the pointer is above.
    Color hover;

    static const QVMPalette& light();
    static const QVMPalette& dark();
};

} // namespace QVM_NAMESPACE
