"""The plug-in's editor in a host's window, of which a host shows no more than pixels. Points are in the editor, y down."""
import time

import screen
from outcome import must

SIZE = (480, 320)
# The middle of the gain's handle, where it stands at 0 dB, and how far it goes for one decibel.
GAIN_X, GAIN_Y, GAIN_STEP = 159, 79, 6.2
GAIN_COLOUR = (0xA5, 0x4D, 0x55)
MENU_COLOUR = (0xFC, 0xFB, 0xFA)


def _alike(pixel, colour, tolerance):
    return all(abs(seen - wanted) <= tolerance for seen, wanted in zip(pixel, colour))


class Editor:
    def __init__(self, window):
        self.window = window

    @staticmethod
    def all_on_screen():
        """One for each: a window of the editor's size in which the gain's handle is seen."""
        found = {}
        for window in screen.windows(lambda it: (it.width, it.height) == SIZE):
            found[window.x, window.y] = Editor(window) # the innermost comes last
        return [editor for editor in found.values() if editor.gain() is not None]

    def is_on_screen(self):
        return screen.is_seen(self.window)

    def _at(self, x, y):
        return self.window.x + x, self.window.y + y

    def _columns_of(self, colour, x, y, width, height, tolerance=4):
        """The column of each pixel of the colour."""
        raw = screen.pixels(*self._at(x, y), width, height)
        return [x + i // 3 % width for i in range(0, len(raw) - 2, 3) if _alike(raw[i:i + 3], colour, tolerance)]

    def gain(self):
        """The gain in decibels, as its handle stands; None where no handle is seen."""
        columns = self._columns_of(GAIN_COLOUR, 2, GAIN_Y - 10, 300, 20)
        if len(columns) < 400:
            return None
        middle = (min(columns) + max(columns)) / 2
        return (middle - GAIN_X) / GAIN_STEP

    def shows_gain(self, decibels):
        """Waits until it does; what it shows otherwise is told by gain()."""
        screen.point_beside()
        return screen.wait_until(lambda: (seen := self.gain()) is not None and abs(seen - decibels) < 0.4, 6)

    def drag_gain(self, begin, end, seconds=0.5):
        steps = 10
        screen.point(*self._at(GAIN_X + begin * GAIN_STEP, GAIN_Y))
        screen.press()
        for step in range(1, steps + 1):
            screen.point(*self._at(GAIN_X + (begin + (end - begin) * step / steps) * GAIN_STEP, GAIN_Y))
            time.sleep(seconds / steps)
        screen.release()

    def focus_gain(self):
        """Clicks on the handle where it stands: the editor has the keyboard then."""
        must(screen.wait_until(lambda: self.gain() is not None, 5), "the gain's handle is not seen")
        screen.click(*self._at(GAIN_X + self.gain() * GAIN_STEP, GAIN_Y))
        screen.point_beside()
        time.sleep(0.5)

    def menu_is_open(self):
        return len(self._columns_of(MENU_COLOUR, 0, 0, *SIZE, tolerance=2)) > 10000
