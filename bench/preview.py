#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints how soon the preview answers, the best of several times: the first page from the start of the program, a page of
1,000 rows beyond what its query takes, and a branch of 10,000 nodes.

    bench/preview.py PROGRAM    PROGRAM is pelmo-scheme
"""
import json
import pathlib
import re
import sqlite3
import sys
import tempfile
import time
import urllib.request

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/preview"))
import browser  # noqa: E402
import shop  # noqa: E402

ROUNDS = 7


class Asker:
    """Asks over one connection after the other, with the cookie."""

    def __init__(self, preview):
        self.base = preview.base.rstrip("/")
        key, port = preview.address.split("key=")[1], self.base.split(":")[-1]
        self.headers = {"Cookie": f"pelmo_preview_{port}={key}", "Origin": self.base}
        self.opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))

    def ask(self, path, node=None):
        body = json.dumps(node).encode() if node else None
        start = time.perf_counter()
        with self.opener.open(urllib.request.Request(self.base + path, body, self.headers), timeout=60) as answer:
            return answer.read().decode(), (time.perf_counter() - start) * 1000


def first_page(folder):
    start = time.perf_counter()
    with browser.Preview(folder) as preview:
        Asker(preview).ask("/")
        took = (time.perf_counter() - start) * 1000
        schedule = pathlib.Path(f"/proc/{preview.process.pid}/schedstat").read_text()
        return took, int(schedule.split()[0]) / 1e6


def many(folder):
    numbers = "WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < {}) SELECT n AS ID, "
    database = sqlite3.connect(folder / "shop.db")
    database.executescript(f"CREATE VIEW spG_Many AS {numbers.format(10000)} 'Node ' || n AS name FROM N; CREATE VIEW spW_Many AS "
                           f"{numbers.format(1000)} 'Row ' || n AS a, n * 1.5 AS b, n * 2 AS c, 'text' AS d FROM N;")
    database.close()
    (folder / "XST1.txt").write_text('1,"Root","F",0,"","","",""\n2,"Many","G",1,"spG_Many","","",""\n3,"x","N",2,"","","",""\n')
    (folder / "XST2.txt").write_text('1,1,1,"Rows","spW_Many","","S",0,"2:3",""\n')


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shop.load(folder)
        rounds = [first_page(folder) for _ in range(ROUNDS)]
        print(f"first page of the sample, from the start of the program: {min(rounds)[0]:.0f} ms, of which the program "
              f"computes {min(computing for _, computing in rounds):.0f} ms")
        many(folder)
        with browser.Preview(folder) as preview:
            asker = Asker(preview)
            beyond, branch = [], []
            for _ in range(ROUNDS):
                page, took = asker.ask("/page", {"n": 1, "k": "0", "t": "Root", "g": False})
                beyond.append(took - float(re.search(r"<dt>Time</dt><dd>([\d.]+) ms", page)[1]))
                text, took = asker.ask("/branch", {"n": 2, "k": "0", "t": "Many", "g": False})
                branch.append(took)
            print(f"page of 1,000 rows ({len(page):,} bytes), beyond its query: {min(beyond):.0f} ms")
            print(f"branch of {len(json.loads(text)['nodes']):,} nodes, with its query: {min(branch):.0f} ms")


if __name__ == "__main__":
    main()
