#!/usr/bin/env python3
"""Makes the pages of the installed manual, which need no network and nothing beside them.

    write_manual.py --inspect SLANTWISE_INSPECT MANUAL.md FOLDER

FOLDER/index.html is the manual with its pictures inside it, and every parameter at the end; FOLDER/CODENAME.html leads to
a parameter's heading there: not every desktop hands the part of an address behind its "#" on to the browser when the
address is that of a file.

Of Markdown it reads what the manual is written in, and refuses anything else.
"""
import argparse
import base64
import html
import json
import re
import subprocess
from pathlib import Path

STYLE = """
:root { color-scheme: light dark; --ink: #2b2627; --quiet: #6d6364; --ground: #fbfafa; --panel: #f0eded; --line: #ddd6d6;
  --accent: #94434b; }
@media (prefers-color-scheme: dark) { :root { --ink: #e9e4e4; --quiet: #a89d9e; --ground: #1d1a1b; --panel: #292526;
  --line: #3d3738; --accent: #d98f96; } }
html { scroll-padding-top: 1rem; }
body { margin: 0 auto; padding: 2rem 1.25rem 6rem; max-width: 46rem; background: var(--ground); color: var(--ink);
  font: 1rem/1.55 Roboto, system-ui, sans-serif; overflow-wrap: break-word; }
h1 { margin: 0 0 1rem; font-size: 1.9rem; font-weight: 500; }
h2 { margin: 2.6rem 0 .8rem; padding-bottom: .3rem; border-bottom: 1px solid var(--line); font-size: 1.3rem;
  font-weight: 500; }
h3 { margin: 1.6rem 0 .2rem; font-size: 1.05rem; font-weight: 500; }
h3 + p { margin: 0; }
h3:target { color: var(--accent); border-left: 4px solid var(--accent); padding-left: .6rem; margin-left: -.85rem; }
a { color: var(--accent); }
nav ul { padding: 0; display: flex; flex-wrap: wrap; gap: .3rem 1.2rem; list-style: none; }
img { display: block; max-width: 100%; margin: 1.4rem auto; border-radius: 8px; }
code, pre { background: var(--panel); border-radius: 4px; font: .92em/1.5 "Roboto Mono", ui-monospace, monospace; }
code { padding: .1em .3em; } pre { padding: .7rem 1rem; overflow-x: auto; }
table { border-collapse: collapse; width: 100%; margin: 1rem 0; }
th, td { padding: .4rem .8rem .4rem 0; border-bottom: 1px solid var(--line); text-align: left; vertical-align: top; }
th { color: var(--quiet); font-weight: 500; }
.facts { margin: 0; color: var(--quiet); }
"""
SPANS = re.compile(r"`` ?(.+?) ?``|`([^`]+)`|\*\*(.+?)\*\*|\*([^*\s][^*]*)\*|!\[([^\]]*)\]\(([^)]+)\)|\[([^\]]+)\]\(([^)]+)\)")
UNKNOWN = re.compile(r"^(?:>|\d+\. |<|```|~~~|#{3,})")


class Markdown:
    def __init__(self, folder):
        self.folder = folder  # of the pictures
        self.headings = []    # of the second level, with their anchors

    def spans(self, text):
        def shown(found):
            quoted, code, strong, stress, what, picture, link, address = found.groups()
            if quoted or code:
                return f"<code>{html.escape(quoted or code)}</code>"
            if strong:
                return f"<strong>{self.spans(strong)}</strong>"
            if stress:
                return f"<em>{self.spans(stress)}</em>"
            if picture:
                data = base64.b64encode((self.folder / picture).read_bytes()).decode()
                return f'<img alt="{html.escape(what)}" src="data:image/png;base64,{data}">'
            return f'<a href="{html.escape(address)}">{self.spans(link)}</a>'

        parts, end = [], 0
        for found in SPANS.finditer(text):
            parts += [html.escape(text[end:found.start()], quote=False), shown(found)]
            end = found.end()
        return "".join(parts) + html.escape(text[end:], quote=False)

    def heading(self, text):
        anchor = re.sub(r"[^a-z0-9]+", "-", text.lower()).strip("-")
        self.headings.append((anchor, text))
        return f'<h2 id="{anchor}">{self.spans(text)}</h2>'

    def table(self, lines):
        def cells(line, kind):
            return "<tr>" + "".join(f"<{kind}>{self.spans(cell.strip())}</{kind}>"
                                    for cell in line.strip().strip("|").split("|")) + "</tr>"

        if len(lines) < 3 or not re.fullmatch(r"[|\-: ]+", lines[1]):
            raise ValueError(f"not a table: {lines[0]}")
        return "<table>" + cells(lines[0], "th") + "".join(cells(line, "td") for line in lines[2:]) + "</table>"

    def block(self, text):
        lines = text.split("\n")
        first = lines[0]
        if first.startswith("    "):
            return "<pre>" + html.escape("\n".join(line[4:] for line in lines), quote=False) + "</pre>"
        if UNKNOWN.match(first):
            raise ValueError(f"the manual is not written in this: {first}")
        if first.startswith("# "):
            return f"<h1>{self.spans(first[2:])}</h1>"
        if first.startswith("## "):
            return self.heading(first[3:])
        if first.startswith("|"):
            return self.table(lines)
        if first.startswith("- "):
            items = re.split(r"\n- ", "\n" + text)[1:]
            return "<ul>" + "".join(f"<li>{self.spans(' '.join(item.split()))}</li>" for item in items) + "</ul>"
        return f"<p>{self.spans(' '.join(text.split()))}</p>"

    def page(self, text):
        blocks = re.split(r"\n{2,}", text.strip("\n"))
        return [self.block(block) for block in blocks]


def number(value):
    return f"{value:g}".replace("-", "\u2212")


def facts(parameter):
    """Its range, or its values by name, and its initial value; empty for what can be set neither by hand nor in a menu."""
    names, unit = parameter["stringValues"], parameter["unitSymbol"]
    if names:
        return f"{', '.join(names)}; initially {names[int(parameter['initialValue'])]}"
    width = parameter["frame"][2]
    return (f"{number(parameter['minValue'])} to {number(parameter['maxValue'])} {unit}; "
            f"initially {number(parameter['initialValue'])}") if width else ""


def parameters_section(markdown, description):
    parts = [markdown.heading("Every parameter")]
    for parameter in description["parameters"]:
        known = facts(parameter)
        parts.append(f"<h3 id=\"{parameter['codesafeName']}\">{html.escape(parameter['name'])}</h3>"
                     f"<p>{html.escape(parameter['purpose'])}</p>" + (f'<p class="facts">{known}</p>' if known else ""))
    return parts


def manual(source, description):
    markdown = Markdown(source.parent)
    title, *rest = markdown.page(source.read_text()) + parameters_section(markdown, description)
    contents = "".join(f'<li><a href="#{anchor}">{html.escape(text)}</a></li>' for anchor, text in markdown.headings)
    metadata = description["metadata"]
    return (f"<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            f"<meta name=\"version\" content=\"{metadata['version']}\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            f"<title>{metadata['pluginName']} {metadata['version']}</title>\n<style>{STYLE}</style>\n</head>\n<body>\n"
            + "\n".join([title, f"<nav><ul>{contents}</ul></nav>", *rest]) + "\n</body>\n</html>\n")


def signpost(codename):
    target = f"index.html#{codename}"
    return ("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            f"<meta http-equiv=\"refresh\" content=\"0; url={target}\">\n<title>{codename}</title>\n</head>\n"
            f"<body><a href=\"{target}\">{codename}</a></body>\n</html>\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--inspect", required=True)
    parser.add_argument("source", type=Path)
    parser.add_argument("folder", type=Path)
    given = parser.parse_args()
    said = subprocess.run([given.inspect, "description"], check=True, stdout=subprocess.PIPE, text=True).stdout
    description = json.loads(said)
    given.folder.mkdir(parents=True, exist_ok=True)
    for parameter in description["parameters"]:
        name = parameter["codesafeName"]
        (given.folder / f"{name}.html").write_text(signpost(name))
    (given.folder / "index.html").write_text(manual(given.source, description))


if __name__ == "__main__":
    main()
