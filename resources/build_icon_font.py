#!/usr/bin/python3
"""Builds fonts/QVM-Icons-Regular.otf from the drawings in icons/.

Needs the Debian packages python3-fontforge and fonts-roboto-unhinted. The font is committed, so a build of the
program does not run this script; run it after changing a drawing. The same drawings give the same bytes.

A drawing is an SVG file named CODEPOINT-meaning.svg. The view box is one em high (1000 units, baseline 200 above its
lower edge) and as wide as the glyph's advance. Understood are <path> (absolute M L H V C Q A Z), <circle> and <text>
with fill, stroke and stroke-width; ends and joins of strokes are round unless the element says otherwise.
"""

import os
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

os.environ["SOURCE_DATE_EPOCH"] = "1704067200"  # the font's time stamps: fixed, or no two builds would be alike
import fontforge

from outlines import FontOutlines, draw_path, roboto

HERE = Path(__file__).resolve().parent
FAMILY, NAME = "QVM Icons", "QVM-Icons-Regular"
EM, ASCENT, DESCENT = 1000, 800, 200
TEXT_FONTS = {"Roboto Condensed": "RobotoCondensed-Bold.ttf", "Roboto": "Roboto-Medium.ttf"}
SVG = "{http://www.w3.org/2000/svg}"


class FlippedPen:
    """Hands drawing-space points (y down from the em's top) to a font pen (y up from the baseline)."""

    def __init__(self, pen):
        self.pen = pen

    def moveTo(self, p):
        self.pen.moveTo(self._flip(p))

    def lineTo(self, p):
        self.pen.lineTo(self._flip(p))

    def curveTo(self, a, b, c):
        self.pen.curveTo(self._flip(a), self._flip(b), self._flip(c))

    def closePath(self):
        self.pen.closePath()

    def endPath(self):
        self.pen.endPath()

    @staticmethod
    def _flip(p):
        return (p[0], ASCENT - p[1])


def circle_path(element):
    x, y, r = (float(element.get(key)) for key in ("cx", "cy", "r"))
    return f"M {x - r} {y} A {r} {r} 0 0 1 {x + r} {y} A {r} {r} 0 0 1 {x - r} {y} Z"


def draw_text(scratch, element, texts):
    """The words of a <text> element, centred on its x, from the letters of the family it names."""
    font = texts.setdefault(element.get("font-family"), FontOutlines(roboto(TEXT_FONTS[element.get("font-family")])))
    size, spacing = float(element.get("font-size")), float(element.get("letter-spacing", 0))
    width = font.width(element.text, size, spacing)
    assert element.get("text-anchor") == "middle"
    pen = FlippedPen(scratch.glyphPen(replace=False))
    font.draw(pen, element.text, size, float(element.get("x")) - width / 2, float(element.get("y")), spacing)


def outline_of(font, element, texts):
    """One element of a drawing as a layer of filled outlines."""
    scratch = font.createChar(-1, "scratch")
    scratch.clear()
    if element.tag == SVG + "text":
        draw_text(scratch, element, texts)
        filled = scratch.foreground
        filled.removeOverlap()
        scratch.clear()
        return filled
    path = circle_path(element) if element.tag == SVG + "circle" else element.get("d")
    draw_path(FlippedPen(scratch.glyphPen(replace=False)), path)
    drawn = scratch.foreground
    result = fontforge.layer()
    if element.get("fill", "none") != "none":
        filled = drawn.dup()
        filled.correctDirection()
        result += filled
    if element.get("stroke", "none") != "none":
        stroked = drawn.dup()
        stroked.stroke("circular", float(element.get("stroke-width")), cap=element.get("stroke-linecap", "round"),
                       join=element.get("stroke-linejoin", "round"))
        result += stroked
    scratch.clear()
    return result


def add_drawing(font, path, texts):
    """The glyph of one drawing; its code point comes from the file's name, its advance from the view box."""
    code, meaning = path.stem.split("-", 1)
    root = ElementTree.parse(path).getroot()
    left, top, advance, height = (float(v) for v in root.get("viewBox").split())
    if (left, top, height) != (0, 0, EM):
        sys.exit(f"{path.name}: the view box must be '0 0 ADVANCE {EM}'")
    layer = fontforge.layer()
    for element in root:
        if element.tag != SVG + "title":
            layer += outline_of(font, element, texts)
    glyph = font.createChar(int(code, 16), "icon." + meaning.replace("-", "_"))
    glyph.foreground = layer
    glyph.removeOverlap()
    glyph.simplify(0.8, ("mergelines", "smoothcurves", "setstarttoextremum"))
    glyph.addExtrema("all")
    glyph.round()
    glyph.correctDirection()
    glyph.width = round(advance)  # last: drawing resets it
    box = glyph.boundingBox()
    if not layer or box[0] < 0 or box[2] > advance or box[1] < -DESCENT or box[3] > ASCENT:
        sys.exit(f"{path.name}: the drawing is empty or reaches outside its view box: {box}")
    return glyph


def add_plain_glyphs(font):
    space = font.createChar(0x20, "space")
    space.width = 250
    missing = font.createChar(-1, ".notdef")
    draw_path(FlippedPen(missing.glyphPen()), "M 120 100 H 680 V 800 H 120 Z M 190 170 V 730 H 610 V 170 Z")
    missing.correctDirection()
    missing.width = 800


def main():
    font = fontforge.font()
    font.em = EM
    font.ascent, font.descent = ASCENT, DESCENT
    font.encoding = "UnicodeFull"
    font.familyname, font.fontname, font.fullname, font.weight = FAMILY, NAME, FAMILY + " Regular", "Regular"
    font.version = "2.0"
    font.copyright = "The Slantwise authors. Unit glyphs: letters of Roboto Condensed, Copyright Google, Apache License 2.0."
    font.appendSFNTName("English (US)", "UniqueID", NAME + " 2.0")
    # One ascent and one descent in every table that a rasteriser may read, summing to the em: a size is then the same
    # whether it is counted by the em or by the line.
    for table in ("hhea_", "os2_win", "os2_typo"):
        setattr(font, table + "ascent_add", 0)
        setattr(font, table + "descent_add", 0)
        setattr(font, table + "ascent", ASCENT)
        setattr(font, table + "descent", DESCENT if table == "os2_win" else -DESCENT)
    font.hhea_linegap = font.os2_typolinegap = 0
    add_plain_glyphs(font)
    texts = {}
    drawings = sorted((HERE / "icons").glob("*.svg"))
    for path in drawings:
        add_drawing(font, path, texts)
    font.removeGlyph("scratch")
    target = HERE / "fonts" / (NAME + ".otf")
    font.generate(str(target), flags=("opentype", "no-FFTM-table", "no-hints"))
    print(f"{target.name}: {len(drawings)} drawings, {target.stat().st_size} bytes")


if __name__ == "__main__":
    main()
