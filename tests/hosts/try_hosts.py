"""Tries the built plug-ins in hosts of others and prints a table: try_hosts.py BUILD PICTURES [HOST...]."""
import datetime
import os
import subprocess
import sys
import time
from pathlib import Path

from ardour import ArdourLv2, ArdourVst3
from jalv import Jalv
from qtractor import Qtractor
from trial import Trial

TRIALS = {"ardour": (ArdourLv2, ArdourVst3), "qtractor": (Qtractor,), "jalv": (Jalv,)}


class Jack:
    """A sound server that plays to nothing, for as long as the hosts need one."""

    def __enter__(self):
        self.name = f"slantwise-hosts-{os.getpid()}"
        self.process = subprocess.Popen(["jackd", "-n", self.name, "-r", "-m", "-d", "dummy", "-r", "48000", "-p", "2048"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(2)
        if self.process.poll() is not None:
            sys.exit("try-hosts: jackd does not start")
        return self.name

    def __exit__(self, *_):
        if self.process.poll() is not None:
            sys.exit("try-hosts: jackd has ended on its own; what was seen after that says nothing")
        self.process.terminate()
        self.process.wait()


def table(trials):
    """The results as a table, and under it why where something is not as it should be."""
    notes = []
    def cell(trial, step):
        result = trial.results[step]
        if result == "yes":
            return "yes"
        word, _, why = result.partition(": ")
        if why not in notes:
            notes.append(why)
        return f"{word} ({notes.index(why) + 1})"
    heads = [f"{trial.host}, {trial.format}" for trial in trials]
    lines = [f"| | {' | '.join(heads)} |", "|---|" + "---|" * len(heads)]
    lines += [f"| {step} | {' | '.join(cell(trial, step) for trial in trials)} |" for step in Trial.STEPS]
    return "\n".join(lines + [""] + [f"{i + 1}. {why}" for i, why in enumerate(notes)])


def main(build, pictures, *hosts):
    Path(pictures).mkdir(parents=True, exist_ok=True)
    trials = []
    with Jack() as server:
        for host in hosts or TRIALS:
            for kind in TRIALS[host]:
                trial = kind(build, server, pictures)
                trial.run()
                trials.append(trial)
    print(f"\n{datetime.date.today()}\n\n{table(trials)}")
    return any(result.startswith("no") for trial in trials for result in trial.results.values())


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
