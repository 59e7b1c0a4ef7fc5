#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the commands of the help's SQLite pages on the files that they are written for, and checks that the queries
named in the pages are those of the samples or of the tutorial, and that the examples of the paragraph types are
paragraphs of the samples, which their pictures show."""
import csv
import html
import pathlib
import re
import sqlite3
import sys

root = pathlib.Path(__file__).parents[2]
faults = []


def expect(found, wanted, what):
    if found != wanted:
        faults.append(f"{what}: {found!r} instead of {wanted!r}")


def text_of(page):
    return html.unescape((root / "help" / page).read_text())


def examples(page):
    return re.findall(r"<pre>(.*?)</pre>", text_of(page), flags=re.S)


def run(database, commands, files):
    """Runs statements and .import lines; returns the rows of each SELECT."""
    results = []
    for command in re.findall(r"^\.import.*$|[^;.][^;]*;", commands.strip(), flags=re.M):
        imported = re.fullmatch(r"\.import --csv --skip 1 (\S+) (\w+)", command.strip())
        if imported:
            rows = list(csv.reader(files[imported[1]].splitlines()))[1:]
            places = ",".join("?" * len(rows[0]))
            database.executemany(f"INSERT INTO {imported[2]} VALUES ({places})", rows)
        else:
            rows = database.execute(command).fetchall()
            if command.strip().startswith("SELECT"):
                results.append(rows)
    return results


# The tutorial: its two files give seven nodes and four paragraphs, and its view lists the readers.
nodes, paragraphs = examples("tutorial-save.html")
start, tables, look, view = examples("tutorial-import.html")
database = sqlite3.connect(":memory:")
run(database, tables, {"XST1.txt": nodes, "XST2.txt": paragraphs})
in_xst1, in_xst2 = run(database, look, {})
expect((len(in_xst1), len(in_xst2)), (7, 4), "rows of the tutorial")
expect("Seven rows and four rows" in text_of("tutorial-import.html"), True, "the tutorial says so")
expect(in_xst1[6], (7, "Subjects", "R", 6, "spG_SubjectsBelow", "Lkey", "leaf", ""), "last node of the tutorial")
expect(run(database, view, {}), [[(1, "Amin"), (2, "Berger"), (3, "Castro")]], "the first query of the tutorial")
expect({row[1] for row in in_xst2} - {row[0] for row in in_xst1}, set(), "orphans of the tutorial")

# The encodings that the pages and the samples name for the files are that of the wizard, each under the name that the
# program which reads it has for it: byte by byte, but for the five bytes that stand for no character.
table = [int(code, 16) for code in re.findall(r"0x([0-9A-F]{4}),", (root / "model/CodePage.h").read_text())]
expect(len(table), 128, "characters in the upper half of the code page")
names = {"WINDOWS-1252": "cp1252", "WIN1252": "cp1252", "latin1": "cp1252", "1252": "cp1252"}  # MariaDB's latin1 is it
said = r"iconv -f (\S+)|ENCODING '(\w+)'|CHARACTER SET (\w+)|CODEPAGE *= *'?(\w+)"
encodings = set()
for file in [*root.glob("help/*.html"), *root.glob("samples/*.sql")]:
    for found in re.findall(said, file.read_text(), flags=re.I):
        name = "".join(found)
        if name.lower() in ("utf8", "utf8mb4", "ascii"):
            continue
        encodings.add(name)
        expect(name in names, True, f"{file.name} names the encoding {name}, which")
        for code, character in enumerate(table, 0x80):
            if not 0x80 <= character < 0xA0:
                expect(bytes([code]).decode(names.get(name, "ascii"), "replace"), chr(character),
                       f"byte {code:02X} in {name}, which {file.name} names,")
expect(len(encodings) >= 3, True, f"enough encodings are named ({encodings}), which")

# The import of the samples.
samples = {f"XST{number}.utf8": (root / f"samples/XST{number}.txt").read_bytes().decode("cp1252") for number in (1, 2)}
convert, tables, check = examples("import-sqlite.html")
database = sqlite3.connect(":memory:")
run(database, tables, samples)
run(database, tables, samples)  # it drops the tables that are there
(in_xst1,), (in_xst2,), orphans = [rows and rows[0] for rows in run(database, check, {})]
said = re.search(r"with the sample: (\d+) nodes, (\d+) paragraphs", text_of("import-sqlite.html"))
expect((in_xst1, in_xst2), (int(said[1]), int(said[2])), "rows of the samples")
expect(orphans, [], "orphans of the samples")
said = re.findall(r"COPY (\d+)", text_of("import-postgresql.html"))
expect(said, [str(in_xst1), str(in_xst2)], "what PostgreSQL answers")

# Example rows "NN: query" and "node NN, query" are those of the samples.
for page, number, query in ((page.name, *found) for page in (root / "help").glob("*.html")
                            for found in re.findall(r"\bnode (\d+), (spG_\w+)", text_of(page.name))):
    row = database.execute("SELECT queryIs FROM XST1 WHERE ID = ?", (number,)).fetchone()
    expect(row and row[0].split(" ")[0], query, f"{page}, node {number}")

# The example of a paragraph type is a paragraph of the samples, value for value, and the picture is of that paragraph.
shots = dict(reversed(sign) for sign in re.findall(r"\b(\d+)=([\w-]+)", (root / "tour/help.sh").read_text()))
paragraph_pages = 0
for page in sorted((root / "help").glob("*.html")):
    text = " ".join(text_of(page.name).split())
    for numbers, node in re.findall(r'[Ee]xample, paragraphs? (\d+(?: and \d+)?)[^,]*, on the page of "(.*?)"', text):
        paragraph_pages += 1
        lines = [" ".join(re.sub(r"^seq \d+ ", "", line).split()) for line in examples(page.name)[0].splitlines()]
        for number in numbers.split(" and "):
            title, query, parameter, kind, form, columns, of_node = database.execute(
                "SELECT titleIs, XST2.queryIs, XST2.parmIs, XST2.typeIs, formIs, colsAre, descriptionIs"
                " FROM XST2 JOIN XST1 ON XST1.ID = XST2.XST1 WHERE XST2.ID = ?", (number,)).fetchone()
            expect(node, of_node, f"{page.name}, node of paragraph {number}")
            line = f"{title} {query} {parameter} {kind}" + (f" form {form}" if form else "")
            if columns and kind != "T":
                line += f" columns {columns}"
            line = " ".join(line.split())
            expect(line in lines, True, f"{page.name} shows {line!r}")
            expect(kind != "T" or columns in lines, True, f"{page.name} shows {columns!r}")
        number = numbers.split(" and ")[0]
        title = database.execute("SELECT titleIs FROM XST2 WHERE ID = ?", (number,)).fetchone()[0]
        expect(shots.get(page.stem), number, f"the paragraph in the picture of {page.name}")
        expect(f'<img src="pictures/{page.stem}.png"' in text, True, f"{page.name} has its picture")
        expect(f'alt="The form with paragraph {number}, {title}"' in text, True, f"{page.name} has a true alt text")
# The form drops the form number of an I paragraph: the page of that type names each one that has such a number.
for number, title in database.execute("SELECT ID, titleIs FROM XST2 WHERE typeIs = 'I' AND formIs <> 0").fetchall():
    said = f'paragraph {number}, "{title}", has the number' in " ".join(text_of("image-header.html").split())
    expect(said, True, f"image-header.html explains the form number of paragraph {number}")

expect(paragraph_pages, 7, "pages with an example of a paragraph type")

known = " ".join(samples.values()) + nodes + paragraphs
known += " ".join((root / path).read_text() for path in ("forms/fNav.cpp", "forms/fWeb.cpp", "analysis/ToDo.cpp"))
named = 0
for page in sorted((root / "help").glob("*.html")):
    for query in set(re.findall(r"\bsp[GW]_[A-Za-z]+", text_of(page.name))):
        named += 1
        made = re.search(rf"CREATE (VIEW|TRIGGER) {query}\b", text_of(page.name))  # by an example of the page
        if not made and query not in re.findall(r"\bsp[GW]_[A-Za-z]+", known):
            faults.append(f"{page.name} names {query}, which neither the samples nor the tutorial have")
expect(named > 30, True, f"{named} queries found in the pages, more than 30")

print("\n".join(faults) or f"the commands work; {named} names of queries are known")
sys.exit(1 if faults else 0)
