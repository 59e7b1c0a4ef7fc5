# SPDX-License-Identifier: MIT
"""Starts the wizard, examines it over AT-SPI as a screen reader does, and uses it with the keyboard alone."""

import os
import pathlib
import re
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

SOURCES = pathlib.Path(__file__).resolve().parents[2]
VERSION = re.search(r"^project\(.* VERSION ([\d.]+)", (SOURCES / "CMakeLists.txt").read_text(), re.M).group(1)
TITLE = f"Reporting Scheme Wizard for Pelmo {VERSION}"
INTRODUCTION = "Pelmo Wizard Introduction..."
MESSAGE = "Reporting Scheme Wizard for Pelmo"
REPORT = "Output..."
NODE_FORM = "Form to Add / Update a Navigational Node."
PARAGRAPH_FORM = "Form to Add / Update a Web-Page Paragraph."
QUESTION = "Update Confirmation"
OPEN = "Open A File"
SAVE = "Save File As..."

WITH_ROWS = ("table", "tree", "list", "combo box")
PATIENCE = 30  # seconds
BEFORE_PRESSING_AGAIN = 3  # seconds, on a machine so busy that a key was lost


class Failure(Exception):
    pass


def is_in(state, thing):
    return thing.get_state_set().contains(getattr(Atspi.StateType, state))


def children(thing):
    found = (thing.get_child_at_index(i) for i in range(thing.get_child_count()))
    return [child for child in found if child is not None]


def role(thing):
    return thing.get_role_name()


def name(thing):
    return thing.get_name()


def everything(thing, rows=False):
    """Everything below an object; the rows of grids, trees and lists only if asked for."""
    for child in children(thing):
        yield child
        if rows or role(child) not in WITH_ROWS:
            yield from everything(child, rows)


def find(below, wanted_role, wanted_name):
    for thing in everything(below):
        if role(thing) == wanted_role and name(thing) == wanted_name:
            return thing
    raise Failure(f"there is no {wanted_role} '{wanted_name}' in '{name(below)}'")


def text(thing):
    return Atspi.Text.get_text(thing, 0, Atspi.Text.get_character_count(thing))


def tree_rows(tree):
    return [name(cell) for cell in children(tree) if role(cell) == "table cell"]


def chosen(view):
    """What is selected in a tree or a list."""
    return [name(cell) for cell in children(view) if is_in("SELECTED", cell)]


def header(grid):
    return [name(cell) for cell in children(grid) if role(cell) == "table column header"]


def row_count(grid):
    return Atspi.Table.get_n_rows(grid)


def grid_row(grid, row):
    """The joined texts of a row's cells, and the description of each."""
    cells = [Atspi.Table.get_accessible_at(grid, row, column) for column in range(Atspi.Table.get_n_columns(grid))]
    if None in cells:
        raise Failure(f"row {row} is going away")
    return "|".join(name(cell) for cell in cells), {cell.get_description() for cell in cells}


def grid_texts(grid):
    return [grid_row(grid, row)[0] for row in range(row_count(grid))]


def selected_rows(grid):
    return [row for row in range(row_count(grid)) if Atspi.Table.is_row_selected(grid, row)]


class Wizard:
    def __init__(self, program):
        self.folder = os.path.dirname(program)
        self.process = subprocess.Popen([program])
        self.application = None
        self.heard = []  # what received the focus, as a screen reader is told: role, name, description
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register("object:state-changed:focused")
        self.wait(lambda: self._connect(), "the wizard is not seen over AT-SPI")

    def _connect(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for application in children(desktop):
            if application.get_process_id() == self.process.pid:
                application.set_cache_mask(Atspi.Cache.NONE)
                self.application = application
                return True
        return False

    def _hear(self, event):
        if not event.detail1:
            return
        thing = event.source
        try:
            self.heard.append((role(thing), name(thing), thing.get_description()))
        except GLib.Error:
            pass  # it is gone already

    def wait(self, condition, complaint, patience=PATIENCE):
        """Waits until the condition returns something true, and returns that."""
        end = time.monotonic() + patience
        while True:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                if result := condition():
                    return result
            except (GLib.Error, Failure):
                pass  # the object is just closing, or not there yet
            if time.monotonic() > end:
                raise Failure(complaint() if callable(complaint) else complaint)
            time.sleep(0.02)

    def active(self):
        for window in children(self.application):
            if is_in("ACTIVE", window):
                return window
        return None

    def window(self, title):
        """Waits for the window with this title, until it has the keyboard and keeps it."""

        def managed():
            asked = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True)
            return asked.stdout.strip() == title

        def there():
            # While windows open and close, the window manager moves the keyboard around, and that closes menus.
            for _ in range(3):
                window = self.active()
                if not window or name(window) != title or not managed():
                    return None
                time.sleep(0.08)
            return window if self.focus() else None

        def complaint():
            window = self.active()
            if window is None:
                return f"'{title}' does not come; no window has the keyboard"
            said = [name(thing) for thing in everything(window) if role(thing) == "label"]
            return f"'{title}' does not come; there is '{name(window)}', which says {said[:3]}"

        return self.wait(there, complaint)

    def focus(self):
        """The object with the focus, innermost first: the whole grid or tree, not a row of it."""
        window = self.active()
        if window is None:
            return None
        found = [thing for thing in everything(window) if is_in("FOCUSED", thing) and is_in("FOCUSABLE", thing)]
        return found[-1] if found else None

    def popup(self):
        """The open popup menu, if there is one; menus of the menu bar do not count."""
        for thing in everything(self.application):
            if role(thing) == "popup menu" and is_in("SHOWING", thing):
                return thing
        return None

    def focus_is(self, wanted_role, wanted_name):
        def there():
            thing = self.focus()
            return thing is not None and (role(thing), name(thing)) == (wanted_role, wanted_name)

        def complaint():
            thing = self.focus()
            return f"the keyboard should be at the {wanted_role} '{wanted_name}', and is at " + (
                f"the {role(thing)} '{name(thing)}'" if thing else "nothing")

        self.wait(there, complaint)

    def keys(self, *names):
        subprocess.run(["xdotool", "key", "--delay", "20", *names], check=True)

    def type(self, characters):
        subprocess.run(["xdotool", "type", "--delay", "10", "--", characters], check=True)

    def write(self, characters):
        """Replaces the text in the field with the focus."""
        field = self.wait(self.focus, "nothing has the keyboard")
        self.keys("ctrl+a")
        self.type(characters)
        self.wait(lambda: text(field) == characters,
                  lambda: f"'{characters}' was typed into '{name(field)}', and there stands '{text(field)}'")

    def open_menu(self, key, is_open, complaint):
        """Presses a key that opens a menu, and again if the menu does not open."""
        end = time.monotonic() + PATIENCE
        while True:
            self.keys(key)
            try:
                return self.wait(is_open, complaint, BEFORE_PRESSING_AGAIN)
            except Failure:
                if time.monotonic() > end:
                    raise
                self.keys("Escape")

    def menu(self, *letters):
        self.open_menu("alt+" + letters[0], self.popup, "the menu does not open")
        for letter in letters[1:]:
            self.wait(self.popup, "the menu does not open")
            self.keys(letter)

    def file(self, title, path):
        self.window(title)
        self.write(path)
        self.keys("Return")

    def start(self):
        """Closes the windows that the program starts with, up to the main window with its new scheme."""
        self.window(INTRODUCTION)
        self.keys("Escape")
        self.window(MESSAGE)
        self.keys("Return")
        return self.window(TITLE)

    def open_samples(self):
        self.menu("f", "o", "n")
        self.file(OPEN, "XST1.txt")
        self.window(TITLE)
        self.menu("f", "o", "w")
        self.file(OPEN, "XST2.txt")
        return self.window(TITLE)


class Test:
    """Counts what is as expected and what is not."""

    def __init__(self):
        self.faults = 0
        self.checks = 0

    def equal(self, what, found, expected):
        self.checks += 1
        if found != expected:
            self.faults += 1
            print(f"FAULT: {what}\n  is       {found!r}\n  instead of {expected!r}", flush=True)

    def becomes(self, wizard, what, look, expected):
        """For results that appear a moment after a key."""
        try:
            wizard.wait(lambda: look() == expected, what)
        except Failure:
            pass
        self.equal(what, look(), expected)


def run(play):
    """Runs a test and exits with its result."""
    test = Test()
    wizard = None
    try:
        wizard = Wizard(sys.argv[1])
        play(wizard, test)
    except (Failure, GLib.Error) as fault:
        test.faults += 1
        print(f"FAULT: {fault}", flush=True)
        import traceback

        traceback.print_exc()
    finally:
        if wizard and wizard.process.poll() is None:
            wizard.process.kill()
            wizard.process.wait()
    print(f"{test.checks} checks, {test.faults} faults")
    sys.exit(1 if test.faults or not test.checks else 0)
