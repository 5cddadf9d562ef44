"""packaging/write_manual.py on small manuals made up for it, and on the manual as it is."""
import json
import re
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
PROGRAM = TOP / "packaging/write_manual.py"
DESCRIPTION = {
    "metadata": {"pluginName": "Slantwise", "version": "9.8.7"},
    "parameters": [
        {"codesafeName": "TiltGain", "name": "Tilt Gain", "purpose": "How much <it> leans.", "stringValues": [],
         "minValue": -18, "maxValue": 18, "initialValue": 0, "unitSymbol": "dB", "frame": [0, 0, 60, 20]},
        {"codesafeName": "Quality", "name": "Quality", "purpose": "Finer.", "stringValues": ["Off", "On"],
         "minValue": 0, "maxValue": 1, "initialValue": 1, "unitSymbol": "", "frame": [0, 0, 0, 0]},
        {"codesafeName": "Link", "name": "Link", "purpose": "Ties.", "stringValues": [],
         "minValue": 10, "maxValue": 20, "initialValue": 0, "unitSymbol": "", "frame": [0, 0, 0, 0]},
    ],
}
PICTURE = b"\x89PNG\r\n\x1a\n"
VOID = {"meta", "img"}


class Tags(HTMLParser):
    """What a page has, and that every element is closed where it must be."""

    def __init__(self, page):
        super().__init__()
        self.open, self.anchors, self.addresses = [], [], []
        self.feed(page)
        assert not self.open, self.open

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.anchors += [values["id"]] if "id" in values else []
        self.addresses += [values[name] for name in ("href", "src") if name in values]
        if tag not in VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open and self.open.pop() == tag, tag


class ManualTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        (self.folder / "images").mkdir()
        (self.folder / "images/a.png").write_bytes(PICTURE)
        inspect = self.folder / "inspect"
        inspect.write_text(f"#!/bin/sh\ncat <<'END'\n{json.dumps(DESCRIPTION)}\nEND\n")
        inspect.chmod(0o755)

    def run_it(self, text):
        source = self.folder / "MANUAL.md"
        source.write_text(text)
        return subprocess.run([sys.executable, PROGRAM, "--inspect", self.folder / "inspect", source,
                               self.folder / "pages"], capture_output=True, text=True)

    def page(self, text, name="index"):
        done = self.run_it(text)
        self.assertEqual(done.returncode, 0, done.stderr)
        return (self.folder / f"pages/{name}.html").read_text()

    def test_what_the_manual_is_written_in(self):
        page = self.page("# Title\n\nOne *two*\n**three** `a<b` ``` ` ```\n\n## What is where\n\n- one\n  more\n- two\n\n"
                         "    a  <b>\n    c\n\n| key | does |\n|---|---|\n| `-` | x & y |\n".replace("``` ` ```", "**`**"))
        for part in ("<h1>Title</h1>", "<p>One <em>two</em> <strong>three</strong> <code>a&lt;b</code>",
                     '<h2 id="what-is-where">What is where</h2>', "<ul><li>one more</li><li>two</li></ul>",
                     "<pre>a  &lt;b&gt;\nc</pre>", "<tr><th>key</th><th>does</th></tr>",
                     "<tr><td><code>-</code></td><td>x &amp; y</td></tr>"):
            self.assertIn(part, page)
        Tags(page)

    def test_every_parameter_has_a_heading_with_what_it_does(self):
        page = self.page("# Title\n")
        self.assertEqual(Tags(page).anchors, ["every-parameter", "TiltGain", "Quality", "Link"])
        self.assertIn("How much &lt;it&gt; leans.", page)
        self.assertIn("\u221218 to 18 dB; initially 0<", page)
        self.assertIn("<p>Ties.</p>\n", page)
        self.assertIn("Off, On; initially On<", page)

    def test_a_page_for_a_parameter_leads_to_its_heading(self):
        page = self.page("# Title\n", "TiltGain")
        self.assertIn('content="0; url=index.html#TiltGain"', page)
        self.assertEqual(Tags(page).addresses, ["index.html#TiltGain"])

    def test_the_version_stands_at_the_beginning(self):
        self.assertIn('<meta name="version" content="9.8.7">', self.page("# Title\n")[:512])

    def test_a_picture_is_in_the_page(self):
        page = self.page("# Title\n\n![What it <shows>](images/a.png)\n")
        self.assertIn('<img alt="What it &lt;shows&gt;" src="data:image/png;base64,iVBORw0KGgo=">', page)

    def test_anything_else_is_refused(self):
        for text in ("# T\n\n> quoted\n", "# T\n\n1. one\n", "# T\n\n### Third\n", "# T\n\n<b>bold</b>\n",
                     "# T\n\n| a table\n", "# T\n\n![none](images/none.png)\n"):
            self.assertNotEqual(self.run_it(text).returncode, 0, text)

    def test_the_manual_as_it_is_needs_nothing_beside_it(self):
        done = subprocess.run([sys.executable, PROGRAM, "--inspect", self.folder / "inspect", TOP / "docs/MANUAL.md",
                               self.folder / "pages"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)
        page = (self.folder / "pages/index.html").read_text()
        tags = Tags(page)
        self.assertEqual(len(tags.anchors), len(set(tags.anchors)))
        for address in tags.addresses:
            if not address.startswith("data:image/png;base64,"):
                self.assertIn(address.removeprefix("#"), tags.anchors)
        self.assertGreaterEqual(sum(address.startswith("data:") for address in tags.addresses), 5)
        text = re.sub(r"<(pre|code|style)>.*?</\1>", "", page, flags=re.DOTALL)
        self.assertEqual(re.findall(r".{20}(?:\*|\]\()", text), [])


if __name__ == "__main__":
    unittest.main()
