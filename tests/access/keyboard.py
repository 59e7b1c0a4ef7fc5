# SPDX-License-Identifier: MIT
"""The main job without a mouse: opens the samples, moves around, adds, edits, deletes, reads the reports, saves."""

from wizard import (MESSAGE, NODE_FORM, PARAGRAPH_FORM, QUESTION, REPORT, SAVE, TITLE, chosen, find, grid_texts, run,
                    selected_rows, text, tree_rows)

NODES = "Navigational Table - XST1"
PARAGRAPHS = "Web Page Display Table- XST2"
NODE_FIELDS = [
    ("text", "ID:"), ("text", "Description:"), ("list", "Node Type:"), ("text", "Query:"), ("list", "Parameter Type:"),
    ("text", "Parameter Type: as it will be stored"), ("text", "Icon Name:"), ("text", "User Role No:"),
]


def fields_by_enter(wizard, fields):
    for field in fields:
        wizard.focus_is(*field)
        wizard.keys("Return")
    wizard.focus_is(*fields[0])


def lines(path):
    with open(path, "rb") as file:
        return file.read().split(b"\r\n")


def same_lines(test, what, found, expected):
    """Reports only the first line that differs."""
    test.equal(f"number of {what}", len(found), len(expected))
    differing = [pair for pair in zip(found, expected) if pair[0] != pair[1]]
    test.equal(what, differing[:1], [])


def field(line, number):
    return int(line.split(b",")[number])


def play(wizard, test):
    wizard.start()
    main = wizard.open_samples()
    tree = find(main, "tree", "Navigation tree")
    nodes = find(main, "table", NODES)
    paragraphs = find(main, "table", PARAGRAPHS)

    def selected(wanted):
        test.becomes(wizard, "selected node", lambda: chosen(tree), [wanted])

    # The focus goes around the three panels, both ways.
    wizard.focus_is("tree", "Navigation tree")
    for key in ("Tab", "shift+Tab"):
        first, second = (NODES, PARAGRAPHS) if key == "Tab" else (PARAGRAPHS, NODES)
        wizard.keys(key)
        wizard.focus_is("table", first)
        wizard.keys(key)
        wizard.focus_is("table", second)
        wizard.keys(key)
        wizard.focus_is("tree", "Navigation tree")

    # Moves through the tree, opens and closes it; Enter is the click.
    wizard.keys("Home")
    selected("Data Browser, Root node")
    wizard.keys("Down", "Down")
    selected("Workshop, Fixed node")
    wizard.keys("Return")
    test.becomes(wizard, "paragraphs of the chosen node", lambda: grid_texts(paragraphs), [
        "31|19|1|Workshop notice board|spW_Notices 2||H|0|",
        "32|19|2|Jobs taken in by weekday|spW_JobsByWeekday||C|0|1:2"])
    opened = len(tree_rows(tree))
    wizard.keys("Left")
    test.becomes(wizard, "rows of the tree when a branch is closed", lambda: len(tree_rows(tree)), 8)
    wizard.keys("Right")
    test.becomes(wizard, "rows of the tree when it is opened", lambda: len(tree_rows(tree)), opened)
    wizard.keys("End")
    selected("Staff, Fixed node")

    # Del deletes it with everything below it.
    wizard.keys("Delete")
    test.becomes(wizard, "the deleted node", lambda: "Staff, Fixed node" in tree_rows(tree), False)

    # Ins adds a node; Enter, a letter and F3 fill it in.
    wizard.keys("Home", "Down")
    selected("Hire desk, Fixed node")
    wizard.keys("Insert")
    wizard.window(NODE_FORM)
    wizard.keys("Return")
    wizard.focus_is("text", "Description:")
    wizard.write("Guided tours")
    wizard.keys("Return")
    wizard.focus_is("list", "Node Type:")
    wizard.keys("g")
    wizard.keys("F3")
    wizard.window(MESSAGE)
    wizard.focus_is("push button", "OK")
    wizard.keys("space")
    form = wizard.window(NODE_FORM)
    wizard.focus_is("list", "Node Type:")
    wizard.keys("Return")
    wizard.focus_is("text", "Query:")
    wizard.write("spG_Tours")
    wizard.keys("Return")
    wizard.focus_is("list", "Parameter Type:")
    wizard.keys("t", "Down")
    stored = find(form, "text", "Parameter Type: as it will be stored")
    test.becomes(wizard, "parameter to be stored", lambda: text(stored), "Today")
    wizard.keys("F3", "Escape")
    wizard.window(TITLE)
    wizard.focus_is("tree", "Navigation tree")

    # F2 edits it; Enter goes around the fields; Esc asks, and a key answers.
    wizard.keys("Home", "Down", "Right")
    test.becomes(wizard, "the new node", lambda: "Guided tours, Generating node" in tree_rows(tree), True)
    for _ in range(tree_rows(tree).index("Guided tours, Generating node") - 1):
        wizard.keys("Down")
    selected("Guided tours, Generating node")
    wizard.keys("Shift+F10")
    wizard.wait(lambda: wizard.heard[-1] == ("menu item", "Add Child   (Ins)", ""), "no popup menu is heard of")
    wizard.keys("e")
    wizard.window(NODE_FORM)
    fields_by_enter(wizard, NODE_FIELDS)
    wizard.keys("Tab")
    wizard.write("Tours with a guide")
    wizard.keys("Escape")
    wizard.window(QUESTION)
    wizard.keys("Tab")
    wizard.keys("shift+Tab")
    wizard.keys("Return")
    wizard.window(TITLE)

    # It stays selected. A paragraph of its page, from the popup menu: if a key opened the menu, its first command is
    # highlighted.
    selected("Tours with a guide, Generating node")
    wizard.keys("Return")
    test.becomes(wizard, "no paragraphs yet", lambda: grid_texts(paragraphs), [])
    for title in ("Tours of this week", "Tours of next week"):
        wizard.keys("shift+Tab")
        wizard.focus_is("table", PARAGRAPHS)
        wizard.heard.clear()
        wizard.keys("Menu")
        wizard.wait(lambda: ("menu item", "Add Paragraph", "") in wizard.heard, "no popup menu is heard of")
        wizard.keys("Return")
        wizard.window(PARAGRAPH_FORM)
        wizard.keys("Return")
        wizard.focus_is("text", "Paragraph Title:")
        wizard.write(title)
        wizard.keys("Tab", "Tab")
        wizard.focus_is("text", "Query:")
        wizard.write("spW_Tours")
        wizard.keys("F3", "Escape")
        wizard.window(TITLE)
        wizard.focus_is("table", PARAGRAPHS)
        wizard.keys("Tab")
        wizard.focus_is("tree", "Navigation tree")
    test.becomes(wizard, "two paragraphs", lambda: grid_texts(paragraphs), [
        "100|66|1|Tours of this week|spW_Tours||S|0|", "101|66|2|Tours of next week|spW_Tours||S|0|"])

    # Deletes the second one and edits the first.
    wizard.keys("shift+Tab")
    wizard.focus_is("table", PARAGRAPHS)
    wizard.keys("Down", "Down")
    test.becomes(wizard, "selected paragraph", lambda: selected_rows(paragraphs), [1])
    wizard.keys("Menu", "d")
    test.becomes(wizard, "one paragraph", lambda: grid_texts(paragraphs), ["100|66|1|Tours of this week|spW_Tours||S|0|"])
    wizard.focus_is("table", PARAGRAPHS)
    wizard.keys("Down")
    test.becomes(wizard, "selected paragraph", lambda: selected_rows(paragraphs), [0])
    wizard.keys("Shift+F10", "e")
    wizard.window(PARAGRAPH_FORM)
    for wanted in (("text", "ID:"), ("text", "Paragraph Title:"), ("list", "Paragraph Type:")):
        wizard.focus_is(*wanted)
        wizard.keys("Return")
    wizard.focus_is("text", "Query:")
    wizard.write("spW_ToursOfWeek")
    wizard.keys("F3", "Escape")
    wizard.window(TITLE)
    test.becomes(wizard, "edited paragraph", lambda: grid_texts(paragraphs),
                 ["100|66|1|Tours of this week|spW_ToursOfWeek||S|0|"])

    # Moves through the grid of nodes, which has no popup menu.
    wizard.keys("shift+Tab")
    wizard.focus_is("table", NODES)
    wizard.keys("Down", "Down")
    test.becomes(wizard, "selected row of the nodes", lambda: selected_rows(nodes), [1])
    wizard.keys("ctrl+End")
    test.becomes(wizard, "last row of the nodes", lambda: selected_rows(nodes), [len(grid_texts(nodes)) - 1])

    # Opens, scrolls and closes the reports.
    for menu, letter in ("na", "nt", "wa", "wt"):
        wizard.menu(menu, letter)
        wizard.window(REPORT)
        wizard.focus_is("text", "Report")
        wizard.keys("Next", "Escape")
        wizard.window(TITLE)
        wizard.focus_is("table", NODES)

    # Saves both schemes.
    for menu, name in (("n", "nodes"), ("w", "paragraphs")):
        wizard.menu(menu, "s")
        wizard.file(SAVE, f"{wizard.folder}/{name}")
        wizard.window(TITLE)
    was = lines(f"{wizard.folder}/XST1.txt")
    gone = {next(field(line, 0) for line in was if b'"Staff"' in line)}
    for line in was[1:-1]:
        if field(line, 3) in gone:
            gone.add(field(line, 0))
    kept = [line for line in was if not (line[:1].isdigit() and field(line, 0) in gone)]
    after = next(number for number, line in enumerate(kept) if line.startswith(b'19,"Workshop"'))
    kept.insert(after, b'66,"Tours with a guide","G",2,"spG_Tours","Today","leaf",""')
    same_lines(test, "saved nodes", lines(f"{wizard.folder}/nodes.txt"), kept)
    kept = [line for line in lines(f"{wizard.folder}/XST2.txt")
            if not (line[:1].isdigit() and field(line, 1) in gone)]
    kept.insert(len(kept) - 1, b'100,66,1,"Tours of this week","spW_ToursOfWeek","","S",0,"",""')
    same_lines(test, "saved paragraphs", lines(f"{wizard.folder}/paragraphs.txt"), kept)

    wizard.menu("f", "x")
    test.equal("end of the program", wizard.process.wait(10), 0)


run(play)
