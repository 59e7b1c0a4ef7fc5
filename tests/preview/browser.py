#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks at the preview with a real browser, and uses it with the keyboard alone.

    browser.py PROGRAM [--all] [CHECK...]

PROGRAM is pelmo-scheme. Without --all, of the nodes that a query made only three are visited, and one on a server;
every node and paragraph of the scheme is. Prints a line for each check; fails if one fails, and is skipped (77) where
Chromium is missing.
"""
import html
import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import traceback

import chromium
import servers
import shop

PROGRAM = os.path.abspath(sys.argv[1])
WITH_ALL = "--all" in sys.argv

# What the page shows, section by section.
SECTIONS = """[...document.querySelectorAll('#page section')].map(section => {
    const text = (at) => at ? at.textContent : '';
    const all = (selector, within = section) => [...within.querySelectorAll(selector)];
    const record = section.querySelector('.record');
    const table = section.querySelector('table.rows, table.chapters');
    const bar = (at) => at.getBoundingClientRect().width;
    const share = (at) => [['t', 100], ['o', 10], ['p', 1]].reduce((sum, [letter, value]) =>
        sum + value * Number([...at.classList].find((name) => RegExp('^' + letter + '[0-9]').test(name)).slice(1)), 0);
    return {
        id: section.id, title: text(section.querySelector('h2')), text: section.textContent,
        error: text(section.querySelector('.error')), notes: all('.note').map(text),
        record: record ? all('dl > div', record).map((row) => [text(row.children[0]), text(row.children[1])]) : [],
        pictures: all('.record img').filter((image) => image.complete && image.naturalWidth > 0).length,
        form: text(section.querySelector('.form a')),
        isChapters: Boolean(section.querySelector('table.chapters')),
        table: table ? all('thead tr, tbody tr', table).map((row) => [...row.cells].map(text)) : [],
        sums: table ? all('tfoot tr', table).map((row) => [...row.cells].map(text)) : [],
        bars: all('.bars tr').map((row) => [text(row.cells[0]), text(row.querySelector('.value'))]),
        shares: all('.bar').map(share), widths: all('.bar').map(bar),
        thumbnails: all('.thumbnails li > span:last-child').map(text),
        query: text(section.querySelector('details')),
    };
})"""

# What the tree shows: level, text, whether it is open ("-", "+", " "), whether it is selected.
ITEMS = """[...document.querySelectorAll('#tree [role=treeitem]')].map((item) => [Number(item.ariaLevel),
    item.querySelector('.text').textContent, {true: '-', false: '+', null: ' '}[item.ariaExpanded],
    item.ariaSelected === 'true'])"""


class Skipped(Exception):
    pass


class Preview:
    """The program, on a folder with XST1.txt, XST2.txt and a database."""

    def __init__(self, folder, address="sqlite:shop.db", *options, today=("--today", shop.DAY)):
        self.log = open(folder / "log", "w+")
        self.started = time.monotonic()
        self.process = subprocess.Popen([PROGRAM, "preview", "XST1.txt", "XST2.txt", "--db", address, "--no-browser",
                                         *today, *options], cwd=folder, stdout=subprocess.PIPE, stderr=self.log, text=True)
        self.address = self.process.stdout.readline().strip()
        if not self.address.startswith("http://127.0.0.1:"):
            raise ConnectionError(self.address + (folder / "log").read_text())
        self.base = self.address.split("?")[0]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.send_signal(signal.SIGINT)
        code = self.process.wait(chromium.PATIENCE)
        self.process.stdout.close()
        self.log.close()
        if code != 0:
            raise AssertionError(f"the preview ends with {code} after Ctrl+C")


SIZE = (1200, 900)


class Viewer:
    """A page of the browser with the preview in it."""

    def __init__(self, browser, preview):
        self.page, self.base = browser.page(), preview.base
        self.page.call("Page.bringToFront")  # others have slow timers
        self.page.look(*SIZE)
        self.page.open(preview.address)
        self.settle()

    def settle(self):
        self.page.wait("document.querySelector('#tree [aria-level=\"2\"], #tree .more') && "
                       "!document.querySelector('[aria-busy=true]') && "
                       "!document.querySelector('#tree [role=group]:empty') && [...document.images].every(i => i.complete)")

    def items(self):
        return self.page.run(ITEMS)

    def sections(self):
        return self.page.run(SECTIONS)

    def click(self, number):
        """Clicks an item, by its number in the tree, and waits for its page and its branch."""
        self.page.run(f"""(() => {{ window.before = document.querySelector('#page').firstElementChild;
            document.querySelectorAll('#tree [role=treeitem]')[{number}].querySelector('.text').click() }})()""")
        self.page.wait("document.querySelector('#page').firstElementChild !== window.before")
        self.settle()

    def close(self, number):
        self.page.run(f"document.querySelectorAll('#tree [role=treeitem]')[{number}].querySelector('.sign').click()")

    def focused(self):
        return self.page.run("document.activeElement.querySelector?.('.text')?.textContent ?? document.activeElement.tagName")

    def press(self, *keys):
        for key in keys:
            self.page.press(key)
            self.settle()

    def too_wide(self):
        """By how many pixels the page is wider than a small telephone."""
        self.page.look(360, 780)
        pixels = self.page.run("document.documentElement.scrollWidth - document.documentElement.clientWidth")
        self.page.look(*SIZE)
        return pixels

    def faults(self):
        """What nothing that this browser did may have caused."""
        yield from (f"the console says {line}" for line in self.page.console)
        yield from (f"asked elsewhere: {url}" for url in self.page.requests if not url.startswith(self.base))


class Checks:
    def __init__(self, browser, folder):
        self.browser, self.folder = browser, folder

    def expect(self, found, wanted, what):
        if found != wanted:
            raise AssertionError(f"{what}: {found!r} instead of {wanted!r}")

    def new_folder(self):
        return pathlib.Path(tempfile.mkdtemp(dir=self.folder))

    # --- the sample shop ---

    def every_node_and_page_of_the_shop(self):
        folder = self.new_folder()
        shop.load(folder)
        before = (folder / "shop.db").read_bytes()
        self.walk(folder, "sqlite:shop.db", lambda count: {0, count // 2, count - 1})
        self.expect((folder / "shop.db").read_bytes() == before, True, "the database is as it was")

    def the_shop_in_postgresql(self):
        self.in_server(servers.PostgreSQL, "postgresql")

    def the_shop_in_mariadb(self):
        self.in_server(servers.MariaDB, "mariadb-server-core")

    def the_shop_over_odbc(self):
        self.in_server(servers.PostgreSQLOverODBC, "postgresql or odbc-postgresql")

    def in_server(self, server_class, package):
        if not server_class.folder_of_programs():
            raise Skipped(f"{package} is not installed")
        folder = self.new_folder()
        shop.load(folder)
        with server_class(folder) as server:
            self.walk(folder, server.address, lambda count: {count // 2}, server.undoes)

    def walk(self, folder, address, chosen, runs_actions=True):
        """Visits the pages; chosen gives the places to visit among as many generated nodes."""
        self.chosen, self.runs_actions = chosen, runs_actions
        self.shop = shop.Shop(folder / "shop.db")
        self.seen, self.wrong, self.largest, self.chapters = set(), [], 0, set()
        self.count = 0
        with Preview(folder, address) as preview:
            viewer = Viewer(self.browser, preview)
            self.visit(viewer, 0, "1", "0", "Data Browser")
            self.wrong += viewer.faults()
        self.expect(self.wrong, [], "faults")
        self.expect(self.seen, {f"paragraph-{number}" for number in range(1, 106)}, "paragraphs that were seen")
        self.expect(self.largest < 50 * 1024, True, f"the largest page has {self.largest} bytes, less than 50 KB")
        self.expect(self.chapters, set(shop.OUTER), "queries that were shown in chapters")
        print(f"   {self.count} pages, the largest of {self.largest} bytes")

    def visit(self, viewer, at, node, key, text):
        """Looks at the page of the item with this number in the tree, then goes down."""
        viewer.click(at)
        self.count += 1
        self.largest = max(self.largest, viewer.page.run("document.querySelector('#page').innerHTML.length"))
        if (pixels := viewer.too_wide()) != 0:
            self.wrong.append(f"{text}: {pixels} pixels too wide")
        sections = viewer.sections()
        wanted = self.shop.page(node, key, text, self.runs_actions)
        self.expect([section["id"] for section in sections], [f"paragraph-{row['ID']}" for row, _, _ in wanted], text)
        for section, (paragraph, fields, rows) in zip(sections, wanted):
            self.seen.add(section["id"])
            if section["isChapters"]:
                self.chapters.add(paragraph["queryIs"])
            for fault in shop.faults_of_section(section, paragraph, fields, rows, text, self.runs_actions):
                self.wrong.append(f"{text}, paragraph {paragraph['ID']}: {fault}")
        record = self.shop.nodes[node]
        children = [row["ID"] for row in self.shop.nodes.values() if row["parentIs"] == node]
        if record["typeIs"] in "GR":
            below = [(children[0] if record["typeIs"] == "G" else node, *row) for row in self.shop.below(node, key, text)]
        else:
            below = [(child, "0", self.shop.nodes[child]["descriptionIs"]) for child in children]
        items = viewer.items()
        level = items[at][0]
        end = next((i for i in range(at + 1, len(items)) if items[i][0] <= level), len(items))
        self.expect([item[1] for item in items[at + 1:end] if item[0] == level + 1], [name for _, _, name in below],
                    f"below {text}")
        every = record["typeIs"] == "F" or WITH_ALL
        for place in reversed([place for place in range(len(below)) if every or place in self.chosen(len(below))]):
            self.visit(viewer, at + 1 + place, *below[place])
        if at > 0 and items[at][2] == "-":
            viewer.close(at)

    def today_is_the_day_of_this_computer(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder, today=()) as preview:
            viewer = Viewer(self.browser, preview)
            before = time.strftime("%d-%b-%Y")
            for name in ("Hire desk", "Hires going out today"):
                viewer.click([item[1] for item in viewer.items()].index(name))
            query = viewer.sections()[0]["query"]
            self.expect(any("Its value" + day in query for day in (before, time.strftime("%d-%b-%Y"))), True, query)

    # --- the keyboard, and what is spoken ---

    def the_tree_by_keyboard_alone(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            press, at = viewer.press, viewer.focused
            press("Tab")
            self.expect(viewer.page.run("document.activeElement.textContent"), "Skip to the page", "first stop")
            press("Tab")
            self.expect(at(), "Data Browser", "second stop")
            press("ArrowDown")
            self.expect(at(), "Hire desk", "down")
            press("ArrowRight")
            self.expect((at(), viewer.items()[1][2]), ("Hire desk", "-"), "right opens")
            press("ArrowRight")
            self.expect(at(), "Today at a glance", "right goes in")
            press("ArrowRight")
            self.expect(at(), "Today at a glance", "right on a leaf stays")
            press("ArrowLeft")
            self.expect(at(), "Hire desk", "left goes out")
            press("ArrowLeft")
            self.expect((at(), viewer.items()[1][2]), ("Hire desk", "+"), "left closes")
            press("End")
            self.expect(at(), "Staff", "end")
            press("ArrowUp")
            self.expect(at(), "Accounts", "up")
            press("ArrowDown", "ArrowDown")
            self.expect(at(), "Staff", "down on the last one stays")
            press("Home")
            self.expect(at(), "Data Browser", "home")
            press("ArrowUp")
            self.expect(at(), "Data Browser", "up on the first one stays")
            press("s", "t", "a")
            self.expect(at(), "Staff", "typing: the next one that begins so, after Stock")
            time.sleep(0.7)
            press("s")
            self.expect(at(), "Stock", "typing goes round")
            press("Enter")
            viewer.page.wait("document.querySelector('h1').textContent === 'Stock'")
            self.expect((at(), [item for item in viewer.items() if item[3]][0][1]), ("Stock", "Stock"), "Enter selects")
            press("ArrowRight", "ArrowDown", "ArrowDown", " ")
            viewer.page.wait("document.querySelector('h1').textContent === 'Suppliers'")
            press("ArrowRight", "*")
            viewer.page.wait("document.querySelectorAll('#tree [aria-level=\"4\"][aria-expanded=true]').length === 6")
            stops = []
            for _ in range(30):
                press("Tab")
                stops.append(viewer.page.run("document.activeElement.tagName + document.activeElement.className"))
                if stops[-1].startswith("BODY"):
                    break
            self.expect("SUMMARY" in stops, True, f"Tab reaches the query: {stops}")
            self.expect(sum(stop.startswith("LI") for stop in stops), 0, "the tree is one stop")
            self.expect(list(viewer.faults()), [], "faults")

    def what_a_screen_reader_is_told(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            viewer.click(1)
            viewer.page.call("Accessibility.enable")
            tree = viewer.page.call("Accessibility.getFullAXTree")["nodes"]
            said = []
            for node in tree:
                role = node.get("role", {}).get("value")
                if node.get("ignored") or role in ("none", "generic", "InlineTextBox", "StaticText", "RootWebArea"):
                    continue
                properties = {row["name"]: row["value"].get("value") for row in node.get("properties", [])}
                words = f"{role} {node.get('name', {}).get('value', '')!r}"
                if role == "treeitem":
                    words += f" level {properties.get('level')}"
                    words += {True: " open", False: " closed"}.get(properties.get("expanded"), "")
                    words += " selected" if properties.get("selected") else ""
                said.append(words)
            for words in ["tree 'Nodes'", "treeitem 'Data Browser' level 1 open", "treeitem 'Hire desk' level 2 open selected",
                          "treeitem 'Today at a glance' level 3", "treeitem 'Workshop' level 2 closed", "navigation 'Tree'",
                          "main ''", "heading 'Hire desk'", "heading 'Opening hours and hire rates'",
                          "link 'Skip to the page'", "status ''"]:
                self.expect(words in said, True, f"{words} among {said}")
            self.expect(sum(words.startswith("treeitem 'Cargo") for words in said), 0, "closed branches are not spoken")
            viewer.click(2)
            said = [node.get("name", {}).get("value") for node in viewer.page.call("Accessibility.getFullAXTree")["nodes"]
                    if not node.get("ignored")]
            for words in ("Out by Hour", "9:00", "Hour"):
                self.expect(words in said, True, f"{words!r} in the page")

    # --- what is remembered, and read again ---

    def what_is_open_is_remembered(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            viewer.click(1)
            viewer.click([item[1] for item in viewer.items()].index("Bicycles by type"))
            viewer.click([item[1] for item in viewer.items()].index("City, low step"))
            before = viewer.items()
            viewer.page.call("Page.reload")
            viewer.page.wait("document.querySelectorAll('[role=treeitem]').length === " + str(len(before)))
            viewer.settle()
            self.expect(viewer.items(), before, "the tree after a reload")
            viewer.page.wait("document.querySelector('h1').textContent === 'City, low step'")
            self.expect(list(viewer.faults()), [], "faults")

    def a_save_shows_at_once(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            viewer.click(1)
            old = (folder / "XST2.txt").read_bytes()
            for round_, title in enumerate([b"First change", b"Second change"]):
                changed = old.replace(b"Opening hours and hire rates", title)
                if round_ == 0:  # as a program that replaces the file
                    (folder / "new").write_bytes(changed)
                    os.replace(folder / "new", folder / "XST2.txt")
                else:
                    (folder / "XST2.txt").write_bytes(changed)
                viewer.page.wait(f"document.querySelector('h2').textContent === {title.decode()!r}")
                self.expect([item for item in viewer.items() if item[3]][0][1], "Hire desk", "the selected node")
            nodes = (folder / "XST1.txt").read_bytes()
            (folder / "XST1.txt").write_bytes(nodes.replace(b"Hire desk", b"Front desk"))
            viewer.page.wait("[...document.querySelectorAll('.text')].some(at => at.textContent === 'Front desk')")
            os.remove(folder / "XST1.txt")
            viewer.page.wait("(document.querySelector('#page .error')?.textContent ?? '').startsWith('XST1.txt: there is no')")
            (folder / "XST1.txt").write_bytes(nodes)
            viewer.page.wait("!document.querySelector('#page .error')")
            self.expect(list(viewer.faults()), [], "faults")

    def findings_stand_beside_what_they_are_about(self):
        folder = self.new_folder()
        shop.load(folder)
        text = (folder / "XST2.txt").read_bytes()
        (folder / "XST2.txt").write_bytes(text.replace(b'"spW_HireRates"', b'"spW_HireRatse"'))
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            viewer.page.wait("document.querySelector('.flawed')")
            self.expect(viewer.page.run("[...document.querySelectorAll('.flawed > .row')].map(at => at.textContent)"),
                        ["Hire desk"], "marked nodes")
            self.expect(viewer.page.run("document.querySelector('.flawed').getAttribute('aria-description')"),
                        "with findings", "what is spoken")
            viewer.click(1)
            self.expect(viewer.page.run("document.querySelector('.findings').parentElement.querySelector('h2').textContent"),
                        "Opening hours and hire rates", "the paragraph with the finding")
            self.expect("spW_HireRatse" in viewer.page.run("document.querySelector('.findings').textContent"), True, "its words")
            viewer.click(1)
            viewer.page.wait("document.querySelector('.findings')")
            database = sqlite3.connect(folder / "shop.db", isolation_level=None)
            database.execute("CREATE VIEW spW_HireRatse AS SELECT * FROM spW_HireRates")
            viewer.click(1)
            viewer.page.wait("!document.querySelector('.flawed') && !document.querySelector('.findings')")
            self.expect(viewer.page.run("document.getElementById('status').textContent"), "0 findings in the queries", "what is said")
            database.execute("DROP VIEW spW_HireRatse")
            viewer.page.run("location.reload()")
            viewer.page.wait("document.querySelector('.flawed') && document.querySelector('.findings')")
            (folder / "XST2.txt").write_bytes(text)
            viewer.page.wait("!document.querySelector('.flawed') && !document.querySelector('.findings')")
            self.expect(list(viewer.faults()), [], "faults")

    def a_branch_that_failed_is_asked_for_again(self):
        folder = self.new_folder()
        shop.load(folder)
        database = sqlite3.connect(folder / "shop.db", isolation_level=None)
        types = database.execute("SELECT sql FROM sqlite_schema WHERE name = 'spG_BikeTypes'").fetchone()[0]
        database.execute("DROP VIEW spG_BikeTypes")
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            row = "[...document.querySelectorAll('.row')].find(at => at.textContent === '%s')"
            for name in ("Hire desk", "Bicycles by type"):
                viewer.page.wait(row % name)
                viewer.page.run((row % name) + ".click()")
            viewer.page.wait("document.querySelector('.failed')?.textContent === 'There is no view spG_BikeTypes.'")
            database.execute(types)
            viewer.page.run((row % "Bicycles by type") + ".click()")
            viewer.page.wait(row % "City, low step")
            self.expect(viewer.page.run("document.querySelector('.failed')"), None, "what failed")
            viewer.page.wait("!document.querySelector('.flawed')")
            self.expect(list(viewer.faults()), [], "faults")

    def the_tutorial_is_true(self):
        """Does what the last two pages of the tutorial say, and sees what they promise."""
        def examples(page):
            text = (pathlib.Path(__file__).parents[2] / f"help/{page}.html").read_text(encoding="ascii")
            return [html.unescape(example) for example in re.findall(r"<pre>(.*?)</pre>", text, re.S)]

        folder = self.new_folder()
        for number, example in enumerate(examples("tutorial-save"), start=1):
            (folder / f"XST{number}.txt").write_text(example, newline="\r\n")
        database = sqlite3.connect(folder / "library.db", isolation_level=None)
        for statement in examples("tutorial-import")[3].split(";\n"):
            if statement.startswith(("CREATE", "INSERT")):
                database.execute(statement)
        start, error, terminal, card, shown_card, loans, shown_loans, chart = examples("tutorial-preview")
        self.expect(start, "cd /home/you/library\npelmo-scheme preview XST1.txt XST2.txt --db sqlite:library.db\n", "the start")
        self.expect(terminal, "cd /home/you/library\nsqlite3 library.db\n", "the second terminal")

        def cells(example):
            return [re.split(r" {2,}", line.strip()) for line in example.splitlines()]

        def enter(statements):
            database.executescript(statements.replace(".quit", ""))

        with Preview(folder, "sqlite:library.db") as preview:
            viewer = Viewer(self.browser, preview)
            viewer.click(1)
            viewer.click(2)
            self.expect([item[1] for item in viewer.items()][3:6], ["Amin", "Berger", "Castro"], "readers")
            viewer.click(3)
            self.expect(viewer.sections()[0]["error"] + "\n", error, "the first paragraph without its query")
            enter(card)
            viewer.click(3)
            reader = viewer.sections()[0]
            self.expect([[reader["title"]]] + reader["record"], cells(shown_card), "the card")
            enter(loans)
            viewer.click(3)
            table = viewer.sections()[1]
            self.expect(table["table"], cells(shown_loans)[:-1], "the loans")
            self.expect([[cell for cell in table["sums"][0] if cell]], cells(shown_loans)[-1:], "their sum")
            viewer.page.run("document.querySelectorAll('summary')[1].click()")
            self.expect("Its value1" in viewer.sections()[1]["query"], True, "the value")
            enter(chart)
            viewer.click(1)
            self.expect(viewer.sections()[0]["bars"], [["2026-12", "3"]], "the chart")
            text = (folder / "XST2.txt").read_text()
            (folder / "XST2.txt").write_text(text.replace("Loans by month", "Loans each month"))
            viewer.page.wait("document.querySelector('h2').textContent === 'Loans each month'")
            self.expect(list(viewer.faults()), [], "faults")

    def the_form_says_what_it_would_open(self):
        folder = self.new_folder()
        shop.load(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            for name in ("Stock", "Suppliers", "Nightway"):
                viewer.click([item[1] for item in viewer.items()].index(name))
            words = "getComputedStyle(document.querySelector('.form span')).display"
            self.expect(viewer.page.run(words), "none", "before")
            viewer.page.run("document.querySelector('.form a').focus()")
            viewer.press("Enter")
            self.expect(viewer.page.run(words), "inline", "after")
            self.expect(viewer.page.run("document.querySelector('.form span').textContent"), "In Pelmo this link opens "
                        "data-entry form 5 of your application, for the ID LIGHTS. Here it opens nothing.", "words")
            self.expect(viewer.page.run("document.querySelector('h1').textContent"), "Nightway", "the page stays")
            self.expect(list(viewer.faults()), [], "faults")

    # --- hostile data, and many rows ---

    EVIL = "</td></script><script>document.title='hacked'</script><img src=x onerror=\"document.title='hacked'\">'\"&amp;"

    def hostile_scheme(self, folder):
        """A scheme and a database full of what breaks pages that are put together carelessly."""
        evil = self.EVIL.replace('"', "")  # the files hold neither quotes nor commas
        lines = [f'1,"{evil}","F",0,"","","leaf",""', f'2,"{evil}","G",1,"spG_Evil","","{evil}","{evil}"',
                 f'3,"{evil}","N",2,"","","",""', '4,"Many","G",1,"spG_Many","","",""', '5,"x","N",4,"","","",""',
                 '6,"Rows","N",1,"","","",""', f'7,"NUL \0 and \x1B","N",1,"","","",""',
                 '8,"Alone","G",1,"spG_Evil","","",""', '9,"Missing","G",1,"spG_No\'ne;DROP TABLE Given","Text","",""']
        (folder / "XST1.txt").write_bytes("\r\n".join(["ID"] + lines).encode("cp1252"))
        paragraphs = [f'{number},3,{number},"{evil}:","spW_Evil {evil}","Text","{kind}",9,"{columns}",""'
                      for number, (kind, columns) in enumerate([("C", "1:2"), ("H", ""), ("E", ""), ("M", ""), ("I", ""), ("S", "All"),
                                                                ("T", evil), ("<", ""), ("S", evil)], start=1)]
        paragraphs += ['20,6,1,"Rows","spW_Large","","S",0,"1",""', '21,6,2,"Pictures","spW_Files","","T",0,"",""',
                       '22,7,1,"Slow","spW_Slow","","S",0,"1",""', '23,7,2,"After it","spW_Files","","S",0,"",""']
        (folder / "XST2.txt").write_bytes("\r\n".join(["ID"] + paragraphs).encode("cp1252"))
        os.symlink("/etc/passwd", folder / "link.gif")
        (folder / "text.gif").write_text("no picture")
        database = sqlite3.connect(folder / "shop.db")
        database.create_function("evil", 0, lambda: self.EVIL)
        name = self.EVIL.replace('"', '""')
        database.executescript(f"""
            CREATE TABLE Given(constant, parameter, run); INSERT INTO Given VALUES(NULL, NULL, NULL);
            CREATE TABLE E(ID, text, blob); CREATE TABLE F(ID, name, FILE);
            CREATE VIEW spG_Evil AS SELECT ID, text FROM E;
            CREATE VIEW spW_Evil AS SELECT ID, text AS "{name}", text AS B, blob AS IMGx, text AS FILEx FROM E;
            CREATE VIEW spG_Many AS WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < 12000)
                SELECT n AS ID, 'Node ' || n AS name FROM N;
            CREATE VIEW spW_Large AS WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N WHERE n < 200000)
                SELECT n AS ID, n AS number, 'row ' || n AS text FROM N;
            CREATE VIEW spW_Slow AS WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM N)
                SELECT n AS ID FROM N WHERE n < 0;
            CREATE VIEW spW_Files AS SELECT * FROM F;""")
        database.executemany("INSERT INTO E VALUES(?, ?, ?)", [
            (self.EVIL, self.EVIL, b"GIF89a but no picture"), (2, "NUL \0 and more", b"<svg onload=alert(1)>"),
            (3, "x" * (1 << 18), b""), (4, "\u202Ereversed", b"\0" * 1000), (5, "", None)])
        database.executemany("INSERT INTO F VALUES(?, ?, ?)", [
            (n, path, path) for n, path in enumerate(["/etc/passwd", str(folder / "link.gif"), str(folder / "text.gif"),
                                                      "../../etc/passwd", "/proc/self/environ", "/dev/zero",
                                                      "javascript:alert(1)", "http://shop.example/x.gif", self.EVIL])])
        database.commit()
        database.close()

    def hostile_data_stays_text(self):
        folder = self.new_folder()
        self.hostile_scheme(folder)
        before = (folder / "shop.db").read_bytes()
        with Preview(folder, "sqlite:shop.db", "--seconds", "6") as preview:
            viewer = Viewer(self.browser, preview)
            viewer.click(1)
            self.expect(viewer.items()[2][1], self.EVIL, "a generated node")
            for place in range(2, 7):
                viewer.click(place)
                self.expect(len(viewer.sections()), 9, f"paragraphs of node {place}")
                self.expect(viewer.too_wide(), 0, f"pixels that node {place} is too wide")
            self.expect(viewer.page.run("document.querySelectorAll('script').length"), 1, "scripts")
            self.expect(viewer.page.run("[...document.querySelectorAll('*')].some(at => [...at.attributes].some("
                                        "(one) => one.name.startsWith('on') || one.name === 'style'))"), False, "handlers")
            names = [item[1] for item in viewer.items()]
            viewer.click(names.index("Missing"))
            viewer.page.wait("document.querySelector('.more.failed')")
            viewer.click(names.index("Rows"))
            notes = [note for section in viewer.sections() for note in section["notes"]]
            self.expect("These are the first 1,000 rows of 200,000." in notes, True, str(notes))
            self.expect(viewer.sections()[1]["pictures"], 0, "pictures of no pictures")
            self.expect(viewer.page.run("document.querySelectorAll('.none').length"), 9, "reasons")
            viewer.click(next(place for place, name in enumerate(names) if name == "NUL \0 and \x1B"))
            slow, after = viewer.sections()
            self.expect(bool(slow["error"]), True, "the slow query is stopped")
            self.expect(len(after["table"]), 10, "the paragraph after it is shown")
            self.expect(viewer.page.run("document.title").endswith("preview"), True, viewer.page.run("document.title"))
            self.expect(list(viewer.faults()), [], "faults")
        self.expect((folder / "shop.db").read_bytes() == before, True, "the database is as it was")

    def work(self, viewer):
        """The seconds that the page itself was computed for, whatever else the machine does."""
        viewer.page.call("Performance.enable", timeDomain="threadTicks")
        metrics = {row["name"]: row["value"] for row in viewer.page.call("Performance.getMetrics")["metrics"]}
        return {name: metrics[f"{name}Duration"] for name in ("Script", "RecalcStyle", "Layout")}

    def ten_thousand_children_open_without_a_pause(self):
        folder = self.new_folder()
        self.hostile_scheme(folder)
        with Preview(folder) as preview:
            viewer = Viewer(self.browser, preview)
            place = [item[1] for item in viewer.items()].index("Many")
            work = self.work(viewer)
            viewer.click(place)
            viewer.page.wait("document.querySelectorAll('[role=treeitem]').length > 10000")
            work = {name: value - work[name] for name, value in self.work(viewer).items()}
            self.expect(viewer.page.run("document.querySelector('.more').textContent"), "2000 more are not shown", "rest")
            viewer.page.run("document.querySelectorAll('#tree [role=treeitem]')[0].focus()")
            viewer.press("End")
            self.expect(viewer.focused(), "Missing", "the last one")
            viewer.press("ArrowUp", "ArrowUp")
            self.expect(viewer.focused(), "NUL \0 and \x1B", "two above it")
            viewer.press("ArrowUp", "ArrowUp")
            self.expect(viewer.focused(), "Node 10000", "the end of the long branch")
            viewer.page.run("[...document.querySelectorAll('#tree li')].find(at => at.ariaLabel === 'Node 9801').focus()")
            viewer.press("ArrowUp")
            self.expect(viewer.focused(), "Node 9800", "from one part of it to the next")
            print("   10,000 nodes: the browser computes " + ", ".join(f"{value * 1000:.0f} ms {name}" for name, value in work.items()))
            self.expect(list(viewer.faults()), [], "faults")


def main():
    if not chromium.program():
        print("chromium is not installed")
        return 77
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # and so end the browser, too
    names = [name for name in sys.argv[2:] if not name.startswith("--")]
    checks = [name for name in Checks.__dict__ if "_" in name and not name.startswith("_")
              and name not in ("new_folder", "hostile_scheme", "in_server", "work")]
    failed = 0
    with tempfile.TemporaryDirectory() as folder, chromium.Chromium() as browser:
        for name in names or checks:
            start = time.monotonic()
            try:
                getattr(Checks(browser, folder), name)()
                print(f"passed: {name.replace('_', ' ')} ({time.monotonic() - start:.1f} s)", flush=True)
            except Skipped as why:
                print(f"skipped: {name.replace('_', ' ')}: {why}", flush=True)
            except Exception:  # whatever it is, the other checks go on
                failed += 1
                print(f"FAILED: {name.replace('_', ' ')}\n{traceback.format_exc()}", flush=True)
    return min(failed, 1)


if __name__ == "__main__":
    sys.exit(main())
