#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Extracts from the pages of the tutorial what their reader does: bold is a key to press, typewriter text is typed.

    tutorial.py                    checks that all pages can be read
    tutorial.py steps PAGE         prints one step per line: "step NUMBER", "press KEY" (its X name), "type TEXT"
    tutorial.py example PAGE N     prints the N-th example of a page: commands to enter, or a file

PAGE is a page of the help without its ".html".
"""
import html.parser
import pathlib
import re
import sys

PLAYED = ["tutorial-nodes", "tutorial-paragraphs", "tutorial-save", "tutorial-import"]
KEYS = {"Enter": "Return", "Esc": "Escape", "Ins": "Insert", "menu key": "Menu", "Menu key": "Menu", "Tab": "Tab",
        "Home": "Home", "End": "End", "Up": "Up", "Down": "Down", "Left": "Left", "Right": "Right", "*": "asterisk"}
TIMES = {"twice": 2, "three times": 3, "four times": 4, "five times": 5, "six times": 6}


class Unreadable(Exception):
    pass


def key_named(name):
    """The X name of a key. Letters are pressed without Shift, even in menus, where they are underlined capitals."""
    if name in KEYS:
        return KEYS[name]
    if re.fullmatch(r"[A-Za-z]", name):
        return name.lower()
    if re.fullmatch(r"F[1-9][0-2]?", name):
        return name
    modifier, plus, key = name.partition("+")
    if plus and modifier in ("Alt", "Shift"):
        return f"{modifier.lower()}+{key_named(key)}"
    raise Unreadable(f"no key: {name!r}")


class Page(html.parser.HTMLParser):
    """The steps of a page, and its examples."""

    def __init__(self, name):
        super().__init__()
        self.steps, self.examples, self.open = [], [], []
        self.feed((pathlib.Path(__file__).parents[2] / f"help/{name}.html").read_text(encoding="ascii"))
        self.steps = [step for step in self.steps if step]

    def handle_starttag(self, tag, attributes):
        self.open.append(tag)
        if tag in ("p", "li"):
            self.steps.append([])
        if tag == "pre":
            self.examples.append("")

    def handle_endtag(self, tag):
        while self.open.pop() != tag:  # elements without an end tag, such as pictures
            pass

    def handle_data(self, data):
        tag = self.open[-1] if self.open else ""
        text = " ".join(data.split())
        if tag == "pre":
            self.examples[-1] += data
        elif tag == "tt":
            self.steps[-1].append(("type", text))
        elif tag == "b":
            self.steps[-1] += [("press", key_named(name)) for name in text.split(", ")]
        else:
            for words, count in TIMES.items():
                if re.match(rf"{words}\b", text):
                    self.steps[-1] += self.steps[-1][-1:] * (count - 1)


def check():
    for name in PLAYED:
        page = Page(name)
        if not page.steps:
            raise Unreadable(f"{name} has no step")
    return "the tutorial can be followed by a machine"


def main():
    what, *more = sys.argv[1:] or ["check"]
    try:
        if what == "steps":
            for number, step in enumerate(Page(more[0]).steps, start=1):
                print("step", number)
                for action, value in step:
                    print(action, value)
        elif what == "example":
            print(Page(more[0]).examples[int(more[1]) - 1], end="")
        else:
            print(check())
    except Unreadable as fault:
        print(fault, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
