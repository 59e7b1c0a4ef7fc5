#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Creates a pair of scheme files for the benchmarks: PREFIX.xst1 with nodes and PREFIX.xst2 with as many paragraphs.

usage: bench/make_scheme.py SHAPE NODES PREFIX [--shuffled]

  broad    folders in folders, about NODES^(1/5) nodes in each; the other types at the ends. The nodes break no rule,
           but many paragraphs do, and many nodes have a parameter that they do not keep.
  clean    a broad tree with nothing to find in either file
  star     one root with all others below it
  chain    each node below the one before
  hot      a broad tree, and all paragraphs on one node
  sparse   a broad tree with IDs far apart

IDs rise through the tree, and about every eighth is missing. The paragraphs are in the order of their nodes.
--shuffled shuffles the lines of both files. The same arguments always create the same bytes.
"""
import random
import sys

WORDS = ["Hire", "Repair", "Cycle", "Tool", "Ski", "Tent", "Caf\u00e9", "Stra\u00dfe", "\u20acuro", "Garage"]
OF = ["by week", "in stock", "to collect", "returned", "overdue", "of members", "at the desk"]
COLUMNS = {"C": "2:3", "S": "2:3:5", "T": "<height>150</height> <width>150</width>"}
ICONS = {"F": "folder", "G": "grid", "R": "form", "N": "leaf"}


def star(count, _):
    yield "F", None
    for _ in range(count - 1):
        yield "N", 0


def chain(count, _):
    yield "F", None
    for place in range(count - 1):
        yield "F", place


def broad(count, dice):
    """The type and the parent's place of each node, in tree order."""
    width = max(2, round(count ** 0.2))
    open_nodes = [[0, count]]  # place, and how many more children it gets: the root gets all that are left
    made = 1
    yield "F", None
    while made < count:
        parent = open_nodes[-1]
        if parent[1] == 0:
            open_nodes.pop()
            continue
        parent[1] -= 1
        room = count - made
        kind = dice.choices("FGRN", (80, 10, 3, 7) if len(open_nodes) < 5 else (0, 40, 25, 35))[0]
        if kind in "FG" and room < 2:
            kind = "N"
        yield kind, parent[0]
        place, made = made, made + 1
        if kind == "G":
            yield dice.choice("RN"), place
            made += 1
        elif kind == "F":
            children = dice.randint(1, 2 * width)
            # Its first child at once: a folder that stays empty would break a rule.
            yield "N", place
            made += 1
            open_nodes.append([place, children - 1])


def main():
    arguments = [a for a in sys.argv[1:] if a != "--shuffled"]
    links = {"broad": broad, "star": star, "chain": chain, "clean": broad, "hot": broad, "sparse": broad}
    if len(arguments) != 3 or arguments[0] not in links:
        sys.exit(__doc__)
    shape, count, prefix = arguments[0], int(arguments[1]), arguments[2]
    dice = random.Random(f"{shape} {count}")

    ids, number = [], 0
    for _ in range(count):
        number += dice.randint(1, 2_000) if shape == "sparse" else 2 if dice.random() < 0.14 else 1
        ids.append(number)
    nodes = []
    for place, (kind, parent) in enumerate(links[shape](count, dice)):
        query = f"spG_{dice.randrange(500)}" if kind in "GR" else ""
        parameters = ["Lkey", "CKey05", ""] if query or shape != "clean" else [""]
        nodes.append(f'{ids[place]},"{dice.choice(WORDS)} {dice.choice(OF)} {place}","{kind}",'
                     f'{0 if parent is None else ids[parent]},"{query}","{dice.choice(parameters)}",'
                     f'"{ICONS[kind]}","{dice.choice(["", "", "desk"])}"\r\n')
    owners = [ids[count // 2]] * count if shape == "hot" else sorted(dice.choices(ids, k=count))
    paragraphs, order = [], 0
    for place, owner in enumerate(owners):
        order = order + 1 if place and owners[place - 1] == owner else 1
        kind = dice.choice("CHEMIST")
        forms, columns = ("HI", COLUMNS.get(kind, "")) if shape == "clean" else ("MES", "2:3")
        paragraphs.append(f'{place + 1},{owner},{order},"{dice.choice(WORDS)} {dice.choice(OF)}","spW_{place % 900} 1",'
                          f'"Lkey","{kind}",{dice.randrange(9) if kind in forms else 0},"{columns}",""\r\n')
    if "--shuffled" in sys.argv:
        dice.shuffle(nodes)
        dice.shuffle(paragraphs)
    nodes.insert(0, '"ID","descriptionIs","typeIs","parentIs","queryIs","parmIs","iconIs","roleIs"\r\n')
    paragraphs.insert(0, '"ID","XST1","seqNo","titleIs","queryIs","parmIs","typeIs","formIs","colsAre","extra"\r\n')
    for suffix, lines in ((".xst1", nodes), (".xst2", paragraphs)):
        with open(prefix + suffix, "wb") as file:
            file.write("".join(lines).encode("cp1252"))


main()
