// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "Helpers.h"

// Random sequences of what a user does between loading and saving, compared with the same on plain lists: keys and
// IDs differ from the first renumbering on, unreachable nodes and orphans take what their work fields held, and
// deletions use both keys and IDs.

namespace {

struct PlainScheme {
    struct Node {
        int key;
        int ID, parentIs, tID = 0, tParentIs = 0;
        bool isNumbered = false;
    };
    struct Paragraph {
        int ID, XST1, tXST1 = 0;
        std::string status;
    };
    std::vector<Node> nodes;
    std::vector<Paragraph> paragraphs;

    void addNode(int id, int parent) {
        for (const auto& node : nodes)
            if (node.key == id) return;
        nodes.push_back({id, id, parent});
    }
    void addParagraph(int id, int node) {
        for (const auto& paragraph : paragraphs)
            if (paragraph.ID == id) return;
        paragraphs.push_back({id, node, 0, ""});
    }

    void renumber() {
        if (nodes.empty()) return;
        for (auto& node : nodes) node.isNumbered = false;
        int last = 0;
        for (auto& node : nodes) {
            if (node.parentIs != 0) continue;
            numberBelow(node, 0, last);
            break;
        }
        for (auto& node : nodes) {
            std::swap(node.ID, node.tID);
            node.parentIs = node.tParentIs;
        }
        renumberParagraphs();
    }
    void renumberParagraphs() {
        for (auto& paragraph : paragraphs) paragraph.status = "O";
        for (auto& node : nodes) {
            const int old = node.tID != 0 ? node.tID : node.ID;
            node.tID = node.ID;
            for (auto& paragraph : paragraphs) {
                if (paragraph.XST1 != old) continue;
                paragraph.tXST1 = node.ID;
                paragraph.status = "C";
            }
        }
        for (auto& paragraph : paragraphs) paragraph.XST1 = paragraph.tXST1;
    }

    void deleteNode(int number) {
        std::set<int> open;
        deleteNode(number, open);
    }

    [[nodiscard]] std::string print() const {
        std::string all;
        for (const auto& node : nodes)
            all += std::to_string(node.key) + ":" + std::to_string(node.ID) + "<" + std::to_string(node.parentIs) +
                   "(" + std::to_string(node.tID) + "<" + std::to_string(node.tParentIs) + ") ";
        for (const auto& paragraph : paragraphs)
            all += std::to_string(paragraph.ID) + ">" + std::to_string(paragraph.XST1) + "(" +
                   std::to_string(paragraph.tXST1) + ")" + paragraph.status + " ";
        return all;
    }

  private:
    void numberBelow(Node& node, int parent, int& last) {
        node.isNumbered = true;
        node.tParentIs = parent;
        node.tID = ++last;
        for (auto& child : nodes)
            if (child.parentIs == node.ID && !child.isNumbered) numberBelow(child, node.tID, last);
    }
    // A loop ends at a number that is already being deleted.
    void deleteNode(int number, std::set<int>& open) {
        if (!open.insert(number).second) return;
        std::vector<int> children;
        for (const auto& node : nodes)
            if (node.parentIs == number) children.push_back(node.ID);
        for (const int child : children) deleteNode(child, open);
        std::erase_if(nodes, [number](const Node& node) { return node.key == number; });
        std::erase_if(paragraphs, [number](const Paragraph& paragraph) { return paragraph.XST1 == number; });
        open.erase(number);
    }
};

// Prints the key only of a node that is found by it.
std::string print(const clsNavSchemes& navs, const std::vector<PlainScheme::Node>& nodes) {
    std::string all;
    std::size_t place = 0;
    for (const auto& node : navs.NewEnum()) {
        const bool isFiled = place < nodes.size() && navs.Item(nodes[place].key) == node;
        all += (isFiled ? std::to_string(nodes[place].key) : "?") + ":" + std::to_string(node->ID) + "<" +
               std::to_string(node->parentIs) + "(" + std::to_string(node->tID) + "<" +
               std::to_string(node->tParentIs) + ") ";
        ++place;
    }
    for (const auto& paragraph : navs.oWebs.NewEnum())
        all += std::to_string(paragraph->ID) + ">" + std::to_string(paragraph->XST1) + "(" +
               std::to_string(paragraph->tXST1) + ")" + paragraph->status + " ";
    return all;
}

}  // namespace

RC_GTEST_PROP(SequenceProperty, CommandsDoWhatTheyDoToPlainLists, ()) {
    enum Command { AddNode, AddParagraph, Renumber, DispOrphans, DelNode, NewScheme };
    constexpr int largest = 9;  // few numbers, so that they collide
    Screen screen;
    clsNavSchemes navs;
    if (*rc::gen::arbitrary<bool>()) screen.show(navs);
    PlainScheme plain;
    const auto steps = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(rc::gen::tuple(
        rc::gen::weightedElement<int>(
            {{50, AddNode}, {30, AddParagraph}, {12, Renumber}, {6, DispOrphans}, {6, DelNode}, {1, NewScheme}}),
        rc::gen::inRange(-1, largest), rc::gen::inRange(-1, largest)));
    for (const auto& [command, id, of] : steps) {
        switch (command) {
            case AddNode:
                navs.Add(makeNode(id, of));
                plain.addNode(id, of);
                break;
            case AddParagraph:
                navs.oWebs.Add(makeParagraph(id, of));
                plain.addParagraph(id, of);
                break;
            case Renumber:
                RC_ASSERT(navs.Renumber() == !plain.nodes.empty());
                plain.renumber();
                break;
            case DispOrphans:
                navs.DispOrphans();
                plain.renumberParagraphs();
                break;
            case DelNode:
                navs.DelNode(std::to_string(id));
                plain.deleteNode(id);
                break;
            default:
                navs.NewScheme();
                plain = {};
                plain.addNode(1, 0);
        }
        RC_ASSERT(print(navs, plain.nodes) == plain.print());
    }
}
