"""jalv.gtk3, which has one plug-in and no transport, and ends with it."""
import time

import screen
from outcome import must
from trial import Trial

URI = "https://ferrowind.example/plugins/slantwise"
# In the dialog for files, from the lower right corner.
SAVE_FROM_CORNER = (-50, -22)


class Jalv(Trial):
    host = "jalv.gtk3"
    format = "LV2"
    ends_with_plugin = True

    def insert(self):
        self.environment["LV2_PATH"] = f"{self.bundle_folder}:/usr/lib/lv2"
        self.start("jalv.gtk3", URI)
        must(screen.wait_until(self._main), "no window")

    def open(self):
        """It comes with the plug-in."""

    def save(self):
        self.editor.focus_gain()
        screen.keys("ctrl+s")
        chooser = screen.wait_until(lambda: screen.titled("^Save State$"))
        must(chooser, "no dialog for files")
        time.sleep(2) # it grows
        screen.keys("ctrl+a")
        screen.write(str(self._state))
        chooser = screen.titled("^Save State$")
        screen.click(chooser.x + chooser.width + SAVE_FROM_CORNER[0], chooser.y + chooser.height + SAVE_FROM_CORNER[1])
        must(screen.wait_until(self._state.is_dir), "no state is written")

    def reload(self):
        self._quit()
        self.start("jalv.gtk3", "-l", str(self._state))
        must(screen.wait_until(self._main), "no window")

    def remove(self):
        self._quit()

    @property
    def _state(self):
        return self.place / "state"

    @staticmethod
    def _main():
        return screen.titled("^Slantwise$")

    def _quit(self):
        """By the key that the editor leaves to its host."""
        self.editor.focus_gain()
        screen.keys("ctrl+q")
        must(screen.wait_until(lambda: not self.is_running()), "does not quit")
        must(self.process.returncode == 0, f"quits with {self.process.returncode}")
