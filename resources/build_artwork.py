#!/usr/bin/python3
"""Draws the product's pictures into images/ and writes description/tables/Artwork.cpp from those of the description.

Needs the Debian packages python3-fontforge, python3-cairo, python3-pil and fonts-roboto-unhinted. Its results are
committed, so a build of the program does not run it; run it after changing what it draws. The same script gives the
same bytes. Sizes are in points times the scale named beside them.
"""

import base64
import io
import random
from pathlib import Path

import cairo
from PIL import Image

from outlines import FontOutlines, draw_path, roboto

HERE = Path(__file__).resolve().parent
IMAGES = HERE / "images"
ARTWORK = HERE.parent / "description" / "tables" / "Artwork.cpp"

PRODUCT_COLOUR = (0xA5, 0x66, 0x6C)
PAPER = (0xF7, 0xF5, 0xF4)
NIGHT = (0x15, 0x13, 0x14)

LABEL_SCALE = 6  # pixels a point: label pictures stay sharp at every interface scale
LETTER_SPACING = 1.5  # points
# Image height and cap height in points. Their difference is twice a whole number, so that at scale 1 the capitals
# begin and end on pixel edges.
HEADING = (15, 9)
LABEL = (13, 7)

# name in the description, picture, words, style
WORDS = (
    ("labelSlope", "label-slope", "SLOPE", LABEL),
    ("labelReso", "label-reso", "RESO", LABEL),
    ("headingTilt", "heading-tilt", "TILT", HEADING),
    ("headingOutput", "heading-output", "OUT", HEADING),
    ("headingFilter", "heading-filter", "FILTER", HEADING),
    ("headingAdvFilter", "heading-adv-filter", "ADV FILTER", HEADING),
)

# The product's mark, a rising tilt curve, in a unit square.
MARK = "M 0.15 0.785 C 0.335 0.785 0.395 0.655 0.5 0.5 C 0.605 0.345 0.665 0.215 0.85 0.215"


class CairoPen:
    """Adds outlines to a context's current path, scaled and moved."""

    def __init__(self, context, scale=1.0, dx=0.0, dy=0.0):
        self.context, self.scale, self.dx, self.dy = context, scale, dx, dy

    def _at(self, *points):
        return [v for x, y in points for v in (x * self.scale + self.dx, y * self.scale + self.dy)]

    def moveTo(self, p):
        self.context.move_to(*self._at(p))

    def lineTo(self, p):
        self.context.line_to(*self._at(p))

    def curveTo(self, a, b, c):
        self.context.curve_to(*self._at(a, b, c))

    def closePath(self):
        self.context.close_path()

    def endPath(self):
        pass


def canvas(width, height):
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)
    context = cairo.Context(surface)
    context.set_antialias(cairo.ANTIALIAS_BEST)
    context.set_line_cap(cairo.LINE_CAP_ROUND)
    context.set_line_join(cairo.LINE_JOIN_ROUND)
    return surface, context


def ink(context, colour, alpha=1.0):
    context.set_source_rgba(*(c / 255 for c in colour), alpha)


def picture(surface):
    """The surface as a picture with straight alpha."""
    packed = io.BytesIO()
    surface.write_to_png(packed)
    packed.seek(0)
    return Image.open(packed).convert("RGBA")


def rounded_square(context, x, y, side, radius):
    draw_path(CairoPen(context),
              f"M {x + radius} {y} H {x + side - radius} A {radius} {radius} 0 0 1 {x + side} {y + radius} "
              f"V {y + side - radius} A {radius} {radius} 0 0 1 {x + side - radius} {y + side} "
              f"H {x + radius} A {radius} {radius} 0 0 1 {x} {y + side - radius} "
              f"V {y + radius} A {radius} {radius} 0 0 1 {x + radius} {y} Z")


def stamp(pixels, margin, radius, width, ground, mark):
    """The mark on a rounded square: the logo, and with the colours exchanged the program's icon."""
    surface, context = canvas(pixels, pixels)
    side = pixels - 2 * margin
    rounded_square(context, margin, margin, side, radius)
    ink(context, ground)
    context.fill()
    draw_path(CairoPen(context, side, margin, margin), MARK)
    ink(context, mark)
    context.set_line_width(width)
    context.stroke()
    return picture(surface)


def words(font, text, style):
    """Letter-spaced capitals, black on transparent, cropped to the text's ink at both sides."""
    height, cap_height = style
    size = cap_height / font.cap_height(1)
    left, right = font.side_bearings(text, size)
    width = font.width(text, size, LETTER_SPACING) - left - right
    surface, context = canvas(round(width * LABEL_SCALE + 0.499), height * LABEL_SCALE)
    baseline = (height + cap_height) / 2
    font.draw(CairoPen(context, LABEL_SCALE), text, size, -left, baseline, LETTER_SPACING)
    ink(context, (0, 0, 0))
    context.fill()
    return picture(surface)


def advanced_banner():
    """200 x 30 points: a family of filter slopes that fades out toward the heading at the left and ends inside."""
    surface, context = canvas(200 * LABEL_SCALE, 30 * LABEL_SCALE)
    context.scale(LABEL_SCALE, LABEL_SCALE)
    context.set_line_width(1.25)
    context.push_group()
    for i, steepness in enumerate((26, 19, 12)):
        ink(context, (0, 0, 0), 0.14 + 0.10 * i)
        low, high = 110 + i * 3, 176 - i * 3
        draw_path(CairoPen(context),
                  f"M {low - steepness / 2} 26 C {low + steepness * 0.2} 26 {low} 8 {low + steepness} 8 "
                  f"H {high - steepness} C {high} 8 {high - steepness * 0.2} 26 {high + steepness / 2} 26")
        context.stroke()
    drawn = context.pop_group()
    fade = cairo.LinearGradient(90, 0, 200, 0)
    for position, alpha in ((0, 0), (0.35, 1), (1, 1)):
        fade.add_color_stop_rgba(position, 0, 0, 0, alpha)
    context.set_source(drawn)
    context.mask(fade)
    return picture(surface)


def noise_tile(side, ground, rib, grain, seed):
    """A seamless woven ground: faint ribs four pixels apart under an even grain."""
    numbers = random.Random(seed)
    tile = Image.new("RGB", (side, side))
    for y in range(side):
        for x in range(side):
            level = (rib if y % 4 < 2 else -rib) + numbers.gauss(0.0, grain)
            tile.putpixel((x, y), tuple(max(0, min(255, round(c + level))) for c in ground))
    return tile


def static_background():
    """A quiet picture of the response: grid lines and the mark's curve on paper."""
    width, height = 240, 160
    surface, context = canvas(width, height)
    ink(context, PAPER)
    context.paint()
    context.set_line_width(1)
    for x in range(40, width, 40):
        draw_path(CairoPen(context), f"M {x + 0.5} 0 V {height}")
    for y in range(40, height, 40):
        draw_path(CairoPen(context), f"M 0 {y + 0.5} H {width}")
    ink(context, (0, 0, 0), 0.05)
    context.stroke()
    draw_path(CairoPen(context), f"M -10 112 H 40 C 100 112 140 48 200 48 H {width + 10}")
    ink(context, PRODUCT_COLOUR, 0.55)
    context.set_line_width(3)
    context.stroke()
    return picture(surface).convert("RGB")


def save(image, name):
    path = IMAGES / name
    if path.suffix == ".jpg":
        image.save(path, quality=95, subsampling=0)
    else:
        image.save(path, optimize=True)
    print(f"{name}: {image.width} x {image.height}, {path.stat().st_size} bytes")
    return path


def write_artwork(pictures):
    """The description's pictures as base64 text in C++ source."""
    lines = ["// Written by resources/build_artwork.py from the pictures it draws; change the script, not this file.", "",
             '#include "description/tables/Artwork.h"', "", "// clang-format off",
             "namespace QVM_NAMESPACE {", "namespace artwork {"]
    for name, path in pictures:
        text = base64.b64encode(path.read_bytes()).decode()
        lines += ["", f"const char* const {name} ="]
        lines += [f'    "{text[i:i + 112]}"' for i in range(0, len(text), 112)]
        lines[-1] += ";"
    lines += ["", "} // namespace artwork", "} // namespace QVM_NAMESPACE", "// clang-format on", ""]
    ARTWORK.parent.mkdir(parents=True, exist_ok=True)
    ARTWORK.write_text("\n".join(lines))


def main():
    IMAGES.mkdir(exist_ok=True)
    condensed = FontOutlines(roboto("RobotoCondensed-Bold.ttf"))
    logo = save(stamp(120, 10, 14, 10.5, PAPER, PRODUCT_COLOUR), "logo.png")
    banner = save(advanced_banner(), "adv-banner.png")
    described = [("logo", logo), ("advBanner", banner)]
    described += [(name, save(words(condensed, text, style), file + ".png")) for name, file, text, style in WORDS]
    write_artwork(described)
    save(stamp(256, 12, 52, 24, PRODUCT_COLOUR, PAPER), "app-icon.png")
    save(noise_tile(128, PAPER, 0.45, 0.7, 15), "noised-ottoman.png")
    save(noise_tile(64, PAPER, 0.45, 0.7, 16), "noised-ottoman-single-res.jpg")
    save(noise_tile(128, NIGHT, 0.45, 0.8, 17), "noise_dark.png")
    save(static_background(), "screenshot.png")


if __name__ == "__main__":
    main()
