#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that the result rows in the help are those of the sample shop.

    check_rows.py [ROOT]    ROOT is the source tree; by default the one that contains this script

Loads samples/shop.sql as on the day that the help speaks of, runs the queries that comments in the pages name, and
compares what the table or example after the comment shows. A query is written like a call, "spW_HireLines(1190)":

    <!-- rows: QUERY [first N] [sums 3:4] -->     a table with the names and all fields, then the sums of these columns
    <!-- lines: QUERY [first N] -->               the same in a <pre>, with two blanks or more between the fields
    <!-- record: QUERY -->                        a table with a heading, then name and value of each field but the ID
    <!-- chapters: QUERY first N outer 3 -->      a table with the first 3 fields as heading, the others below it
    <!-- chart: QUERY columns 1:2 -->             a table with both columns; a bar of 30 pixels for each unit
    <!-- tree: LINE: QUERY; LINE: QUERY -->       the last <pre> of a table: the lines below LINE are the names
    <!-- from FILE -->                            a <pre> that stands so in a sample file
    <!-- commands of FILE -->                     a <pre> with the commands from the header of a sample file

Prints a line for each fault, and fails if there is one.
"""
import csv
import html
import pathlib
import re
import sqlite3
import sys

DAY = "2026-03-05"
# The pages that must have rows, and how many comments each has at least.
AT_LEAST = {"show-table.html": 1, "chart.html": 2, "header.html": 1, "multi-chapter.html": 2, "image-header.html": 2,
            "thumbnails.html": 1, "node-generating.html": 1, "node-recurring.html": 2, "time-line.html": 1,
            "import-mariadb.html": 1, "sample.html": 3}
# Statements of SQL stand only in examples that a test runs, in copies from the sample files, and on these pages: those
# of the tutorial and of SQLite are run by check_sql.py, SQL Server's cannot be.
STATEMENTS_ELSEWHERE = {"tutorial-import.html", "import-sqlite.html", "import-sql-server.html", "tutorial-preview.html",
                        "pelmo-scheme-database.html"}


class Shop:
    """The sample database in memory."""

    def __init__(self, root):
        script = (root / "samples/shop.sql").read_text(encoding="utf-8")
        now = "date('now', 'localtime')"
        if script.count(now) != 1:
            raise ValueError("shop.sql does not have its day in one place")
        self.database = sqlite3.connect(":memory:")
        self.database.executescript(script.replace(now, f"'{DAY}'"))
        self.with_constant = set()  # the queries that get nothing but a constant
        for name in ("XST1.txt", "XST2.txt"):
            text = (root / "samples" / name).read_bytes().decode("cp1252")
            for row in list(csv.reader(text.splitlines()))[1:]:
                if " " in row[4] and not row[5]:
                    self.with_constant.add(row[4].split(" ")[0])

    def run(self, call):
        """The names of the columns, and the rows as texts."""
        name, arguments = re.fullmatch(r"(sp[GW]_\w+)\((.*)\)", call).groups()
        values = [value.strip("'") if value.startswith("'") else int(value)
                  for value in (part.strip() for part in arguments.split(",")) if value]
        if len(values) == 2:
            constant, parameter = values
        elif values and name in self.with_constant:
            constant, parameter = values[0], None
        else:
            constant, parameter = None, values[0] if values else None
        self.database.execute("UPDATE Given SET constant = ?, parameter = ?", (constant, parameter))
        cursor = self.database.execute(f"SELECT * FROM {name}")
        columns = [column[0] for column in cursor.description]
        return columns, [[shown(value) for value in row] for row in cursor.fetchall()]


def shown(value):
    if isinstance(value, float):
        return f"{value:.2f}"
    if isinstance(value, bytes):
        return "(picture)"
    return "" if value is None else str(value)


def plain(text):
    return " ".join(html.unescape(re.sub(r"<[^>]*>", "", text)).replace("\xa0", " ").split())


def cells(table):
    """The texts of a table, row by row; a table inside a cell is a part of that cell."""
    inner = re.sub(r"<table[^>]*><tr>(.*?)</tr></table>",
                   lambda found: re.sub(r"</?t[dh][^>]*>", " ", found[1]), table[6:], flags=re.S)
    return [[plain(cell) for cell in re.findall(r"<t[dh][^>]*>(.*?)</t[dh]>", row, flags=re.S)]
            for row in re.findall(r"<tr>(.*?)</tr>", inner, flags=re.S)]


def columns_of(pre):
    return [re.split(r" {2,}", html.unescape(line).strip()) for line in pre.strip("\n").split("\n")]


def children(pre):
    """The lines directly below each line of an indented list."""
    below, path = {}, []
    for line in html.unescape(pre).strip("\n").split("\n"):
        indent = len(line) - len(line.lstrip())
        path = [(depth, name) for depth, name in path if depth < indent]
        below[line.strip()] = []
        if path:
            below[path[-1][1]].append(line.strip())
        path.append((indent, line.strip()))
    return below


def total(rows, column):
    numbers = [row[column] for row in rows]
    return f"{sum(map(float, numbers)):.2f}" if "." in numbers[0] else str(sum(map(int, numbers)))


def check_tree(shop, order, pre):
    below = children(pre)
    for line, call in re.findall(r"([^;:]+): (sp[GW]_\w+\([^)]*\))", order):
        names = [row[1] for row in shop.run(call)[1]]
        if below.get(line.strip()) != names:
            yield f"below {line.strip()!r} stand {below.get(line.strip())} instead of {names}"


def wanted_table(kind, columns, rows, order):
    """The texts that a table must have."""
    sums = re.search(r" sums ([\d:]+)", order)
    if kind == "record":
        names = zip(columns[1:], rows[0][1:])
        return [list(pair) for pair in names]
    if kind == "chapters":
        outer, texts, last = int(re.search(r" outer (\d+)", order)[1]), [], None
        for row in rows:
            if row[:outer] != last:
                texts.append([", ".join(row[:outer])])
            last = row[:outer]
            texts.append(row[outer:])
        return texts
    if kind == "chart":
        across, up = (int(number) for number in re.search(r" columns (\d+):(\d+)", order).groups())
        return [[row[across], row[up]] for row in rows]
    texts = [columns] + rows
    if sums:
        places = [int(number) for number in sums[1].split(":")]
        texts.append([total(rows, i) if i in places else "" for i in range(len(columns))])
    return texts


def bars(table):
    """Widths and numbers of a chart."""
    return re.findall(r'<td width="(\d+)"[^>]*>&nbsp;</td><td>&nbsp;(\d+)</td>', table)


def check_rows(shop, kind, order, rest):
    call = re.match(r"sp[GW]_\w+\([^)]*\)", order)[0]
    columns, rows = shop.run(call)
    first = re.search(r" first (\d+)", order)
    rows = rows[:int(first[1])] if first else rows
    if not rows:
        yield f"{call} gives no rows"
        return
    if kind == "lines":
        found = columns_of(re.match(r"\s*<pre>(.*?)</pre>", rest, flags=re.S)[1])
        wanted = [columns] + rows
    else:
        table = re.match(r"\s*(<table.*?\n</table>)", rest, flags=re.S)[1]
        found, wanted = cells(table), wanted_table(kind, columns, rows, order)
        if kind == "record":
            found = found[1:]  # the heading
        if kind == "chart":
            for width, number in bars(table):
                if int(width) != 30 * int(number):
                    yield f"the bar of {number} is {width} pixels wide"
    for line, (has, wants) in enumerate(zip(found, wanted), start=1):
        if has != wants:
            yield f"{call}, line {line}: {has} instead of {wants}"
    if len(found) != len(wanted):
        yield f"{call}: {len(found)} lines instead of {len(wanted)}"


def commands(script):
    """The commands in the header of a script, which ends at its first empty line."""
    header = script.split("\n\n")[0]
    found = re.findall(r"^--     ((?:sqlite3|iconv|createdb|psql|mariadb) .*|\w+=\".*)$", header, flags=re.M)
    return "\n".join(found) + "\n"


def check_copy(root, kind, name, rest):
    text = html.unescape(re.match(r"\s*<pre>(.*?)</pre>", rest, flags=re.S)[1])
    script = (root / "samples" / name).read_text(encoding="utf-8")
    if kind == "commands of" and text != commands(script):
        yield f"the commands are not those of {name}"
    for piece in text.split("\n\n") if kind == "from" else []:
        if piece.strip("\n") + "\n" not in script:
            yield f"{name} has no {piece.splitlines()[0]!r} that reads so"


def faults(root):
    shop = Shop(root)
    counts = dict.fromkeys(AT_LEAST, 0)
    for path in sorted((root / "help").glob("*.html")):
        text = path.read_text(encoding="ascii")
        for mark in re.finditer(r"<!-- (rows|lines|record|chapters|chart|tree): (.*?) -->|"
                                r"<!-- (from|commands of) (\S+) -->", text):
            counts[path.name] = counts.get(path.name, 0) + 1
            kind, order, copy, name = mark.groups()
            rest = text[mark.end():]
            if copy:
                found = check_copy(root, copy, name, rest)
            elif kind == "tree":
                found = check_tree(shop, order, re.findall(r"<pre>(.*?)</pre>", rest.split("</table>")[0], flags=re.S)[-1])
            else:
                found = check_rows(shop, kind, order, rest)
            yield from (f"{path.name}: {fault}" for fault in found)
        for mark, example in re.findall(r"(<!-- [^>]* -->)?\n?<pre>(.*?)</pre>", text, flags=re.S):
            is_run = re.match(r"<!-- (runs in|prints|from|commands of)", mark)
            if re.search(r"^(SELECT|CALL|CREATE|UPDATE|INSERT) ", example, flags=re.M) and not is_run \
                    and path.name not in STATEMENTS_ELSEWHERE:
                yield f"{path.name}: nobody runs {example.strip().splitlines()[0]!r}"
    for name, least in AT_LEAST.items():
        if counts[name] < least:
            yield f"{name} has {counts[name]} examples that can be checked, fewer than {least}"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    wrong = list(faults(root))
    print("\n".join(wrong) or "the rows are those of the sample shop")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
