#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Spoils a copy of the help in many ways, and checks that check_pages.py or check_rows.py notices each of them."""
import pathlib
import shutil
import sys
import tempfile

sys.dont_write_bytecode = True  # leave nothing behind in the source tree
import check_pages  # noqa: E402
import check_rows  # noqa: E402

SOURCES = ["analysis/NavRules.cpp", "analysis/WebRules.cpp", "model/clsNavSchemes_Fuse.cpp", "shell/fMain.cpp",
           "shell/fMain_Edit.cpp", "shell/FileDialogs.cpp", "shell/SaveRefusal.cpp", "shell/HelpFile.cpp",
           "forms/fNav.cpp", "forms/fWeb.cpp", "forms/ParameterChoices.cpp"]

# The file, what is replaced in it (None: the file is removed), by what, and a part of the fault that must be reported.
SPOILS = [
    ("help/welcome.html", "overview.html", "overviev.html", "there is no overviev.html"),
    ("help/limits.html", "renumber.html#orphans", "renumber.html#orphan", "renumber.html has no anchor orphan"),
    ("help/main-window.html", "pictures/main.png", "pictures/mian.png", "there is no pictures/mian.png"),
    ("help/main-window.html", 'height="608"', 'height="600"', "main.png is 760 by 608"),
    ("help/main-window.html", ' alt="root"', "", "lacks alt"),
    ("help/nodes.html", "</ul>", "", "ends nothing"),
    ("help/nodes.html", "without asking", "without \u2013 asking", "printable ASCII"),
    ("help/nodes.html", "<h2>", "<h2><script>", "<script> is none of the tags"),
    ("help/nodes.html", "<h1>Nodes", "<h1>Node", "the heading 'Node'"),
    ("help/nodes.html", "nodes, node types", "tables, comma", "'comma' leads to"),
    ("help/welcome.html", '<a href="without-mouse.html">working without a mouse</a>', "keys",
     "no page leads to without-mouse.html"),
    ("help/contents.txt", "limits.html\n", "", "lists limits.html 0 times"),
    ("help/contents.txt", "limits.html\n", "limits.html\nlimits.html\n", "lists limits.html 2 times"),
    ("help/contents.txt", "limits.html\n", "limits.html\nmore.html\n", "'more.html', which is no page"),
    ("help/contents.txt", "  constants.html", "      constants.html", "indents constants.html"),
    ("help/pictures/type-root.png", None, None, "there is no pictures/type-root.png"),
    ("help/nav-findings.html", None, None, "there is no page nav-findings.html"),
    ("help/nav-findings.html", "for Recurring-Type Node.", "for a Recurring-Type Node.", "does not explain 'RULE #4"),
    ("help/nav-findings.html", "Specifed for Fixed", "Specified for Fixed", "which the program does not say"),
    ("help/web-findings.html", "Form#  Field", "Form# Field", "does not explain '=> Form#  Field"),
    ("help/web-findings.html", "Right-Click on XST2-Grid", "Right-Click the XST2-Grid", "does not explain 'Not a RULE"),
    ("analysis/NavRules.cpp", "=> There is no Query Specifed for Rec", "=> No Query for Rec", "explain '=> No Query"),
    ("analysis/WebRules.cpp", "constexpr std::string_view rule4 =", "constexpr std::string_view rule5 = \"RULE #5. New.\";\n"
     "constexpr std::string_view rule4 =", "does not explain 'RULE #5. New.'"),
    ("analysis/WebRules.cpp", "=> No", "-> No", "only "),
    ("model/clsNavSchemes_Fuse.cpp", "Query field cannot be blank...", "A query is needed", "explain 'A query is needed'"),
    ("shell/SaveRefusal.cpp", "This folder does not exist", "No such folder", "explain 'No such folder:'"),
    ("shell/HelpFile.cpp", "The help file was not found", "No help", "explain 'No help:'"),
    ("shell/fMain_Edit.cpp", "Nothin to Edit", "Nothing to Edit", "explain 'Nothing to Edit"),
    ("shell/fMain.cpp", "&Collapse Nodes", "&Close Nodes", "commands.html does not explain 'Close Nodes'"),
    ("forms/fNav.cpp", "Icon Name:", "Icon:", "node-form.html does not explain 'Icon:'"),
    ("forms/fWeb.cpp", "T - Thumbnail Images", "T - Thumbnails", "paragraphs.html does not explain 'T - Thumbnails'"),
    ("forms/fWeb.cpp", "Do you want to Update the Paragraph?", "Do you want this?", "explain 'Do you want this?'"),
    ("forms/ParameterChoices.cpp", "LKey: Long Integer Key", "LKey: Long Key", "explain 'LKey: Long Key'"),
    ("forms/ParameterChoices.cpp", "How to Segment Time-Line", "How to Cut Time", "explain 'How to Cut Time'"),
]

# The same for check_rows.py.
SPOILT_ROWS = [
    ("help/show-table.html", "CTL 067", "CTL 068", "line 2: ['374', 'CTL 068', 'City, low step', '1', '42.00'] instead"),
    ("help/show-table.html", "<th>Kind</th>", "<th>Size</th>", "line 1: ['ID', 'Item', 'Size'"),
    ("help/show-table.html", "<b>52.00</b>", "<b>53.00</b>", "line 4: ['', '', '', '3', '53.00']"),
    ("help/show-table.html", "<tr><td>481</td>", "<tr><td>481</td></tr><tr>", "5 lines instead of 4"),
    ("help/show-table.html", "<!-- rows: spW_HireLines(1190) sums 3:4 -->\n", "", "show-table.html has 0 examples"),
    ("help/chart.html", "12   12:00   4     2", "12   12:00   3     2", "['12', '12:00', '3', '2'] instead"),
    ("help/chart.html", 'width="120"', 'width="110"', "the bar of 4 is 110 pixels wide"),
    ("help/chart.html", "&nbsp;1</td>", "&nbsp;2</td>", "the bar of 2 is 30 pixels wide"),
    ("help/header.html", "Abbott, Jonas</td></tr>", "Abbott, Jon</td></tr>", "['Customer', 'Abbott, Jon'] instead"),
    ("help/multi-chapter.html", "<b>4027, 2025-12-05, Yes</b>", "<b>4027</b>", "line 4: ['4027'] instead"),
    ("help/image-header.html", "<td>Workshop W2</td>", "<td>Workshop W3</td>", "['Place', 'Workshop W3'] instead"),
    ("help/node-generating.html", "  Stopwell\n    Brake cable\n", "  Stopwell\n", "below 'Stopwell' stand"),
    ("help/node-recurring.html", "        Bearing ball\n", "      Bearing ball\n", "below 'Front bearing' stand []"),
    ("help/node-recurring.html", "STABLE AS $$", "AS $$", "shop-postgresql.sql has no 'CREATE FUNCTION spG_PartsBelow"),
    ("help/time-line.html", "'YYYYMM') = given_key", "'YYYY') = given_key", "no 'CREATE FUNCTION spG_DaysOfMonth"),
    ("help/time-line.html", "<!-- runs in psql -->\n", "", "nobody runs 'SELECT * FROM spG_TakingsYears();'"),
    ("help/sample.html", "createdb shop", "createdb shops", "the commands are not those of shop-postgresql.sql"),
    ("help/queries.html", "<h2>", "<pre>\nSELECT 1;\n</pre><h2>", "nobody runs 'SELECT 1;'"),
    ("samples/shop.sql", "'Brake pad'", "'Brake block'", "'Brake pad'"),
    ("samples/shop-mariadb.sql", "SELECT p.ID, p.name AS Part FROM", "SELECT p.ID, p.name FROM",
     "import-mariadb.html: shop-mariadb.sql has no"),
]


def spoil(root, name, old, new):
    path = root / name
    if old is None:
        path.unlink()
        return
    text = path.read_text(encoding="utf-8")
    assert old in text, f"{name} has no {old!r} to be spoilt"
    path.write_text(text.replace(old, new), encoding="utf-8")


def main():
    root = pathlib.Path(__file__).parents[2]
    unnoticed = 0
    all_spoils = [(check_pages, *spoilt) for spoilt in SPOILS] + [(check_rows, *spoilt) for spoilt in SPOILT_ROWS]
    for check, name, old, new, fault in all_spoils:
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder)
            shutil.copytree(root / "help", copy / "help")
            shutil.copytree(root / "samples", copy / "samples")
            for source in SOURCES:
                (copy / source).parent.mkdir(exist_ok=True)
                shutil.copy(root / source, copy / source)
            if list(check.faults(copy)):
                print("the copy has faults before it is spoilt")
                return 1
            spoil(copy, name, old, new)
            reported = list(check.faults(copy))
            if not reported or not any(fault in line for line in reported):
                unnoticed += 1
                print(f"{name}: {old!r} by {new!r} is not noticed, but {reported}")
    print(f"{len(all_spoils) - unnoticed} of {len(all_spoils)} faults were noticed")
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main())
