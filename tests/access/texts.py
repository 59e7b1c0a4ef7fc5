# SPDX-License-Identifier: MIT
"""What a screen reader learns about each window: names, helps, rows and texts, all spelled out."""

import csv

from wizard import (INTRODUCTION, MESSAGE, NODE_FORM, OPEN, PARAGRAPH_FORM, QUESTION, REPORT, SAVE, TITLE, chosen,
                    children, everything, find, grid_row, header, is_in, name, role, row_count, run, text, tree_rows)

MENUS = [
    "menu bar: File, Navigation, Web",
    "File: Introduction, Open, Help, Exit",
    "Open: Open Nav. File, Open Web File",
    "Navigation: New, Save to Text File, Collapse Nodes, Re-Number, Analysis of Nav Scheme, Action To Do",
    "Web: Save to Text File, Analysis of Web Scheme, Action To Do",
]

TREE = [
    "Data Browser, Root node", "Hire desk, Fixed node", "Workshop, Fixed node", "Fleet, Fixed node",
    "Stock, Fixed node", "Customers, Fixed node", "Accounts, Fixed node", "Staff, Fixed node",
]
BELOW_HIRE_DESK = [
    "Today at a glance, Non-generating node", "Hires going out today, Generating node",
    "Hires due back today, Generating node", "Hires more than two days late, Generating node",
    "Bicycles by type, Generating node", "Free bicycles by style, Fixed node",
    "Caf\u00e9 stop vouchers, Non-generating node",
]

NODE_TYPES = {"F": "Fixed node", "G": "Generating node", "R": "Recurring node", "N": "Non-generating node"}
PARAGRAPH_TYPES = {
    "C": "Bar chart paragraph", "H": "Header paragraph", "E": "Action query paragraph", "M": "Multi-chapter paragraph",
    "I": "Image header paragraph", "S": "Table paragraph", "T": "Thumbnails paragraph",
}

LEGEND = [
    "Fixed Node (Red) ", "Generating Node (Blue) ", "Recurring Node (Green) ", "Non-Generating (Brown) ",
    "Rules Explained:",
    "(F)-Fixed Node , can have (N, any number) of (F), (G), (R) and/or (N) as Child Nodes.",
    "(G), Generating Node MUST have only ONE child which is of type (G), (R) or (N). Only One Child Node must Exist!",
    "(R), Recurring Node and (N)-Non-Generating Node cannot have any child nodes.",
    "When in Treeview: (Ins) Adds a Child Node,   (F2) Edits a Node,  (Del) Deletes a Node.",
]

KEY_HINT = "F3: Save,       ESC: Cancel .   Enter: Move Field-toField"

# role, name and help of each field, in the order in which Tab goes through them
NODE_FIELDS = (
    ("text", "ID:", ""),
    ("text", "Description:",
     "Description of the Node as it should appear in Treeview Control. If Type is 'G' or 'R', then this "
     "fields can be left blank or it can be any '<dummy>' text."),
    ("list", "Node Type:",
     "Select the type of this Node. The types are (F)-Fixed, (G)-Generating Type, (R)-Recurring Type, and "
     "(N)-Non-Generating Type."),
    ("text", "Query:",
     "Please specify the name of Query or Stored Procedure. This should be specified ONLY when the type "
     "selected is (G) or (R). This query should be a two-field query; ID and Description fields. This "
     "query will feed the Names/Description to be filled when this Node is clicked. Also, if this query "
     "has any CONSTANT parameter(s), it should be specified here. For example, 'spG_Customers', where "
     "spG_Customers list all the Customers. When it is required that only Customers beginning with 'A' "
     "should be listed, then 'A' becomes the constant parameter and it should be specified as "
     "(spG_Customers \"A\") -- without the brackets! As a matter of Conventions, this query should be "
     "prefixed with 'spG_', which means that it is a Generating Query (for (R) or (G)-Type Nodes). 'spW_' "
     "can be used for all those queries whose results are to displayed in Web-Page. "),
    ("list", "Parameter Type:",
     "The Parameters Can be one of the Following : 'None', 'LKey', 'CKeynn', 'Text', or 'Today'."),
    ("text", "Parameter Type: length nn",
     "Please enter numeric value"),
    ("text", "Parameter Type: as it will be stored", ""),
    ("text", "Icon Name:",
     "Name of the Icon which is to be associated with this node. The Icon should be present in ImageList "
     "Control."),
    ("text", "User Role No:",
     "Pelmo implements the Role-Based Security. Specify the Role Number of the Users who are allowed to "
     "access this Node."),
)

# role, name and help of each field, in the order in which Tab goes through them
PARAGRAPH_FIELDS = (
    ("text", "ID:", ""),
    ("text", "Paragraph Title:",
     "Please Enter the Title of the Paragraph. If Suffixed by (colon :), then whatever is the Text of "
     "currently selected Node in Treeview will be suffixed to this Title.  For Example, if the title is "
     "'Order Pattern for : ', and the Text of the Node in Treeview is 'Customers', then the paragraph "
     "will be titled as 'Order Pattern for : Customers'"),
    ("list", "Paragraph Type:",
     "<<CHEMIST -- An Aid to Remembering.>> Select the type of Paragraph. The types are: (C)-Displays a "
     "pure-HTML bar chart, (H)-Header, (E)-Execute Action Query, (M)-Displays a Multi-Chapter (Shaped) "
     "Recordset, (I)-Image Header, (S)-Show Table Type, and (T)-Thumbnail of Images."),
    ("text", "Query:",
     "Specify the name of Query/Stored Procedure. This should be a multi-field query and should have "
     "first field named 'ID'. Also, if this query has any CONSTANT parameter(s), it should be specified "
     "here. For example, if 'spW_Employees' lists all employees below a boss (Parameter=Integer=Boss's "
     "ID), then specifying 'spW_Employees 0' will display the CHIEF (the person who has no Boss and he is "
     "the ultimate Boss!). As a matter of Conventions, this query should be prefixed with 'spW_', which "
     "means that it is a Web-Page Query. "),
    ("list", "Parameter Type:",
     "The Parameters Can be one of the Following : 'None', 'LKey', 'CKeynn', 'Text', or 'Today'."),
    ("text", "Parameter Type: length nn",
     "Please enter numeric value -- The length of Character Key."),
    ("text", "Parameter Type: as it will be stored", ""),
    ("text", "Form No.:",
     "Enter a Form Number (1, 2, 3 ..). Specifying this will place a hyperlink on the Web-Page Report, "
     "which when clicked will fire an event, which can be coded to open a Data Entry Form. This number "
     "will specify which form to open. You can specify as 1 for Customers, 2 for Products, 3 for "
     "Employee, etc."),
    ("text", "Columns Or (XML for (T)):",
     "This is a multi-purpose field. Columns can be Specified as 'All' or '1:3:6'. Column Nos start with "
     "First (ID) field counted as ZERO. When used with Type-S, the columns specified will be summed-up. "
     "(For example: '1:5:6:7' will sum-up column nos. 1, 5, 6 and 7. Specifying 'All' will sum-up all "
     "columns starting with 1st. This is useful when a cross-Tab Query is to be summed-up and we do not "
     "beforehand the count of columns!. Please ensure that they are Numeric!. For Type-C, columns can be "
     "specified as '3:4', 3rd col will be X-Axis and 4th, Y-Axis. 'All' will generate charts will all "
     "combination of Columns with 1st columns. i.e. '1:2', '1:3', '1:4', etc.  For Type-T, this field "
     "should be used to specify the Thumbnail parameters as XML fragment.  For example: "
     "'<height>150</height> <width>150</width> <columns>3</columns> <textposition>bottom</textposition>'. "
     "<textposition> can be 'botton' or 'right' only!"),
    ("text", "Sequence No:",
     "Please give the Sequence No. for this Paragraph to be displayed in the Web-Report."),
)


LISTS = {
    "Node Type:": [
        "F - Fixed Branch", "G - Generating Branch", "R - Recurring Branch", "N - Non-Generating Branch"],
    "Paragraph Type:": [
        "C - Chart (Bar)", "H - Header", "E - Execute Only", "M - Multi-Chapter (Shaped)", "I - Image Header",
        "S - Show Table", "T - Thumbnail Images"],
    "Parameter Type:": [
        "None: No parameter", "LKey: Long Integer Key", "CKeynn: Character Key of length nn",
        "Text: Supply Displayed Text of Treeview as parameter", "Today: supply today's date as parameter"],
}

ANALYSIS = """THE RULES FOR FORMULATING NAVIGATIONAL SCHEME:

1. The Root Node should be of Type (F) Only.
2. The (F) Type Node can have any number (one or more) of (F), (G), (R) or (N)-Type Nodes. Or their combinations.
3. The (G)-Type SHOULD have One and Only One Node, which can be of Types (G), (R) or (N).
4. The (R) and (N) Nodes SHOULD NOT have any Child Nodes.
5. The Query or Stored Procedure Name should be specified for (G) and (R) types Only.

OBSERVATIONS WHILE CHECKING THE NAVIGATIONAL SCHEME:

"""
NAV_TO_DO = "THE TO-DO LIST FOR NAVIGATIONAL SCHEME:\n\n"
WEB_ANALYSIS = "THE RULES :\n\n"
WEB_TO_DO = "THE TO-DO LIST FOR WEB-PAGE DISPLAY SCHEME:\n\n"


def labels(window):
    return [name(thing) for thing in everything(window) if role(thing) == "label"]


def menus(top):
    """Each menu of the menu bar with its items, in a line."""
    found = [f"{name(top) or role(top)}: " + ", ".join(name(item) for item in children(top))]
    for item in children(top):
        for popup in children(item):
            below = [f"{name(item)}: " + ", ".join(name(each) for each in children(popup))]
            below += [line for each in children(popup) for deeper in children(each)
                      for line in [f"{name(each)}: " + ", ".join(name(last) for last in children(deeper))]]
            found += below
    return found


def sample(wizard, file):
    with open(f"{wizard.folder}/{file}", encoding="cp1252", newline="") as lines:
        return list(csv.reader(lines))[1:]


def grid(test, main, title, columns, records, types, type_column):
    table = find(main, "table", title)
    test.equal(f"header of {title}", header(table), columns)
    test.equal(f"rows of {title}", row_count(table), len(records))
    # The first rows of each type represent all rows of that type.
    seen = set()
    for number, record in enumerate(records):
        letter = record[type_column]
        if number < 12 or letter not in seen:
            seen.add(letter)
            test.equal(f"row {number} of {title}", grid_row(table, number),
                       ("|".join(record[:len(columns)]), {types[letter]}))
    return seen


def form(test, window, fields, heading):
    inputs = [thing for thing in everything(window) if is_in("FOCUSABLE", thing)]
    test.equal(f"fields of {name(window)}",
               [(role(thing), name(thing), thing.get_description()) for thing in inputs], list(fields))
    for thing in inputs:
        if role(thing) == "list":
            test.equal(f"choices of {name(thing)}", [name(item) for item in children(thing)], LISTS[name(thing)])
    said = labels(window)
    test.equal(f"key hint of {name(window)}", KEY_HINT in said, True)
    if heading:
        test.equal("heading", heading in said, True)
        test.equal("footnote", "Please Refer the Tutorials for Detailed Explanations of each field !!" in said, True)


def message(wizard, test, title, said, buttons):
    window = wizard.window(title)
    test.equal(f"role of '{title}'", role(window), "alert")
    test.equal(f"text of '{title}'", labels(window), [said])
    test.equal(f"buttons of '{title}'",
               [name(thing).replace("&", "") for thing in everything(window) if role(thing) == "push button"], buttons)


def report(wizard, test, menu, letter, check):
    wizard.menu(menu, letter)
    box = find(wizard.window(REPORT), "text", "Report")
    wizard.focus_is("text", "Report")
    check(text(box))
    wizard.keys("Escape")
    wizard.window(TITLE)


def popup(wizard, test, key, items):
    """Opens a popup menu and goes around it once, as a screen reader does to learn its items."""
    wizard.heard.clear()
    wizard.open_menu(key, lambda: wizard.heard, f"nothing is heard of '{items[0]}'")
    for count in range(len(items)):
        wizard.wait(lambda wanted=count + 1: len(wizard.heard) >= wanted, f"nothing is heard of '{items[count]}'")
        wizard.keys("Down")
    wizard.wait(lambda: len(wizard.heard) > len(items), "the menu does not go around")
    test.equal(f"popup menu of {key}", wizard.heard, [("menu item", item, "") for item in items + items[:1]])
    wizard.keys("Escape")


def file_dialog(wizard, test, title, name_in_it, filter_chosen, button):
    window = wizard.window(title)
    field = find(window, "text", "File name:")
    test.equal(f"name proposed in '{title}'", text(field), name_in_it)
    test.equal(f"labels of '{title}'", labels(window), ["Look in:", "File name:", "Files of type:"])
    of = {}
    for thing in everything(window):
        if role(thing) == "label":
            of[name(thing)] = [name(relation.get_target(0)) for relation in thing.get_relation_set()]
    test.equal(f"what the labels of '{title}' are of", of, {
        "Look in:": [wizard.folder], "File name:": ["File name:"], "Files of type:": [filter_chosen]})
    named = [name(thing).replace("&", "") for thing in everything(window)
             if role(thing) in ("push button", "tree") and is_in("SHOWING", thing)]
    new_folder = ["Create New Folder"] if title == SAVE else []
    test.equal(f"buttons and list of '{title}'", named, [
        "Back", "Forward", "Parent Directory", *new_folder, "List View", "Detail View", "Files", button, "Cancel"])
    wizard.keys("Escape")
    wizard.window(TITLE)


def play(wizard, test):
    window = wizard.window(INTRODUCTION)
    wizard.focus_is("text", "Introduction")
    introduction = text(find(window, "text", "Introduction"))
    test.equal("introduction begins", introduction.split("\n")[0],
               "The purpose of using this wizard is to generate Navigational Scheme and Web-Page Display Scheme. These "
               "correspond to Tables XST1 and XST2 in the database. ")
    test.equal("picture", [name(thing) for thing in everything(window) if role(thing) == "image"],
               ["A navigation tree beside a report page"])
    wizard.keys("Escape")
    message(wizard, test, MESSAGE, "If you need to be familiarized with the working of this Wizard, \nPlease open the "
            "Files XST1.txt and XST2.txt for getting started...", ["OK"])
    wizard.keys("Return")
    main = wizard.window(TITLE)
    test.equal("name of the application", name(wizard.application), "Reporting Scheme Wizard for Pelmo")

    bar = next(thing for thing in everything(main) if role(thing) == "menu bar")
    test.equal("menus", menus(bar), MENUS)
    said = labels(main)
    test.equal("legend", [each for each in LEGEND if each not in said], [])

    wizard.menu("f", "o", "n")
    file_dialog(wizard, test, OPEN, "", "All Files (*.*)", "Open")
    wizard.menu("n", "s")
    file_dialog(wizard, test, SAVE, "XST1.txt", "Text File (.txt)", "Save")
    wizard.menu("w", "s")
    file_dialog(wizard, test, SAVE, "XST2.txt", "Text File (.txt)", "Save")

    wizard.open_samples()
    tree = find(main, "tree", "Navigation tree")
    test.equal("rows of the tree", tree_rows(tree), TREE)
    test.equal("header of the tree", header(tree), ["Node"])
    nodes = grid(test, main, "Navigational Table - XST1",
                 ["ID", "Description", "Type", "Parent", "Query", "Parameter", "Icon", "Role"],
                 sample(wizard, "XST1.txt"), NODE_TYPES, 2)
    test.equal("node types in the samples", nodes, set("FGRN"))
    paragraphs = grid(test, main, "Web Page Display Table- XST2",
                      ["ID", "XST1", "Seq", "Paragraph Title", "Query", "Parameter", "Type", "Form#", "Columns"],
                      sample(wizard, "XST2.txt"), PARAGRAPH_TYPES, 6)
    test.equal("paragraph types in the samples", paragraphs, set("CHEMIST"))

    wizard.heard.clear()
    wizard.keys("Home", "Down", "Right")
    test.becomes(wizard, "selected node", lambda: chosen(tree), ["Hire desk, Fixed node"])
    test.becomes(wizard, "rows below an opened node", lambda: tree_rows(tree), TREE[:2] + BELOW_HIRE_DESK + TREE[2:])
    wizard.wait(lambda: len(wizard.heard) >= 2, "nothing is heard of the nodes")
    test.equal("heard of the tree", wizard.heard,
               [("table cell", "Data Browser, Root node", ""), ("table cell", "Hire desk, Fixed node", "")])

    popup(wizard, test, "Menu", ["Add Child   (Ins)", "Edit Node   (F2)", "Delete       (Del)"])
    wizard.focus_is("tree", "Navigation tree")
    wizard.keys("F2")
    form(test, wizard.window(NODE_FORM), NODE_FIELDS, "Parent Node: [1]  Data Browser")
    wizard.keys("Tab")
    wizard.write("Changed")
    wizard.keys("Escape")
    message(wizard, test, QUESTION, "Do you want to Update the Node?", ["Yes", "No"])
    wizard.keys("alt+n")
    wizard.window(TITLE)
    wizard.keys("Home", "F2")
    message(wizard, test, MESSAGE, "Root Node cannot be modified !!", ["OK"])
    wizard.keys("Return")
    wizard.window(TITLE)

    wizard.keys("Tab", "Tab")
    wizard.focus_is("table", "Web Page Display Table- XST2")
    wizard.keys("Down")
    wizard.window(TITLE)
    popup(wizard, test, "Shift+F10", ["Add Paragraph", "Edit Paragraph", "Delete Paragraph", "Display Full Table XST2",
                                      "Display Orphans"])
    wizard.focus_is("table", "Web Page Display Table- XST2")
    wizard.keys("Menu", "e")
    form(test, wizard.window(PARAGRAPH_FORM), PARAGRAPH_FIELDS, None)
    wizard.keys("Escape")
    wizard.window(TITLE)

    def begins(beginning):
        return lambda said: test.equal(f"report '{beginning.strip()}'", said[:len(beginning)], beginning)

    report(wizard, test, "n", "a", lambda said: test.equal("analysis of the nodes", said, ANALYSIS))
    report(wizard, test, "n", "t", begins(NAV_TO_DO))
    report(wizard, test, "w", "a", begins(WEB_ANALYSIS))
    report(wizard, test, "w", "t", begins(WEB_TO_DO))

    wizard.keys("F1")
    message(wizard, test, MESSAGE, f"The help file was not found:\n{wizard.folder}/Pelmo.chm", ["OK"])
    wizard.keys("Return")
    wizard.window(TITLE)


run(play)
