"""The display: windows, a real pointer and keyboard, and pixels. Positions are in pixels of the root window, y down."""
import re
import subprocess
import time
from dataclasses import dataclass

WAIT_SECONDS = 20.0


def _said(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout


def wait_until(condition, seconds=WAIT_SECONDS):
    """The first true result of the condition, or what it said last when the time is over."""
    end = time.monotonic() + seconds
    while not (found := condition()) and time.monotonic() < end:
        time.sleep(0.1)
    return found


@dataclass(frozen=True)
class Window:
    number: int
    title: str
    x: int
    y: int
    width: int
    height: int


def windows(matches=lambda window: True):
    """The windows on screen for which `matches` is true, parents before children."""
    line = re.compile(r"^ +(0x[0-9a-f]+) (?:\"(.*)\"|\(has no name\)): \(.*\)  (\d+)x(\d+)\+-?\d+\+-?\d+  \+(-?\d+)\+(-?\d+)$")
    found = []
    for text in _said("xwininfo", "-root", "-tree").decode(errors="replace").splitlines():
        if parts := line.match(text):
            number, title, width, height, x, y = parts.groups()
            found.append(Window(int(number, 16), title or "", int(x), int(y), int(width), int(height)))
    return [window for window in found if matches(window) and is_seen(window)]


def is_seen(window):
    return b"IsViewable" in _said("xwininfo", "-id", str(window.number))


def titled(pattern, unlike=()):
    """The window whose title matches and that is none of those, or None."""
    return next(iter(windows(lambda window: re.search(pattern, window.title) and window not in unlike)), None)


def activate(window):
    _said("xdotool", "windowactivate", "--sync", str(window.number))


def move(window, x, y):
    _said("xdotool", "windowmove", "--sync", str(window.number), str(x), str(y))
    time.sleep(0.5)


def point(x, y):
    _said("xdotool", "mousemove", str(round(x)), str(round(y)))
    time.sleep(0.15)


def point_beside():
    point(5, 5)


def press(button=1):
    _said("xdotool", "mousedown", str(button))
    time.sleep(0.1)


def release(button=1):
    _said("xdotool", "mouseup", str(button))
    time.sleep(0.1)


def click(x, y, button=1, times=1):
    point(x, y)
    _said("xdotool", "click", "--repeat", str(times), "--delay", "80", str(button))
    time.sleep(0.2)


def keys(*names):
    for name in names:
        _said("xdotool", "key", name)
        time.sleep(0.15)


def write(text):
    _said("xdotool", "type", "--delay", "60", text)


def pixels(x, y, width, height):
    """Red, green and blue of each pixel, row by row."""
    return _said("import", "-window", "root", "-crop", f"{width}x{height}+{round(x)}+{round(y)}", "-depth", "8", "rgb:-")


def picture(path):
    _said("import", "-window", "root", str(path))
