"""scripts/steps in small scripts made up for it: what a log and what a terminal get to see of steps that take a while."""
import os
import pty
import re
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

STEPS = Path(__file__).resolve().parents[2] / "scripts" / "steps"
SLOW = "for i in 1 2 3 4; do echo \"[$i/4] Building thing $i\"; sleep 0.6; done"


def environment(**more):
    plain = {name: value for name, value in os.environ.items() if not name.startswith("STEPS_")}
    return {**plain, "TERM": "xterm", "COLUMNS": "80", **more}


class Steps(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def script(self, name, text):
        path = self.folder / name
        path.write_text(f"#!/usr/bin/env bash\nset -euo pipefail\n{text}\n")
        path.chmod(0o755)
        return path

    def run_it(self, text, **more):
        return subprocess.run([self.script("it", text)], capture_output=True, text=True, env=environment(**more),
                              timeout=60)

    def test_a_quick_step_is_one_line_with_its_number_and_time_and_its_output_is_kept_from_sight(self):
        done = self.run_it(f". {STEPS} 2\nstep one echo noise\nstep two true\necho result")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stderr, r"\A\[1/2\] one  [01]s\n\[2/2\] two  [01]s\n\Z")
        self.assertEqual(done.stdout, "result\n")

    def test_a_log_gets_the_count_now_and_then_while_a_step_takes_its_time(self):
        done = self.run_it(f". {STEPS} 1\nslow() {{ {SLOW}; }}\nstep slow slow", STEPS_SECONDS="1")
        lines = done.stderr.splitlines()
        self.assertGreaterEqual(len(lines), 2)
        self.assertLessEqual(len(lines), 4)
        for line in lines[:-1]:
            self.assertRegex(line, r"^\[1/1\] slow \.\.\. \ds  [1-4]/4$")
        self.assertRegex(lines[-1], r"^\[1/1\] slow  [234]s$")

    def test_a_log_hears_nothing_of_a_step_that_is_done_within_the_interval(self):
        done = self.run_it(f". {STEPS} 1\nslow() {{ {SLOW}; }}\nstep slow slow")
        self.assertRegex(done.stderr, r"\A\[1/1\] slow  [234]s\n\Z")

    def test_a_terminal_shows_what_the_command_says_in_one_line_that_goes_when_it_is_done(self):
        terminal, slave = pty.openpty()
        script = self.script("it", f". {STEPS} 1\nslow() {{ {SLOW}; }}\nstep slow slow")
        with subprocess.Popen([script], stdin=slave, stdout=slave, stderr=slave, env=environment()) as process:
            os.close(slave)
            seen = b""
            while True:
                try:
                    piece = os.read(terminal, 4096)
                except OSError:  # the terminal's last user has gone
                    break
                if not piece:
                    break
                seen += piece
            os.close(terminal)
            self.assertEqual(process.wait(), 0)
        text = seen.decode()
        self.assertRegex(text, r"\r\x1b\[K\[1/1\] slow  1s  \[[1-4]/4\] Building thing [1-4]")
        self.assertRegex(text, r"\r\x1b\[K\[1/1\] slow  [234]s\r\n\Z")
        self.assertEqual(text.count("\n"), 1)

    def test_a_step_that_fails_is_named_and_the_end_of_its_log_shown(self):
        done = self.run_it(f". {STEPS} 2\nbad() {{ seq 100; echo why >&2; return 7; }}\nstep bad bad\nstep next true")
        self.assertEqual(done.returncode, 7)
        self.assertRegex(done.stderr, r"\A\[1/2\] bad: failed after [01]s\n")
        self.assertTrue(done.stderr.endswith("\n99\n100\nwhy\n"))
        self.assertNotIn("\n40\n", done.stderr)
        self.assertNotIn("next", done.stderr)

    def test_a_script_may_say_what_is_shown_of_a_failure(self):
        done = self.run_it(f". {STEPS} 1\nreport_failure() {{ grep -v dull \"$step_log\"; }}\n"
                           "bad() { echo dull; echo reason; return 1; }\nstep bad bad")
        self.assertRegex(done.stderr, r"\A\[1/1\] bad: failed after [01]s\nreason\n\Z")

    def test_a_script_that_is_a_part_counts_on_from_the_whole(self):
        part = self.script("part", f". {STEPS} 2\nstep a true\nstep b true")
        done = self.run_it(f". {STEPS} 4\nstep first true\npart 2 {part}\nstep last true")
        self.assertEqual(re.findall(r"\[\d/\d\] \w+", done.stderr), ["[1/4] first", "[2/4] a", "[3/4] b", "[4/4] last"])

    def test_a_part_that_fails_ends_the_whole(self):
        part = self.script("part", f". {STEPS} 1\nstep a false")
        done = self.run_it(f". {STEPS} 2\npart 1 {part}\nstep last true")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\A\[1/2\] a: failed after [01]s\n\Z")

    def test_a_step_is_over_with_its_command_whatever_that_leaves_behind(self):
        start = time.monotonic()
        done = self.run_it(f". {STEPS} 1\nstep server bash -c 'sleep 5 >/dev/null 2>&1 &'")
        self.assertEqual(done.returncode, 0)
        self.assertLess(time.monotonic() - start, 4)

    def test_nothing_is_left_of_a_script_that_is_killed(self):
        script = self.script("it", f". {STEPS} 1\necho ready\nstep slow sleep 3")
        with subprocess.Popen([script], stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=environment(),
                              start_new_session=True) as process:
            process.stdout.readline()
            time.sleep(0.2)
            os.killpg(process.pid, 2)  # as a terminal's Ctrl-C
            start = time.monotonic()
            process.stderr.read()  # ends when the last process that could write has gone
            self.assertLess(time.monotonic() - start, 2.0)
            self.assertNotEqual(process.wait(), 0)


class TheScripts(unittest.TestCase):
    """With programs in the place of the real ones that say what they are asked for."""

    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.folder / "scripts").mkdir()
        (self.folder / "bin").mkdir()
        for name in ["steps", "setup", "build", "test", "run"]:
            path = self.folder / "scripts" / name
            path.write_bytes((STEPS.parent / name).read_bytes())
            path.chmod(0o755)
        self.program("dpkg-query", "echo installed")
        self.program("cmake", "echo \"cmake $*\"")
        self.program("ctest", "printf '%s\\n' '    Start 1: a' '1/2 Test #1: a .....   Passed    0.00 sec' "
                              "'2/2 Test #2: b .....   Passed    0.00 sec' '' '100% tests passed, 0 tests failed out of 2'")

    def program(self, name, text):
        path = self.folder / "bin" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def run_it(self, name, *arguments, **more):
        path = f"{self.folder / 'bin'}:{os.environ['PATH']}"
        return subprocess.run([self.folder / "scripts" / name, *arguments], capture_output=True, text=True,
                              env=environment(PATH=path, **more), timeout=60)

    def test_set_up_is_quiet_when_nothing_is_missing(self):
        done = self.run_it("setup")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_the_tests_are_four_steps_and_end_with_the_summary(self):
        done = self.run_it("test")
        self.assertEqual(done.returncode, 0)
        names = ["[1/4] packages", "[2/4] configuring release", "[3/4] building release", "[4/4] testing"]
        self.assertEqual(re.findall(r"^(.*?)  \d+s$", done.stderr, re.MULTILINE), names)
        self.assertEqual(done.stdout.strip(), "100% tests passed, 0 tests failed out of 2")

    def test_a_failing_test_is_shown_and_those_that_pass_are_not(self):
        self.program("ctest", "printf '%s\\n' '1/2 Test #1: a .....   Passed    0.00 sec' "
                              "'2/2 Test #2: b .....***Failed    0.00 sec' 'expected 1' '50% tests passed'; exit 8")
        done = self.run_it("test")
        self.assertEqual(done.returncode, 8)
        self.assertTrue(done.stderr.endswith("2/2 Test #2: b .....***Failed    0.00 sec\nexpected 1\n50% tests passed\n"))
        self.assertNotIn("Test #1", done.stderr)

    def test_a_build_that_fails_says_so_and_ends_all(self):
        self.program("cmake", "case $1 in --build) echo 'FAILED: x.o'; exit 1;; esac")
        done = self.run_it("test")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\[3/4\] building release: failed after [01]s\nFAILED: x.o\n\Z")

    def test_without_a_display_run_ends_with_the_paths_of_the_pictures(self):
        (self.folder / "build/release/plugin").mkdir(parents=True)
        self.program("../scripts/with-display", 'echo "taking $*"')
        done = self.run_it("run", DISPLAY="")
        self.assertEqual(done.returncode, 0, done.stderr)
        pictures = [f"{self.folder}/build/screenshots/editor-{look}.png" for look in
                    ["light-1x", "light-2x", "dark-1x", "dark-2x"]]
        self.assertEqual(done.stdout.splitlines(), pictures)
        self.assertRegex(done.stderr, r"\[4/4\] taking pictures  \d+s\n\Z")

    def test_run_fails_where_a_picture_cannot_be_taken(self):
        self.program("../scripts/with-display", "echo no display; exit 3")
        done = self.run_it("run", DISPLAY="")
        self.assertEqual(done.returncode, 3)
        self.assertTrue(done.stderr.endswith("[1/4] light 1x\nno display\n"))
        self.assertEqual(done.stdout, "")


if __name__ == "__main__":
    unittest.main()
