// The colours that a theme's few named ones do not reach: one table for each theme, so that controls and editor agree
// and a change of look is a change of one file.
#pragma once

#include "theme/Colors.h"

namespace QVM_NAMESPACE {

// All opaque unless a comment says otherwise. Every text stands out by at least 4.5 to 1 from what it is written on.
struct QVMPalette {
    // Surfaces.
    Color sidePanel;       // preset bar, output clump and the head of the advanced drawer
    Color drawer;          // of drawers, under their pattern
    Color drawerSelection; // the chosen row in one, whose texts are those of the other theme's ground
    Color trackFill;       // groove of a slider
    Color boxFill;         // box of a number, background of a plain cycle control

    // Lines.
    Color trackBorder; // around a groove
    Color boxBorder;   // around a box
    Color pillBorder;  // around a switch that is off
    Color tick;        // scale marks

    // Texts beside the theme's own.
    Color unit; // beside or under a number
    Color note; // remarks in italics

    // A meter's bars in the groove of a slider, and what tells that they reached full scale.
    Color meterBar;
    Color meterClip;

    // Menus and tooltips.
    Color menu;
    Color menuBorder; // translucent
    Color menuText;
    Color menuHeading; // of a menu; what cannot be chosen is fainter

    // Translucent; laid over whatever the pointer is above.
    Color hover;

    // How much of `shade` lies over the column in the product's colour, so that it is no brighter than the rest.
    float columnShade = 0; // alpha

    // The rest is the same in both themes.

    // Labels as they were drawn, before a theme inverts them.
    Color headingInk = Color::white(0.18f); // clump headings, capitals
    Color labelInk = Color::white(0.34f);   // parameter labels, scale texts

    // On the product's colour and on those of parameters; each use has its own alpha.
    Color onAccent = Color::white(1); // texts and marks
    Color glow = Color::white(1);     // what lights a button up
    Color shade = Color::white(0);    // what darkens: wells, shadows, a handle under the pointer
    // What glyphs are to stand out from while a light is on: nearly the lightest that it makes of the product's colour.
    Color litGround = Color::white(0.65f);

    // The spectrum on the product's colour: quieter than what is drawn over it.
    Color spectrumArea = Color::white(1, 0.15f); // of the output
    Color spectrumEdge = Color::white(1, 0.3f);  // its upper end
    Color spectrumInput = Color::white(1, 0.4f); // the line of the input

    Color menuMark = colorFromHex(0x8E4E55); // under the item that would be chosen, whose text is `onAccent`

    static const QVMPalette& light();
    static const QVMPalette& dark();
};

} // namespace QVM_NAMESPACE
