"""The page of "export --format html" in a browser: the mark of the hour, no request, and pictures light and dark.

HALCYON_CTL: the program. HALCYON_PICTURES: where the pictures are kept.
"""
import datetime
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from listfiles import SAMPLE_LIST, SAMPLE_USER
from web import WebServer

PICTURES = pathlib.Path(os.environ["HALCYON_PICTURES"])
COUNTER = """<script>addEventListener("load", () => document.documentElement.setAttribute("data-requests",
performance.getEntriesByType("resource").map(entry => entry.name).join(" ") || "none"));</script>"""


def hour():
    return datetime.datetime.now(datetime.timezone.utc).hour


class HtmlPage(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="k7html-", ignore_cleanup_errors=True)
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        (self.folder / "List.ini").write_bytes(SAMPLE_LIST)
        (self.folder / "User.ini").write_bytes(SAMPLE_USER)
        self.page = self.folder / "lists.html"
        subprocess.run([os.environ["HALCYON_CTL"], "--folder", self.folder, "export", "--format", "html", "-o",
                        self.page], check=True, timeout=60)

    def browse(self, page, *options):
        """What the browser prints."""
        done = subprocess.run(
            ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-background-networking",
             "--disable-component-update", "--no-first-run", f"--user-data-dir={self.folder / 'browser'}",
             "--virtual-time-budget=2000", *options, page.as_uri()],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=300, check=True)
        return done.stdout.decode("utf-8")

    def requests_of(self, html):
        page = self.folder / "counted.html"
        page.write_text(html.replace("</body>", COUNTER + "</body>"), encoding="utf-8")
        return re.search(r'data-requests="([^"]*)"', self.browse(page, "--dump-dom"))[1]

    def test_the_current_hour_is_marked(self):
        html = self.page.read_text(encoding="utf-8")
        # The page was made twelve hours ago.
        made = re.search(r'<rect id="now" x="(\d+)"(.*?) data-hour="(\d+)"', html)
        other = (int(made[3]) + 12) % 24
        self.page.write_text(html.replace(made[0], f'<rect id="now" x="{80 + 40 * other}"{made[2]} data-hour="{other}"'),
                             encoding="utf-8")
        before = hour()
        dom = self.browse(self.page, "--dump-dom")
        marked = int(re.search(r'<rect id="now" x="(\d+)"', dom)[1])
        self.assertIn(marked, [80 + 40 * before, 80 + 40 * hour()])

    def test_the_lists_are_there(self):
        dom = self.browse(self.page, "--dump-dom")
        self.assertEqual(re.findall(r"<h2>(.*?)</h2>", dom), ["DRM List", "AM List", "FM List", "Favourite"])
        self.assertEqual(dom.count("<tr>"), 14, "10 records and 4 heads")
        self.assertIn("广播", dom)
        self.assertEqual(dom.count('class="bar"'), 3)

    def test_the_page_requests_nothing(self):
        html = self.page.read_text(encoding="utf-8")
        self.assertEqual(self.requests_of(html), "none")
        server = WebServer(b"")
        self.addCleanup(server.stop)
        image = f'<img src="{server.address}">'
        self.assertEqual(self.requests_of(html.replace("</body>", image + "</body>")), server.address,
                         "a request would be seen")

    def test_the_page_is_light_or_dark(self):
        PICTURES.mkdir(parents=True, exist_ok=True)
        for name, scheme, paper in (("light", 1, "#FFFFFF"), ("dark", 0, "#14181F")):
            with self.subTest(name):
                picture = PICTURES / f"page-{name}.png"
                self.browse(self.page, f"--screenshot={picture}", "--window-size=1200,1500", "--hide-scrollbars",
                            f"--blink-settings=preferredColorScheme={scheme}")
                corner = subprocess.run(["convert", picture, "-crop", "1x1+3+3", "-depth", "8", "txt:-"], check=True,
                                        stdout=subprocess.PIPE, timeout=60).stdout.decode()
                self.assertIn(paper, corner)
                colours = subprocess.run(["convert", picture, "-depth", "8", "-unique-colors", "txt:-"], check=True,
                                         stdout=subprocess.PIPE, timeout=60).stdout.decode()
                # The bars of the timeline and the mark of the hour.
                for colour in ("#2F6FB3", "#FFE8A3") if name == "light" else ("#4D8FD6", "#4A3D12"):
                    self.assertIn(colour, colours)


if __name__ == "__main__":
    unittest.main(verbosity=2)
