#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Spoils a copy of the help in many ways, and checks that check_pages.py notices each of them."""
import pathlib
import shutil
import sys
import tempfile

sys.dont_write_bytecode = True  # nothing is left behind in the source tree
import check_pages  # noqa: E402

SOURCES = ["analysis/NavRules.cpp", "analysis/WebRules.cpp", "model/clsNavSchemes_Fuse.cpp", "shell/fMain.cpp",
           "shell/fMain_Edit.cpp", "shell/FileDialogs.cpp", "shell/HelpFile.cpp", "forms/fNav.cpp", "forms/fWeb.cpp",
           "forms/ParameterChoices.cpp"]

# The file, what is replaced in it (nothing: the file is removed), by what, and a part of the fault to be reported.
SPOILS = [
    ("help/welcome.html", "overview.html", "overviev.html", "there is no overviev.html"),
    ("help/limits.html", "renumber.html#orphans", "renumber.html#orphan", "renumber.html has no anchor orphan"),
    ("help/main-window.html", "pictures/main.png", "pictures/mian.png", "there is no pictures/mian.png"),
    ("help/main-window.html", 'height="608"', 'height="600"', "main.png is 760 by 608"),
    ("help/main-window.html", ' alt="root"', "", "lacks alt"),
    ("help/nodes.html", "</ul>", "", "ends nothing"),
    ("help/nodes.html", "without a\nquestion", "without \u2013 a\nquestion", "printable ASCII"),
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
    ("shell/FileDialogs.cpp", "There is no folder", "No such folder", "explain 'No such folder'"),
    ("shell/HelpFile.cpp", "The help file was not found", "No help", "explain 'No help:'"),
    ("shell/fMain_Edit.cpp", "Nothin to Edit", "Nothing to Edit", "explain 'Nothing to Edit"),
    ("shell/fMain.cpp", "&Collapse Nodes", "&Close Nodes", "commands.html does not explain 'Close Nodes'"),
    ("forms/fNav.cpp", "Icon Name:", "Icon:", "node-form.html does not explain 'Icon:'"),
    ("forms/fWeb.cpp", "T - Thumbnail Images", "T - Thumbnails", "paragraphs.html does not explain 'T - Thumbnails'"),
    ("forms/fWeb.cpp", "Do you want to Update the Paragraph?", "Do you want this?", "explain 'Do you want this?'"),
    ("forms/ParameterChoices.cpp", "LKey: Long Integer Key", "LKey: Long Key", "explain 'LKey: Long Key'"),
    ("forms/ParameterChoices.cpp", "How to Segment Time-Line", "How to Cut Time", "explain 'How to Cut Time'"),
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
    for name, old, new, fault in SPOILS:
        with tempfile.TemporaryDirectory() as folder:
            copy = pathlib.Path(folder)
            shutil.copytree(root / "help", copy / "help")
            for source in SOURCES:
                (copy / source).parent.mkdir(exist_ok=True)
                shutil.copy(root / source, copy / source)
            if list(check_pages.faults(copy)):
                print("the copy has faults before it is spoilt")
                return 1
            spoil(copy, name, old, new)
            reported = list(check_pages.faults(copy))
            if not reported or not any(fault in line for line in reported):
                unnoticed += 1
                print(f"{name}: {old!r} by {new!r} is not noticed, but {reported}")
    print(f"{len(SPOILS) - unnoticed} of {len(SPOILS)} faults were noticed")
    return 1 if unnoticed else 0


if __name__ == "__main__":
    sys.exit(main())
