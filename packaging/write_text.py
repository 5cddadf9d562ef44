#!/usr/bin/env python3
"""Fills in a man page or a completion with what a program says of itself in --help, so that neither can differ.

    write_text.py --program PROGRAM --inspect SLANTWISE_INSPECT --version VERSION SOURCE RESULT

In the source stand, for a man page (its name ends in .1.in):

    @OPTIONS@     the options, @COMMANDS@ the commands, @OPERATIONS@ the lines that a command reads, each with its text

and for a completion:

    @NAME@        the program's name, which is the result's, @FUNCTION@ a name of the shell's made from it
    @OPTIONS@     the names of the options, @COMMANDS@ those of the commands, as words
    @VALUES@      the branches of a `case` over options that take one of some words, or a file; none for those whose value
                  may be left out
    @PRESETS@     the factory presets, as words

and @VERSION@ for both.
"""
import argparse
import json
import re
import shlex
import subprocess
from pathlib import Path
from typing import NamedTuple

# The values of an option whose help has them in a sentence; where they stand as `a|b` it needs no row.
WORDS = {"--layout": ["normal", "wide", "compact"]}
LINE = re.compile(r"^  (\S+(?: \S+)*)(?:  +(.*))?$")  # what is called, two spaces, what it does


class Entry(NamedTuple):
    call: str  # "--theme light|dark", or "curve [--points N]"
    text: str

    @property
    def names(self):
        return self.call.split(" ")[0].split(",")

    @property
    def value(self):
        return self.call.partition(" ")[2]


def entries(help_text, heading):
    """What is listed below a heading of the help. A line that only goes on belongs to the one above."""
    found, inside = [], False
    for line in help_text.splitlines():
        if not line.startswith(" "):
            inside = line.startswith(heading)
        elif inside and (match := LINE.match(line)):
            found.append(Entry(match[1], match[2] or ""))
        elif inside and found:
            found[-1] = found[-1]._replace(text=f"{found[-1].text} {line.strip()}".strip())
    return found


def roff(text):
    """Text as it is: hyphens can be copied, and no line of it is a request."""
    plain = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + plain if plain[:1] in (".", "'") else plain


def paragraphs(listed):
    blocks = []
    for entry in listed:
        names = ", ".join(f"\\fB{roff(name)}\\fR" for name in entry.names)
        value = f" {roff(entry.value)}" if entry.value else ""
        blocks.append(f".TP\n{names}{value}\n{roff(entry.text)}")
    return "\n".join(blocks)


def calls(listed):
    return "\n".join(f".br\n{roff(entry.call)}" for entry in listed)


def words(values):
    return " ".join(map(shlex.quote, values))


def branches(options):
    lines = []
    for option in options:
        names = "|".join(option.names)
        choice = WORDS.get(option.names[-1]) or (option.value.split("|") if "|" in option.value else None)
        if choice:
            lines.append(f"    {names}) offered=({words(choice)}) ;;")
        elif option.value == "FILE":
            lines.append(f"    {names}) files=yes ;;")
        elif option.value and not option.value.startswith("[") and option.names != ["--preset"]:
            lines.append(f"    {names}) return ;;")
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser()
    for name in ("--program", "--inspect", "--version"):
        parser.add_argument(name, required=True)
    parser.add_argument("source", type=Path)
    parser.add_argument("result", type=Path)
    given = parser.parse_args()

    def said(*command):
        return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout

    help_text = said(given.program, "--help")
    options, commands = entries(help_text, "Options:"), entries(help_text, "Commands:")
    flags = [entry for entry in commands if entry.call.startswith("-")]
    commands = [entry for entry in commands if entry not in flags]
    marks = {"VERSION": given.version}
    if given.source.name.endswith(".1.in"):
        marks |= {"OPTIONS": paragraphs(options or flags), "COMMANDS": paragraphs(commands),
                  "OPERATIONS": calls(entries(help_text, "Operations"))}
    else:
        presets = json.loads(said(given.inspect, "description"))["presets"]
        name = given.result.name
        marks |= {"NAME": name, "FUNCTION": "_" + name.replace("-", "_"),
                  "OPTIONS": words(option for entry in options or flags for option in entry.names),
                  "COMMANDS": words(entry.names[0] for entry in commands),
                  "VALUES": branches(options), "PRESETS": words(preset["name"] for preset in presets)}
    text = re.sub(r"@([A-Z]+)@", lambda mark: marks[mark[1]], given.source.read_text())
    given.result.parent.mkdir(parents=True, exist_ok=True)
    given.result.write_text(text)


if __name__ == "__main__":
    main()
