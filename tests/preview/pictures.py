#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Takes pictures of the preview of the sample shop, as on 5 March 2026.

    pictures.py PROGRAM                  retakes the pictures of the help, in help/pictures
    pictures.py PROGRAM --look FOLDER    takes ten pages in both colour schemes and three widths
"""
import pathlib
import sqlite3
import struct
import subprocess
import sys
import tempfile
import zlib

import browser
import chromium
import shop

HELP = pathlib.Path(__file__).parents[2] / "help/pictures"

# The way to ten pages, from below the root.
PAGES = {
    "front": [], "glance": ["Hire desk", "Today at a glance"], "type": ["Hire desk", "Bicycles by type", "City, low step"],
    "bicycle": ["Hire desk", "Bicycles by type", "City, low step", "CTL 004"], "free": ["Hire desk", "Free bicycles by style"],
    "late": ["Hire desk", "Hires more than two days late"], "claims": ["Workshop", "Warranty claims"],
    "photos": ["Fleet", "Photo wall of the fleet"], "takings": ["Accounts", "Takings by year", "2026"],
    "staff": ["Staff", "Holiday calendar"],
}


def png(width, height, shade):
    """A picture with a wheel in it, for the photos that the shop does not have."""
    rows = b""
    for y in range(height):
        rows += b"\0"
        for x in range(width):
            away = ((x - width / 2) ** 2 + (y - height / 2) ** 2) ** 0.5 / height
            rows += bytes([70, 90, shade] if 0.32 < away < 0.38 or away < 0.04 else [225, 230, 235])
    def piece(kind, data):
        return struct.pack("!I", len(data)) + kind + data + struct.pack("!I", zlib.crc32(kind + data))
    return (b"\x89PNG\r\n\x1A\n" + piece(b"IHDR", struct.pack("!IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            piece(b"IDAT", zlib.compress(rows)) + piece(b"IEND", b""))


def load(folder):
    """The shop of that day, with photos of some of its bicycles."""
    shop.load(folder)
    database = sqlite3.connect(folder / "shop.db")
    photos = folder / "pictures"
    database.execute("UPDATE Shop SET pictureFolder = ?", (f"{photos}/",))
    database.commit()
    database.close()
    for name in ("bicycles", "types", "staff"):
        (photos / name).mkdir(parents=True)
    for number in range(1, 87):
        if number % 9 != 5:
            (photos / f"bicycles/{number}.jpg").write_bytes(png(120, 90, 60 + number))
    for view in (1, 2):
        (photos / f"types/CTL-{view}.jpg").write_bytes(png(160, 120, 90 * view))


def go(viewer, names):
    for name in names:
        viewer.click([item[1] for item in viewer.items()].index(name))


def look(folder, pages, preview, target):
    for width, height in ((360, 780), (1440, 900), (2560, 1440)):
        for scheme in ("light", "dark"):
            viewer = browser.Viewer(pages, preview)
            viewer.page.look(width, height, scheme)
            for name, way in PAGES.items():
                viewer.page.run("sessionStorage.clear()")
                viewer.page.call("Page.reload")
                viewer.page.wait("document.readyState === 'complete'")
                viewer.settle()
                go(viewer, way)
                if width < 700:
                    viewer.page.run("document.querySelector('#page').scrollIntoView()")
                wide = viewer.page.run("document.documentElement.scrollWidth - document.documentElement.clientWidth")
                viewer.page.picture(target / f"{name}-{width}-{scheme}.png")
                print(f"{name}-{width}-{scheme}.png" + (f": {wide} pixels too wide" if wide > 0 else ""))


def small_picture(viewer, name):
    """With few colours, so that the help stays small; needs ImageMagick."""
    viewer.page.run("document.querySelector('#status').textContent = ''")
    viewer.page.picture(HELP / name)
    subprocess.run(["convert", HELP / name, "-dither", "None", "-colors", "64", f"PNG8:{HELP / name}"], check=True)


def for_help(folder, pages, preview):
    viewer = browser.Viewer(pages, preview)
    viewer.page.look(900, 560)
    go(viewer, ["Customers", "Customers by initial letter", "A", "Abbott, Jonas"])
    viewer.page.run("document.querySelector('nav').scrollTop = 150")
    small_picture(viewer, "preview-page.png")
    viewer.page.look(900, 620)
    text = (folder / "XST2.txt").read_bytes()
    (folder / "XST2.txt").write_bytes(text.replace(b'"spW_HireHead"', b'"spW_HireHaed"'))
    viewer.page.wait("document.querySelector('#status').textContent.startsWith('Read again')")
    go(viewer, ["Hire desk", "Hires going out today"])
    viewer.click(next(place for place, item in enumerate(viewer.items()) if " at 9:00" in item[1]))
    viewer.page.run("document.querySelectorAll('details')[1].open = true")
    small_picture(viewer, "preview-query.png")


def main():
    target = pathlib.Path(sys.argv[sys.argv.index("--look") + 1]) if "--look" in sys.argv else None
    with tempfile.TemporaryDirectory() as name, chromium.Chromium() as pages:
        folder = pathlib.Path(name)
        load(folder)
        with browser.Preview(folder, "sqlite:shop.db") as preview:
            if target:
                target.mkdir(exist_ok=True)
                look(folder, pages, preview, target)
            else:
                for_help(folder, pages, preview)


if __name__ == "__main__":
    main()
