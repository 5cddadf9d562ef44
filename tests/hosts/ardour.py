"""Ardour 7. Its sessions are made by its own command-line Lua; all else is done in its window. Places in its windows are
those of its factory theme on a screen of 1600 by 1000."""
import re
import shutil
import subprocess
import time
from pathlib import Path
from xml.etree import ElementTree

import screen
from outcome import Failed, NotThere, must
from trial import Trial

LUA = Path(__file__).with_name("ardour_session.lua")
MAIN_WINDOW = r"^\*?try - Ardour$"
PLUGIN_WINDOW = r"Slantwise \(by Ferrowind\)"

# In the main window, from its upper left corner; the button of the mixer from the upper right.
MIXER_FROM_RIGHT = (-23, 74)
STRIP_X, FIRST_ENTRY_Y, ENTRY_STEP = 331, 208, 21
# In the plug-in selector.
FIRST_ROW, INSERT = (107, 56), (779, 630)
# Where the editors are out of the way of all of that.
PLACES = ((1050, 620), (540, 620))


class Ardour(Trial):
    host = "Ardour 7"
    clock = (497, 30, 150, 26)

    def insert(self):
        self._settings()
        made = subprocess.run(["ardour7-lua", str(LUA), str(self._session)], env=self.environment, cwd=self.home, timeout=120,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        must(self._file.exists(), f"no session: {made.stdout.decode()[-300:]}")
        self._start()
        self._insert_behind(1)

    def open(self):
        self._open_entry(2, PLACES[0])

    def save(self):
        must(self._main().title.startswith("*"), "the session is not marked as modified after three edits")
        self._save()
        must(screen.wait_until(lambda: not self._main().title.startswith("*")), "still marked as modified when saved")

    def reload(self):
        self._quit()
        self._start()
        self.open()

    def touch(self):
        self._quit()
        self._set_to_touch()
        self._start()
        self.open()
        self.find_editor()
        must(self.editor.shows_gain(6), f"the gain shows {self.editor.gain()} when its automation is set to touch")
        self.editor.focus_gain()
        screen.keys("space")
        must(screen.wait_until(self.is_rolling, 5), "the transport stands still")
        self.editor.drag_gain(6, -6, seconds=2)
        screen.point_beside()
        screen.keys("space")
        must(screen.wait_until(lambda: not self.is_rolling(), 5), "the transport rolls on")
        self._save()
        events = self._events()
        if len(events) == 1 and not self.WRITES_TOUCHES:
            raise NotThere("Ardour writes nothing of a drag into what LV2 calls a property")
        must(len(events) >= 4, f"{len(events)} events were written")
        low, high = self.TOUCHED
        must(abs(min(events) - low) < 0.02 * (high - low) + 0.02, f"the lowest event is {min(events)} and not {low}")
        must(abs(max(events) - high) < 0.02 * (high - low) + 0.02, f"the highest event is {max(events)} and not {high}")

    def insert_second(self):
        known = screen.windows(lambda window: re.search(PLUGIN_WINDOW, window.title))
        self._insert_behind(2)
        self._open_entry(3, PLACES[1], known)

    def remove(self):
        main = self._main()
        screen.click(main.x + STRIP_X, self._entry_y(3))
        screen.keys("Delete")

    # -- its settings and sessions

    @property
    def _session(self):
        return self.place / "try"

    @property
    def _file(self):
        return self._session / "try.ardour"

    def _settings(self):
        folder = self.home / ".config/ardour7"
        folder.mkdir(parents=True)
        (folder / ".a7").touch() # no first questions
        options = {"try-autostart-engine": 1, "use-lxvst": 0, "use-vst3": 1, "discover-plugins-on-start": 1}
        text = "".join(f'<Option name="{name}" value="{value}"/>' for name, value in options.items())
        server = self.environment["JACK_DEFAULT_SERVER"]
        (folder / "config").write_text(
            f'<?xml version="1.0"?><Ardour><Config>{text}</Config><Extra><AudioMIDISetup><EngineStates>'
            f'<State backend="JACK" driver="" device="{server}" input-device="" output-device="" sample-rate="48000" '
            'buffer-size="2048" n-periods="0" input-latency="0" output-latency="0" input-channels="0" output-channels="0" '
            'active="1" use-buffered-io="0" midi-option="" lm-input="" lm-output=""><MIDIDevices/></State>'
            '</EngineStates></AudioMIDISetup></Extra></Ardour>')

    def _parameter_list(self, tree):
        found = [each for each in tree.iter("AutomationList") if each.get("automation-id") == self.GAIN]
        must(found, f"the session has no {self.GAIN}")
        return found[0]

    def _set_to_touch(self):
        """With one event at the start, as what Ardour makes of none is the initial value."""
        tree = ElementTree.parse(self._file)
        gain = self._parameter_list(tree)
        must(gain.find("events") is None, "there is automation before any was written")
        gain.set("state", "Touch")
        ElementTree.SubElement(gain, "events").text = f"a0 {self.TOUCHED[1]}\n"
        tree.write(self._file, encoding="UTF-8", xml_declaration=True)

    def _events(self):
        """The values that the gain's automation has in the saved session."""
        text = self._parameter_list(ElementTree.parse(self._file)).findtext("events") or ""
        return [float(line.split()[1]) for line in text.strip().splitlines() if len(line.split()) == 2]

    # -- its windows

    def _start(self):
        self.start("ardour", str(self._session))
        must(screen.wait_until(lambda: screen.titled(MAIN_WINDOW), 180), "no main window")
        time.sleep(3) # it places its own windows
        main = self._main()
        screen.activate(main)
        screen.click(main.x + main.width + MIXER_FROM_RIGHT[0], main.y + MIXER_FROM_RIGHT[1])
        time.sleep(2)

    @staticmethod
    def _main():
        found = screen.titled(MAIN_WINDOW)
        must(found, "the main window has gone")
        return found

    def _entry_y(self, number):
        return self._main().y + FIRST_ENTRY_Y + (number - 1) * ENTRY_STEP

    def _insert_behind(self, entries):
        """Into the space below so many entries of the track, as a user does: double-click, search, choose."""
        screen.click(self._main().x + STRIP_X, self._entry_y(entries + 1) + 4, times=2)
        selector = screen.wait_until(lambda: screen.titled("^Plugin Selector$"))
        must(selector, "no plug-in selector")
        time.sleep(1)
        screen.write("slantwise")
        time.sleep(2)
        screen.click(selector.x + FIRST_ROW[0], selector.y + FIRST_ROW[1], times=2)
        time.sleep(1)
        screen.click(selector.x + INSERT[0], selector.y + INSERT[1])
        must(screen.wait_until(lambda: not screen.titled("^Plugin Selector$")), "the selector stays")
        time.sleep(2)

    def _open_entry(self, number, place, known=()):
        """The editor's window, unless it is one of those known: what was just added opens by itself, else by double-click."""
        found = screen.wait_until(lambda: screen.titled(PLUGIN_WINDOW, unlike=known), 8)
        if not found:
            screen.click(self._main().x + STRIP_X, self._entry_y(number), times=2)
            found = screen.wait_until(lambda: screen.titled(PLUGIN_WINDOW, unlike=known))
        must(found, "no window for the editor")
        screen.move(found, *place)

    def _save(self):
        """By the key that the editor leaves to its host."""
        written = self._file.stat().st_mtime_ns
        self.editor.focus_gain()
        screen.keys("ctrl+s")
        must(screen.wait_until(lambda: self._file.stat().st_mtime_ns != written), "the session is not written")

    def _quit(self):
        screen.activate(self._main())
        screen.keys("ctrl+q")
        if screen.wait_until(lambda: not self.is_running(), 40) is not True:
            raise Failed("does not quit")
        self.process = None


class ArdourLv2(Ardour):
    format = "LV2"
    GAIN = "property-https://ferrowind.example/plugins/slantwise:TiltGain"
    TOUCHED = (-6, 6)
    WRITES_TOUCHES = False

    def insert(self):
        self.environment["LV2_PATH"] = f"{self.bundle_folder}:/usr/lib/lv2"
        super().insert()


class ArdourVst3(Ardour):
    format = "VST3"
    GAIN = "parameter-1"
    TOUCHED = (1 / 3, 2 / 3) # of the range from -18 to 18 dB
    WRITES_TOUCHES = True

    def insert(self):
        empty = self.place / "no-lv2"
        empty.mkdir()
        self.environment["LV2_PATH"] = str(empty)
        shutil.copytree(self.bundle_folder / "Slantwise.vst3", self.home / ".vst3/Slantwise.vst3")
        super().insert()
