#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the pages of the help: that they are whole, and that they explain what the program says.

    check_pages.py [ROOT]    ROOT is the source tree; by default the one that contains this script

Prints a line for each fault, and fails if there is one.
"""
import html
import html.parser
import pathlib
import re
import sys

VOID = {"br", "hr", "img", "link", "meta"}
PLAIN = VOID | {"html", "head", "title", "body", "h1", "h2", "p", "a", "b", "i", "tt", "code", "pre", "ul", "ol", "li",
                "table", "tr", "td", "th"}
MOST_BYTES = 60 * 1024  # of a picture


class Page(html.parser.HTMLParser):
    """The parts of a page that are checked."""

    def __init__(self, path):
        super().__init__()
        self.path, self.links, self.anchors, self.faults, self.open = path, [], set(), [], []
        self.texts = {"title": "", "h1": ""}
        self.codes, self.words, self.keywords = [], "", []
        data = path.read_bytes()
        if any(byte > 126 or (byte < 32 and byte != 10) for byte in data):
            self.faults.append("has other bytes than printable ASCII and line feeds")
        self.feed(data.decode("ascii", "replace"))
        self.close()
        self.faults += [f"<{tag}> is not closed" for tag in self.open]
        self.words = " ".join(self.words.split())

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag not in PLAIN:
            self.faults.append(f"<{tag}> is none of the tags that every viewer shows")
        if tag not in VOID:
            self.open.append(tag)
        if tag == "code":
            self.codes.append("")
        if tag == "img" and not (values.get("alt") and values.get("width") and values.get("height")):
            self.faults.append(f"picture {values.get('src')} lacks alt, width or height")
        if tag == "img":
            self.faults += wrong_size(self.path.parent / values.get("src", ""), values)
        if values.get("name") == "keywords":
            self.keywords = [word.strip() for word in values["content"].split(",")]
        elif "name" in values and tag == "a":
            self.anchors.add(values["name"])
        self.links += [values[name] for name in ("href", "src") if name in values]
        self.words += " "

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> at line {self.getpos()[0]} ends nothing")
        if tag != "code":
            self.words += " "

    def handle_data(self, data):
        self.words += data
        if self.open and self.open[-1] in self.texts:
            self.texts[self.open[-1]] += data
        if "code" in self.open:
            self.codes[-1] += data


def wrong_size(picture, values):
    """Whether the size of a PNG differs from the size in its page."""
    if not picture.is_file():
        return []  # reported as a link
    data = picture.read_bytes()
    size = [str(int.from_bytes(data[at:at + 4], "big")) for at in (16, 20)]
    if [values.get("width"), values.get("height")] == size:
        return []
    return [f"{picture.name} is {size[0]} by {size[1]}"]


def literals(source):
    """The string literals of C++ source text, adjacent ones joined, comments left out."""
    source = re.sub(r"^\s*(//|#).*$", "", source, flags=re.M)
    runs = re.findall(r'"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*', source)
    joined = ("".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', run)) for run in runs)
    return [text.replace("\\r\\n", "\n").replace("\\n", "\n").replace('\\"', '"') for text in joined]


def squeezed(text):
    return " ".join(text.split())


def said_by_the_program(root):
    """What the program says and which page must explain it: (text, page, whether it must be marked as code)."""
    def texts(path):
        return literals((root / path).read_text())

    for path, page in (("analysis/NavRules.cpp", "nav-findings.html"), ("analysis/WebRules.cpp", "web-findings.html")):
        for text in texts(path):
            if text.startswith(("=>", "RULE #")):
                yield text, page, True
            for rule in re.findall(r"^\d\. (.*)$", text, flags=re.M):
                yield rule, page, True
    for text in texts("model/clsNavSchemes_Fuse.cpp"):
        if len(text) > 2:
            yield text, "messages.html", False
    for path in ("shell/fMain_Edit.cpp", "shell/FileDialogs.cpp", "shell/SaveRefusal.cpp", "shell/HelpFile.cpp"):
        for text in texts(path):
            sentence = text.split("\n%1")[0]
            if " " in sentence and not re.search(r"%1|\(\*|^[&(]", sentence):
                yield sentence, "messages.html", False
    for path in ("forms/fNav.cpp", "forms/fWeb.cpp"):
        for text in texts(path):
            if text.startswith("Do you want"):
                yield text, "messages.html", False
    for text in texts("forms/ParameterChoices.cpp"):
        if re.match(r"\w+: ", text):
            yield text, "parameters.html", False
    for path, page in (("forms/fNav.cpp", "node-form.html"), ("forms/fWeb.cpp", "paragraph-form.html")):
        for text in texts(path):
            if text.endswith(":") and len(text) < 40 or re.match(r"User Role", text):
                yield text, page, False
    for text in texts("forms/fNav.cpp"):
        if re.match(r"[A-Z] - ", text):
            yield text, "node-form.html", False
    for text in texts("forms/fWeb.cpp"):
        if re.match(r"[A-Z] - ", text):
            yield text, "paragraphs.html", False
    menu = re.findall(r'\{(?:"\w*"|nullptr), "mnu\w+", ("[^"]*"), (.*?)\}', (root / "shell/fMain.cpp").read_text())
    for caption, command in menu:
        if command != "nullptr":
            yield squeezed(caption.strip('"').replace("&", "")), "commands.html", False
    quoted = re.findall(r"'(How to [^']+)' section", " ".join(texts("forms/ParameterChoices.cpp")))
    for title in quoted:
        yield title, "time-line.html", False


# The least number of texts of the program for each page: if fewer are found, the search is broken.
AT_LEAST = {"nav-findings.html": 20, "web-findings.html": 20, "messages.html": 20, "parameters.html": 5,
            "node-form.html": 10, "paragraph-form.html": 8, "paragraphs.html": 7, "commands.html": 18,
            "time-line.html": 1}


def faults(root):
    folder = root / "help"
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    pictures = {f"pictures/{path.name}" for path in (folder / "pictures").iterdir()}
    listed = (folder / "contents.txt").read_text().splitlines()
    names = [line.strip() for line in listed]
    used = {"help.css"}

    for name in pages:
        if names.count(name) != 1:
            yield f"contents.txt lists {name} {names.count(name)} times"
    for name in names:
        if name not in pages:
            yield f"contents.txt lists {name!r}, which is no page"
    depth = -2
    for line in listed:
        indent = len(line) - len(line.lstrip())
        if indent % 2 or indent > depth + 2:
            yield f"contents.txt indents {line.strip()} by {indent}"
        depth = indent

    titles, keywords = {}, {}
    for name, page in pages.items():
        yield from (f"{name}: {fault}" for fault in page.faults)
        title = page.texts["title"]
        if not title or title != page.texts["h1"]:
            yield f"{name}: the title is {title!r} and the heading {page.texts['h1']!r}"
        if not page.keywords:
            yield f"{name}: has no keywords"
        for text, owners in [(title, titles)] + [(word, keywords) for word in page.keywords]:
            if re.search(r'[&<>";\\$]', text):
                yield f"{name}: {text!r} cannot stand in contents and index"
            if text.lower() in owners:
                yield f"{name}: {text!r} leads to {owners[text.lower()]} already"
            owners[text.lower()] = name
        for link in page.links:
            target, _, anchor = link.partition("#")
            used.add(target)
            target = target or name
            if target in pages:
                if anchor and anchor not in pages[target].anchors:
                    yield f"{name}: {target} has no anchor {anchor}"
            elif target not in pictures and not (target == "help.css" and (folder / target).is_file()):
                yield f"{name}: there is no {target}"
    for picture in sorted(pictures - used):
        yield f"{picture} is on no page"
    for picture in sorted(pictures):
        if (folder / picture).stat().st_size > MOST_BYTES:
            yield f"{picture} is larger than {MOST_BYTES} bytes"
    for name in names[1:]:
        if name in pages and name not in used:
            yield f"no page leads to {name}"

    found = dict.fromkeys(AT_LEAST, 0)
    rules = set()
    for text, name, is_code in said_by_the_program(root):
        found[name] = found.get(name, 0) + 1
        if name not in pages:
            yield f"there is no page {name}"
        elif is_code:
            rules.add(squeezed(text))
            # Blanks count here: two findings differ only by a blank.
            if text.strip() not in [" ".join(code.strip().split("\n")) for code in pages[name].codes]:
                yield f"{name} does not explain {text!r}"
        elif squeezed(text) not in pages[name].words:
            yield f"{name} does not explain {text!r}"
    for name, least in AT_LEAST.items():
        if found[name] < least:
            yield f"only {found[name]} texts of the program were found for {name}"
    for name in ("nav-findings.html", "web-findings.html"):
        for code in pages[name].codes if name in pages else []:
            if code.startswith(("=>", "RULE")) and squeezed(code) not in rules:
                yield f"{name} explains {code!r}, which the program does not say"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    wrong = list(faults(root))
    print("\n".join(wrong) or "the pages are whole")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
