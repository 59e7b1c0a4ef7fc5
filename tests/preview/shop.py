# SPDX-License-Identifier: MIT
"""The sample shop on a day in March, and what its pages must show: worked out from the rows that SQLite itself gives."""
import csv
import pathlib
import sqlite3

SAMPLES = pathlib.Path(__file__).parents[2] / "samples"
# The day of the shop: a check may run past midnight. The preview is told it; queries get it as text.
DAY, DAY_FOR_QUERIES = "2026-03-05", "05-Mar-2026"

# How many fields the outer table of each query for several chapters has, the ID included.
OUTER = {"spW_BikeHiresShaped": 4, "spW_JobTasksShaped": 3, "spW_ClaimsShaped": 4, "spW_OrdersShaped": 3,
         "spW_CustomerJobsShaped": 3, "spW_ReceiptsShaped": 3, "spW_CertificatesShaped": 3}


def rows_of(file):
    with open(file, encoding="cp1252", newline="") as stream:
        return list(csv.DictReader(stream))


def script(name, today="current_date"):
    """A script of the samples, changed so that it makes the shop of that day."""
    text = (SAMPLES / name).read_text(encoding="utf-8")
    before, after = "'/srv/shop/pictures/', " + today, f"'/srv/shop/pictures/', '{DAY}'"
    if text.count(before) != 1:
        raise ValueError(f"{name} does not have its day in one place")
    return text.replace(before, after)


def load(folder):
    """Makes shop.db in a folder, with both files of the scheme beside it."""
    database = sqlite3.connect(folder / "shop.db")
    database.executescript(script("shop.sql", "date('now', 'localtime')"))
    database.close()
    for name in ("XST1.txt", "XST2.txt"):
        (folder / name).write_bytes((SAMPLES / name).read_bytes())


def is_same(found, wanted):
    """Whether a page shows a value: as SQLite prints it, or a number with other zeros at its end."""
    if found == wanted:
        return True
    if ", " in wanted and found.count(", ") == wanted.count(", "):  # the head of a chapter
        return all(map(is_same, found.split(", "), wanted.split(", ")))
    try:
        return abs(float(found) - float(wanted)) < 1e-9 * max(1, abs(float(wanted)))
    except ValueError:
        return False


def differences(found, wanted):
    """What differs between two lists of lists of texts."""
    if [len(row) for row in found] != [len(row) for row in wanted]:
        yield f"{len(found)} rows of {[len(row) for row in found][:5]} instead of {len(wanted)} of {[len(row) for row in wanted][:5]}"
        return
    for line, (has, wants) in enumerate(zip(found, wanted)):
        for cell, value in zip(has, wants):
            if not is_same(cell, value):
                yield f"row {line}: {cell!r} instead of {value!r}"


def shown(value):
    return "" if value is None else f"({len(value)} bytes)" if isinstance(value, bytes) else str(value)


class Shop:
    """Asks the database of the shop in the way that its script explains."""

    def __init__(self, file):
        self.database = sqlite3.connect(f"file:{file}?mode=ro&immutable=1", uri=True)
        copy = sqlite3.connect(":memory:")
        self.database.backup(copy)
        self.database.close()
        self.database = copy
        self.nodes = {row["ID"]: row for row in rows_of(SAMPLES / "XST1.txt")}
        self.paragraphs = rows_of(SAMPLES / "XST2.txt")

    def give(self, record, key, text, run=None):
        kind = record["parmIs"][:2].upper()
        parameter = {"": None, "LK": key, "CK": str(key), "TE": text, "TO": DAY_FOR_QUERIES}[kind]
        if kind == "LK" and str(key).lstrip("-").isdigit():
            parameter = int(key)
        words = record["queryIs"].split()
        constant = words[1] if len(words) > 1 else None
        constant = int(constant) if constant and constant.isdigit() else constant
        self.database.execute("UPDATE Given SET constant = ?, parameter = ?, run = ?", (constant, parameter, run))
        return words[0]

    def page(self, node, key, text, runs_actions=True):
        """The paragraphs of a page: (paragraph, names of the fields, rows)."""
        found = []
        own = [row for row in self.paragraphs if row["XST1"] == node]
        for row in sorted(own, key=lambda row: int(row["seqNo"])):
            name = row["queryIs"].split()[0]
            if row["typeIs"] == "E":
                if runs_actions:
                    self.give(row, key, text, name)
                found.append((row, [], []))
                continue
            self.give(row, key, text)
            cursor = self.database.execute(f"SELECT * FROM {name}")
            found.append((row, [field[0] for field in cursor.description], cursor.fetchall()))
        self.database.rollback()
        return found

    def below(self, node, key, text):
        """The generated nodes below one: (key, text)."""
        name = self.give(self.nodes[node], key, text)
        rows = self.database.execute(f"SELECT * FROM {name}").fetchall()
        self.database.rollback()
        return [(str(row[0]), str(row[1])) for row in rows]


def faults_of_section(section, paragraph, fields, rows, text, runs_actions=True):
    """What is wrong with a paragraph as the page shows it; yields a line each."""
    kind, columns = paragraph["typeIs"], paragraph["colsAre"]
    title = paragraph["titleIs"] + (f" {text}" if paragraph["titleIs"].endswith(":") else "")
    if section["title"] != title:
        yield f"the title is {section['title']!r} instead of {title!r}"
    if section["error"]:
        yield f"it says {section['error']!r}"
    name = paragraph["queryIs"].split()[0]
    if kind in "HI":
        picture = next((at for at, field in enumerate(fields) if kind == "I" and field.startswith("IMG")), None)
        wanted = [[fields[at], shown(rows[0][at])] for at in range(1, len(fields)) if at != picture] if rows else []
        yield from differences(section["record"], wanted)
        if kind == "I" and section["pictures"] != 1:
            yield f"it shows {section['pictures']} pictures instead of one"
        form = f"Form {paragraph['formIs']}" if paragraph["formIs"] != "0" else ""
        if section["form"] != form:
            yield f"its link is {section['form']!r} instead of {form!r}"
    said = f"Ran {name}" if runs_actions else "Not run: this database cannot undo what it does."
    if kind == "E" and said not in section["text"]:
        yield f"it does not say {said!r}"
    if kind == "C":
        labels, values = map(int, columns.split(":"))
        yield from differences(section["bars"], [[shown(row[labels]), shown(row[values])] for row in rows])
        longest = max([abs(row[values]) for row in rows], default=0)
        wanted = [[str(round(1000 * abs(row[values]) / longest) if longest else 0)] for row in rows]
        yield from differences([[str(share)] for share in section["shares"]], wanted if longest else [])
    if kind == "T":
        path = next(at for at, field in enumerate(fields) if field.startswith("FILE"))
        wanted = [[", ".join(shown(row[at]) for at in range(1, len(fields)) if at != path)] for row in rows]
        yield from differences([[entry] for entry in section["thumbnails"]], wanted)
    if kind == "S" or kind == "M" and not section["isChapters"]:
        yield from differences(section["table"], [fields] + [[shown(value) for value in row] for row in rows])
    if kind == "S":
        summed = range(1, len(fields)) if columns == "All" else [int(number) for number in columns.split(":")]
        sums = [str(sum(row[at] or 0 for row in rows)) if at in summed else "Sum" if at == 0 else "" for at in range(len(fields))]
        yield from differences(section["sums"], [sums] if rows else [])
    if kind == "M" and section["isChapters"]:
        outer, wanted, before = OUTER[name], [], None
        for row in rows:
            if row[:outer] != before:
                wanted.append([", ".join(map(shown, row[:outer]))])
            before = row[:outer]
            if any(value is not None for value in row[outer:]):
                wanted.append([shown(value) for value in row[outer:]])
        yield from differences(section["table"], [[", ".join(fields[:outer])], fields[outer:]] + wanted)
    if kind == "M" and not section["isChapters"]:
        keys = [row[0] for row in rows]
        if len(set(keys)) < len(keys) or any(row[-1] is None for row in rows):
            yield "it shows no chapters"
