"""Outlines shared by the artwork scripts: SVG path text, and the letters of the type family, drawn with a pen.

A pen here is anything with moveTo(p), lineTo(p), curveTo(a, b, c), closePath() and endPath(); points are in drawing
space, y down.
"""

import math
import re
import sys
from pathlib import Path

import fontforge

ROBOTO_FOLDERS = ("/usr/share/fonts/truetype/roboto/unhinted", "/usr/share/fonts/truetype/roboto/unhinted/RobotoTTF")


def roboto(file_name):
    """The path of one face of the family, as the Debian package fonts-roboto-unhinted installs it."""
    for folder in ROBOTO_FOLDERS:
        if (Path(folder) / file_name).exists():
            return str(Path(folder) / file_name)
    sys.exit(f"{file_name} is missing: install the package fonts-roboto-unhinted")


def quadratic(pen, start, control, end):
    """A quadratic curve as the cubic one with the same shape."""
    toward = lambda a: (a[0] + (control[0] - a[0]) * 2 / 3, a[1] + (control[1] - a[1]) * 2 / 3)
    pen.curveTo(toward(start), toward(end), end)


def arc(pen, start, radius, large, sweep, end):
    """A circular arc as cubic curves of at most a quarter turn each."""
    dx, dy = (start[0] - end[0]) / 2, (start[1] - end[1]) / 2
    half = math.hypot(dx, dy)
    radius = max(radius, half)
    offset = math.sqrt(max(radius * radius - half * half, 0)) * (-1 if large == sweep else 1)
    cx = (start[0] + end[0]) / 2 + offset * dy / half
    cy = (start[1] + end[1]) / 2 - offset * dx / half
    first = math.atan2(start[1] - cy, start[0] - cx)
    turn = math.atan2(end[1] - cy, end[0] - cx) - first
    if sweep and turn < 0:
        turn += 2 * math.pi
    if not sweep and turn > 0:
        turn -= 2 * math.pi
    count = max(1, math.ceil(abs(turn) / (math.pi / 2) - 1e-9))
    step = turn / count
    handle = 4 / 3 * math.tan(step / 4) * radius
    for i in range(count):
        a, b = first + i * step, first + (i + 1) * step
        p = (cx + radius * math.cos(a), cy + radius * math.sin(a))
        q = end if i == count - 1 else (cx + radius * math.cos(b), cy + radius * math.sin(b))
        pen.curveTo((p[0] - handle * math.sin(a), p[1] + handle * math.cos(a)),
                    (q[0] + handle * math.sin(b), q[1] - handle * math.cos(b)), q)


def draw_path(pen, text):
    """Draws SVG path text made of the absolute commands M L H V C Q A Z (arcs of circles only)."""
    tokens = re.findall(r"[A-Za-z]|-?\d*\.?\d+", text)
    at, command, here, is_open = 0, None, (0.0, 0.0), False

    def take(count):
        nonlocal at
        values = [float(v) for v in tokens[at:at + count]]
        at += count
        return values

    while at < len(tokens):
        if tokens[at].isalpha():
            command = tokens[at]
            at += 1
        if command == "M":
            if is_open:
                pen.endPath()
            here, is_open = tuple(take(2)), True
            pen.moveTo(here)
            command = "L"
        elif command == "Z":
            pen.closePath()
            is_open = False
        elif command == "C":
            v = take(6)
            here = (v[4], v[5])
            pen.curveTo((v[0], v[1]), (v[2], v[3]), here)
        elif command == "Q":
            v = take(4)
            quadratic(pen, here, (v[0], v[1]), (v[2], v[3]))
            here = (v[2], v[3])
        elif command == "A":
            v = take(7)
            arc(pen, here, v[0], bool(v[3]), bool(v[4]), (v[5], v[6]))
            here = (v[5], v[6])
        elif command in "LHV":
            v = take(2 if command == "L" else 1)
            here = (v[0], v[1]) if command == "L" else (v[0], here[1]) if command == "H" else (here[0], v[0])
            pen.lineTo(here)
        else:
            sys.exit(f"unknown path command {command} in {text}")
    if is_open:
        pen.endPath()


class FontOutlines:
    """The letters of one font file. Text has the font's own kerning left out and a letter spacing of its own."""

    def __init__(self, path):
        self.font = fontforge.open(path)
        self.font.is_quadratic = False

    def cap_height(self, size):
        box = self.font[ord("H")].boundingBox()
        return box[3] * size / self.font.em

    def width(self, text, size, spacing=0.0):
        """From the first letter's origin to the last one's advance, with the spacing only between letters."""
        advances = sum(self.font[ord(c)].width for c in text)
        return advances * size / self.font.em + spacing * (len(text) - 1)

    def side_bearings(self, text, size):
        """The blank left of the first letter and right of the last one."""
        first, last = self.font[ord(text[0])], self.font[ord(text[-1])]
        scale = size / self.font.em
        return first.boundingBox()[0] * scale, (last.width - last.boundingBox()[2]) * scale

    def draw(self, pen, text, size, x, baseline, spacing=0.0):
        scale = size / self.font.em
        for character in text:
            glyph = self.font[ord(character)]
            origin = x
            place = lambda p: (origin + p.x * scale, baseline - p.y * scale)
            for contour in self._contours(glyph):
                self._draw_contour(pen, [(place(p), p.on_curve) for p in contour])
            x += glyph.width * scale + spacing

    @staticmethod
    def _contours(glyph):
        if glyph.references:
            glyph.unlinkRef()
        return glyph.foreground

    @staticmethod
    def _draw_contour(pen, points):
        while not points[0][1]:
            points = points[1:] + points[:1]
        pen.moveTo(points[0][0])
        controls = []
        for point, on_curve in points[1:] + points[:1]:
            if not on_curve:
                controls.append(point)
            elif controls:
                pen.curveTo(controls[0], controls[1], point)
                controls = []
            else:
                pen.lineTo(point)
        pen.closePath()
