"""What is tried in every host, and how it is told."""
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import screen
from editor import Editor
from outcome import Failed, NotThere, must


class Trial:
    """One host with one format: each method that STEPS names does one thing with real events and looks at what comes of it.

    A step that fails is told and the next one tried; where the editor does not open, the rest is not reached."""

    host = ""
    format = ""
    clock = None # where the main window shows the time of the transport: x, y, width, height
    ends_with_plugin = False # when that is removed
    STEPS = ("insert", "open", "draw", "drag", "type", "menu", "space bar to the transport", "save", "reload",
             "automation by touch", "two instances", "remove while open")

    def __init__(self, build, jack_server, pictures):
        self.build = Path(build).resolve()
        self.bundle_folder = self.build / "plugin/Slantwise_artefacts/Release" / self.format
        self.pictures = Path(pictures).resolve()
        self.place = Path(tempfile.mkdtemp(prefix="slantwise-hosts-"))
        self.home = self.place / "home"
        self.process = None
        self.editor = None
        self.results = {}
        runtime = self.place / "run"
        runtime.mkdir(mode=0o700)
        self.home.mkdir()
        # Nothing of the user's, neither settings nor plug-ins, is seen by a host that is tried.
        self.environment = {
            "PATH": os.environ["PATH"], "DISPLAY": os.environ["DISPLAY"], "LANG": "C.UTF-8", "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(runtime), "JACK_DEFAULT_SERVER": jack_server, "JACK_NO_AUDIO_RESERVATION": "1",
        }

    # -- what a host does in its own way

    def insert(self):
        """Starts the host and puts the plug-in where it is heard."""
        raise NotImplementedError

    def open(self):
        """Has the host open the editor."""
        raise NotImplementedError

    def is_rolling(self):
        if not self.clock:
            raise NotThere("no transport of its own")
        main = self._main()
        x, y, width, height = self.clock
        before = screen.pixels(main.x + x, main.y + y, width, height)
        time.sleep(0.5)
        return screen.pixels(main.x + x, main.y + y, width, height) != before

    def _main(self):
        """The window that shows the transport, in hosts that have one."""
        raise NotImplementedError

    def save(self):
        raise NotImplementedError

    def reload(self):
        """Starts the host anew with what was saved, and opens the editor."""
        raise NotImplementedError

    def touch(self):
        raise NotThere("no automation")

    def insert_second(self):
        """Adds one more to what is there and opens its editor beside the first."""
        raise NotThere("one plug-in a process")

    def remove(self):
        """Takes the plug-in away while its editor is open."""
        raise NotImplementedError

    # -- what is the same in all

    def start(self, *command, **environment):
        with open(self.place / "log", "ab") as log:
            self.process = subprocess.Popen(command, env=self.environment | environment, cwd=self.home, stdout=log,
                                            stderr=log, start_new_session=True)

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def stop(self):
        """For a host that has said all it has to say: what a user would do is tried in the steps."""
        if self.process is None:
            return
        if self.is_running():
            os.killpg(self.process.pid, signal.SIGTERM)
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                os.killpg(self.process.pid, signal.SIGKILL)
                self.process.wait()
        self.process = None

    def find_editor(self):
        screen.point_beside()
        self.editor = screen.wait_until(lambda: next(iter(Editor.all_on_screen()), None))
        must(self.editor, "no window with the editor in it")

    def _gain_becomes(self, decibels):
        must(self.editor.shows_gain(decibels), f"the gain shows {self.editor.gain()} and not {decibels}")

    def _try_insert(self):
        self.insert()

    def _try_open(self):
        self.open()
        self.find_editor()

    def _try_draw(self):
        self._gain_becomes(0)

    def _try_drag(self):
        self.editor.drag_gain(0, 9)
        self._gain_becomes(9)

    def _try_type(self):
        self.editor.focus_gain()
        screen.keys("6", "Return")
        self._gain_becomes(6)

    def _try_menu(self):
        self.editor.focus_gain()
        must(not self.editor.menu_is_open(), "a menu before any was asked for")
        screen.keys("Menu")
        must(screen.wait_until(self.editor.menu_is_open, 5), "no menu")
        self.keep_picture("menu")
        screen.keys("Escape")
        must(screen.wait_until(lambda: not self.editor.menu_is_open(), 5), "the menu stays")

    def _try_space_bar_to_the_transport(self):
        must(not self.is_rolling(), "it rolls already")
        self.editor.focus_gain()
        screen.keys("space")
        must(screen.wait_until(self.is_rolling, 5), "the transport stands still")
        screen.keys("space")
        must(screen.wait_until(lambda: not self.is_rolling(), 5), "the transport rolls on")

    def _try_save(self):
        self.save()

    def _try_reload(self):
        self.reload()
        self.find_editor()
        self._gain_becomes(6)

    def _try_automation_by_touch(self):
        self.touch()

    def _try_two_instances(self):
        first = self.editor
        before = first.gain()
        self.insert_second()
        second = screen.wait_until(lambda: next(
            (it for it in Editor.all_on_screen() if it.window.number != first.window.number), None))
        must(second, "no second editor")
        must(second.shows_gain(0), f"the second begins with {second.gain()}")
        second.drag_gain(0, -6)
        must(second.shows_gain(-6), f"the second shows {second.gain()} after a drag to -6")
        must(first.shows_gain(before), f"the first went from {before} to {first.gain()}")
        self.keep_picture("two")

    def _try_remove_while_open(self):
        before = len(Editor.all_on_screen())
        must(before, "no editor is open")
        self.remove()
        must(screen.wait_until(lambda: len(Editor.all_on_screen()) == before - 1), "its editor stays")
        time.sleep(1)

    def _is_reached(self, step):
        if step == "insert":
            return True
        return self.results["insert"] == "yes" if step == "open" else self.editor is not None and self.is_running()

    def keep_picture(self, step):
        screen.picture(self.pictures / f"{self.host}-{self.format}-{step}.png".replace(" ", "-"))

    def run(self):
        """Fills `results`: for each step "yes", "no: ..." or "–: ...", in the order of STEPS."""
        try:
            self._run_steps()
        finally:
            self.stop()
            shutil.rmtree(self.place, ignore_errors=True)

    def _run_steps(self):
        for step in self.STEPS:
            name = step.replace(" ", "_")
            if not self._is_reached(step):
                self.results[step] = "no: not reached"
                continue
            try:
                getattr(self, f"_try_{name}")()
                must(self.is_running() or self.ends_with_plugin and step == self.STEPS[-1], "the host has ended")
                self.results[step] = "yes"
            except Failed as why:
                self.results[step] = f"no: {why}"
            except NotThere as why:
                self.results[step] = f"–: {why}"
            self.keep_picture(step)
            print(f"{self.host}, {self.format}: {step}: {self.results[step]}", flush=True)
