"""qtractor. Debian's knows no VST3. Places in its windows are those of its factory settings."""
import re
import time
from pathlib import Path

import screen
from outcome import NotThere, must
from trial import Trial

MAIN_WINDOW = r"^(Untitled\d+|/\S*/try\.qtr)( \[modified\])? — Qtractor$"
EDITOR_WINDOW = r"^Slantwise( \d+)? - Track 1 — Qtractor$"

# In the main window: the track with the name of its plug-in.
TRACK = (40, 150)
PLUGIN_OF_TRACK = (182, 180)
# In the dialogs of a track and of plug-ins.
PLUGINS_TAB, FIRST_PLUGIN, REMOVE = (97, 22), (90, 52), (390, 88)
OK_FROM_RIGHT_AND_BOTTOM = (-135, -23)
FORMAT_FROM_RIGHT, SEARCH, FIRST_ROW = (-44, 14), (150, 14), (100, 56)
# Where nothing of the main window is, once that is at the left.
PLACES = ((1090, 60), (1090, 480))


class Qtractor(Trial):
    host = "qtractor"
    clock = (350, 64, 120, 40)
    format = "LV2"

    def insert(self):
        self.environment["LV2_PATH"] = str(self.bundle_folder)
        self._start()
        screen.activate(self._main())
        screen.keys("shift+Insert")
        track = self._dialog("Track")
        screen.keys("alt+a") # of audio
        time.sleep(0.5)
        self._add_in(track)

    def open(self):
        """What was just added opens by itself, and is put beside the dialog that it was added in."""
        found = screen.wait_until(lambda: screen.titled(EDITOR_WINDOW))
        must(found, "no window for the editor")
        screen.move(found, *PLACES[0])
        self._finish_dialog()

    def save(self):
        must("[modified]" in self._main().title, "the session is not marked as modified after three edits")
        screen.activate(self._main())
        screen.keys("ctrl+s")
        session = self._dialog("Session")
        screen.write("try")
        screen.keys("Return")
        must(screen.wait_until(lambda: screen.titled("^Warning — Qtractor$")), "does not ask for the session's folder")
        screen.keys("Return")
        must(screen.wait_until(lambda: not screen.is_seen(session)), "the dialog of a session stays")
        if chooser := screen.wait_until(lambda: screen.titled(r"^Save Session"), 5):
            screen.keys("Return")
            must(screen.wait_until(lambda: not screen.is_seen(chooser)), "the dialog of files stays")
        must(screen.wait_until(lambda: self._saved()), "the session is not written")
        must(screen.wait_until(lambda: "[modified]" not in self._main().title), "still marked as modified when saved")

    def reload(self):
        screen.activate(self._main())
        screen.keys("alt+f", "x")
        must(screen.wait_until(lambda: not self.is_running(), 20), "does not quit")
        self._start(str(self._saved()[0]))
        found = screen.wait_until(lambda: screen.titled(EDITOR_WINDOW), 4)
        if not found:
            main = self._main()
            screen.click(main.x + PLUGIN_OF_TRACK[0], main.y + PLUGIN_OF_TRACK[1], times=2)
            found = screen.wait_until(lambda: screen.titled(EDITOR_WINDOW))
        must(found, "no window for the editor")
        screen.move(found, *PLACES[0])

    def touch(self):
        raise NotThere("it records automation as set in its own menus, which is not tried here")

    def insert_second(self):
        known = screen.windows(lambda window: re.search(EDITOR_WINDOW, window.title))
        self._add_in(self._properties())
        found = screen.wait_until(lambda: screen.titled(EDITOR_WINDOW, unlike=known))
        must(found, "no second window")
        screen.move(found, *PLACES[1])
        self._finish_dialog()

    def remove(self):
        dialog = self._properties()
        screen.click(dialog.x + PLUGINS_TAB[0], dialog.y + PLUGINS_TAB[1])
        time.sleep(1)
        screen.click(dialog.x + FIRST_PLUGIN[0], dialog.y + FIRST_PLUGIN[1])
        screen.click(dialog.x + REMOVE[0], dialog.y + REMOVE[1])
        time.sleep(1)

    def _start(self, *files):
        environment = {}
        if not Path("/dev/snd/seq").exists():
            environment["LD_PRELOAD"] = str(self.build / "tests/hosts/libquiet_sequencer.so")
        self.start("qtractor", *files, **environment)
        must(screen.wait_until(lambda: screen.titled(MAIN_WINDOW), 60), "no main window")
        time.sleep(4) # it places its own windows
        screen.move(self._main(), 0, 0)

    @staticmethod
    def _main():
        found = screen.titled(MAIN_WINDOW)
        must(found, "the main window has gone")
        return found

    def _saved(self):
        return [path for path in self.home.rglob("try.qt?") if "auto-save" not in path.name]

    @staticmethod
    def _dialog(name):
        found = screen.wait_until(lambda: screen.titled(f"^{name} — Qtractor$"))
        must(found, f"no dialog for {name}")
        time.sleep(1)
        return screen.titled(f"^{name} — Qtractor$")

    def _properties(self):
        main = self._main()
        screen.activate(main)
        screen.click(main.x + TRACK[0], main.y + TRACK[1])
        time.sleep(1)
        screen.activate(main) # an editor's window that was just opened may be the active one again
        screen.keys("shift+F2")
        return self._dialog("Track")

    def _add_in(self, track):
        screen.click(track.x + PLUGINS_TAB[0], track.y + PLUGINS_TAB[1])
        time.sleep(1)
        screen.keys("alt+a")
        choice = self._dialog("Plugins")
        screen.click(choice.x + choice.width + FORMAT_FROM_RIGHT[0], choice.y + FORMAT_FROM_RIGHT[1])
        time.sleep(1)
        screen.keys("End", "Return") # LV2
        time.sleep(4)
        screen.click(choice.x + SEARCH[0], choice.y + SEARCH[1])
        screen.keys("ctrl+a")
        screen.write("slantwise")
        time.sleep(2)
        screen.click(choice.x + FIRST_ROW[0], choice.y + FIRST_ROW[1])
        screen.keys("Return")
        must(screen.wait_until(lambda: not screen.titled("^Plugins — Qtractor$")), "the list of plug-ins stays")

    def _finish_dialog(self):
        dialog = screen.titled("^Track — Qtractor$")
        must(dialog, "no dialog for Track")
        screen.click(dialog.x + dialog.width + OK_FROM_RIGHT_AND_BOTTOM[0], dialog.y + dialog.height + OK_FROM_RIGHT_AND_BOTTOM[1])
        must(screen.wait_until(lambda: not screen.titled("^Track — Qtractor$")), "the dialog of the track stays")
        time.sleep(1)
