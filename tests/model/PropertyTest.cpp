// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <set>

#include "Helpers.h"
#include "Reference.h"

// The schemes as a whole, on random nodes and files.

using namespace std::string_literals;

namespace {

using Links = std::vector<std::pair<int, int>>;  // ID and parent of each node

// Anything: loops, nodes that are their own parent, missing parents, negative numbers and zero.
rc::Gen<Links> anyLinks(int lowestID) {
    const auto close = rc::gen::pair(rc::gen::inRange(lowestID, 12), rc::gen::inRange(-2, 12));
    const auto apart = rc::gen::pair(rc::gen::inRange(lowestID, 400), rc::gen::inRange(-2, 400));
    return rc::gen::oneOf(rc::gen::container<Links>(close), rc::gen::container<Links>(apart));
}

// One tree, its nodes added in any order, with numbers above 0.
Links drawTree() {
    const auto ids = *rc::gen::unique<std::vector<int>>(rc::gen::inRange(1, 600));
    const auto picks =
        *rc::gen::container<std::vector<std::size_t>>(ids.size(), rc::gen::inRange<std::size_t>(0, 600));
    Links links;
    for (std::size_t i = 0; i < ids.size(); ++i) links.emplace_back(ids[i], i == 0 ? 0 : ids[picks[i] % i]);
    for (std::size_t i = 0; i < links.size(); ++i) std::swap(links[i], links[(picks[i] / 2) % links.size()]);
    return links;
}

Links drawLinks(int lowestID) {
    return *rc::gen::arbitrary<bool>() ? drawTree() : *anyLinks(lowestID);
}

// Any bytes that a field of the file can hold.
rc::Gen<std::string> anyText() {
    return rc::gen::container<std::string>(rc::gen::elementOf(allBytesBut("\",\r\n")));
}

rc::Gen<std::string> anyFileBytes() {
    return rc::gen::container<std::string>(rc::gen::elementOf("0123456789,,,,,,,,\"\"  \r\n\n.-+FGNRx\0\x1A\xA0\t"s));
}

void addNodes(clsNavSchemes& navs, const Links& links) {
    for (const auto& [id, parent] : links) navs.Add(makeNode(id, parent));
}

std::vector<std::shared_ptr<clsNavScheme>> nodesOf(const clsNavSchemes& navs) {
    std::vector<std::shared_ptr<clsNavScheme>> nodes;
    for (const auto& node : navs.NewEnum()) nodes.push_back(node);
    return nodes;
}

// The places of the reachable nodes in tree order.
std::vector<std::size_t> treeOrder(const clsNavSchemes& navs) {
    std::vector<reference::Link> links;
    for (const auto& node : navs.NewEnum()) links.push_back({node->ID, node->parentIs});
    return reference::treeOrder(links);
}

Rows reachableRows(const clsNavSchemes& navs) {
    const auto nodes = nodesOf(navs);
    Rows rows;
    for (const auto place : treeOrder(navs)) rows.push_back(rowOf(*nodes[place]));
    return rows;
}

}  // namespace

RC_GTEST_PROP(NavProperty, LoadingWhatWasSavedGivesTheReachablePartInTreeOrder, ()) {
    clsNavSchemes navs;
    for (const auto& [id, parent] : drawLinks(0))
        navs.Add(makeNode(id, parent, *rc::gen::element<std::string>("F", "G", "R", "N", "", "x"), *anyText(),
                          *anyText(), *anyText(), *anyText(), *anyText()));
    RC_PRE(navs.Count() != 0);
    const auto expected = reachableRows(navs);
    clsNavSchemes loaded;
    loadBytes(loaded, savedBytes(navs));
    RC_ASSERT(rowsOf(loaded) == expected);
}

RC_GTEST_PROP(NavProperty, LoadsAnyBytesLikeTheReference, ()) {
    const auto bytes = *anyFileBytes();
    clsNavSchemes navs;
    loadBytes(navs, bytes);
    RC_ASSERT(rowsOf(navs) == reference::nodesIn(bytes));
}

RC_GTEST_PROP(NavProperty, SavingWhatWasLoadedIsStable, ()) {
    std::string bytes;
    for (const auto& [id, parent] : drawLinks(0))
        bytes += std::to_string(id) + ",d,G," + std::to_string(parent) + "," + *anyFileBytes() + "\r\n";
    clsNavSchemes first;
    loadBytes(first, bytes);
    RC_PRE(!treeOrder(first).empty());
    const auto saved = savedBytes(first);
    clsNavSchemes second;
    loadBytes(second, saved);
    RC_ASSERT(rowsOf(second) == reachableRows(first));
    RC_ASSERT(savedBytes(second) == saved);
}

RC_GTEST_PROP(NavProperty, RenumberingKeepsTheShapeAndTheParagraphsNodes, ()) {
    clsNavSchemes navs;
    addNodes(navs, drawLinks(1));
    for (int id = 1; id <= 20; ++id) navs.oWebs.Add(makeParagraph(id, *rc::gen::inRange(-2, 50)));
    for (const auto& node : nodesOf(navs)) navs.oWebs.Add(makeParagraph(node->ID + 100, node->ID));
    RC_PRE(navs.Count() != 0);

    std::map<int, int> newID;  // the unreachable ones become 0
    for (const auto& node : nodesOf(navs)) newID[node->ID] = 0;
    int last = 0;
    for (const auto place : treeOrder(navs)) newID[nodesOf(navs)[place]->ID] = ++last;
    std::string links;
    for (const auto& node : nodesOf(navs))
        links += (links.empty() ? "" : " ") + std::to_string(newID[node->ID]) + "<" +
                 std::to_string(newID[node->ID] == 0 || node->parentIs == 0 ? 0 : newID[node->parentIs]);
    std::string paragraphs;
    for (const auto& paragraph : navs.oWebs.NewEnum())
        paragraphs += (paragraphs.empty() ? "" : " ") + std::to_string(paragraph->ID) + ">" +
                      (newID.contains(paragraph->XST1) ? std::to_string(newID[paragraph->XST1]) + "C" : "0O");

    RC_ASSERT(navs.Renumber());
    RC_ASSERT(linksOf(navs) == links);
    RC_ASSERT(nodesOf(navs.oWebs) == paragraphs);
    navs.DispOrphans();
    RC_ASSERT(linksOf(navs) == links);
}

RC_GTEST_PROP(NavProperty, RenumberingATreeAgainChangesNothing, ()) {
    clsNavSchemes navs;
    addNodes(navs, drawTree());
    for (const auto& node : nodesOf(navs)) navs.oWebs.Add(makeParagraph(node->ID, node->ID));
    RC_PRE(navs.Count() != 0);
    const auto shape = treeOrder(navs);
    RC_ASSERT(navs.Renumber());
    const auto links = linksOf(navs);
    const auto paragraphs = nodesOf(navs.oWebs);
    RC_ASSERT(treeOrder(navs) == shape);
    RC_ASSERT(navs.Renumber());
    RC_ASSERT(linksOf(navs) == links);
    navs.DispOrphans();
    RC_ASSERT(nodesOf(navs.oWebs) == paragraphs);
}

// Twins included, which arise when IDs change after adding: whatever the parents are, everything ends and
// each node is saved once.
RC_GTEST_PROP(NavProperty, NothingHangsWhateverTheParentsAre, ()) {
    clsNavSchemes navs;
    int key = 1000;
    for (const auto& [id, parent] : *anyLinks(-2)) {
        const auto node = makeNode(key++, parent);
        navs.Add(node);
        node->ID = id;
    }
    addParagraphs(navs.oWebs, {{1, 0}, {2, 3}, {3, 5}});
    RC_PRE(navs.Count() != 0);
    const auto expected = treeOrder(navs).size();
    RC_ASSERT(std::ranges::count(savedBytes(navs), '\n') == static_cast<std::ptrdiff_t>(expected + 1));
    for (int time = 0; time < 3; ++time) {
        RC_ASSERT(navs.Renumber());
        navs.DispOrphans();
        RC_ASSERT(std::ranges::count(savedBytes(navs), '\n') ==
                  static_cast<std::ptrdiff_t>(treeOrder(navs).size() + 1));
    }
    const auto count = navs.Count();
    for (const int id : {0, 1, 2, 3, 1000, 1001}) navs.DelNode(std::to_string(id));
    RC_ASSERT(navs.Count() <= count);
    navs.NewScheme();
    RC_ASSERT(rowsOf(navs) == Rows{"1|Data Browser|F|0|||leaf|"});
}

namespace {

// Deleting in the plainest way: recursive, children first, each removed by its number as the key.
struct PlainDeletion {
    struct Filed {
        int key;
        int id;
        int parent;
    };
    std::vector<Filed> nodes;
    std::vector<std::pair<int, int>> paragraphs;  // ID and node
    std::set<int> open;                           // what is being deleted: a loop ends there

    void deleteNode(int number) {
        if (!open.insert(number).second) return;
        std::vector<int> children;
        for (const auto& node : nodes)
            if (node.parent == number) children.push_back(node.id);
        for (const int child : children) deleteNode(child);
        std::erase_if(nodes, [number](const Filed& node) { return node.key == number; });
        std::erase_if(paragraphs, [number](const auto& paragraph) { return paragraph.second == number; });
        open.erase(number);
    }
};

}  // namespace

RC_GTEST_PROP(NavProperty, DeletingDoesWhatThePlainDeletionDoes, ()) {
    clsNavSchemes navs;
    auto links = *anyLinks(-1);
    if (*rc::gen::arbitrary<bool>()) links = drawTree();
    if (links.size() > 14) links.resize(14);
    addNodes(navs, links);
    for (int id = 1; id <= 12; ++id) navs.oWebs.Add(makeParagraph(id, *rc::gen::inRange(-1, 14)));
    RC_PRE(navs.Count() != 0);
    std::set<int> numbers = {7};  // that might be asked for
    for (const auto& [id, parent] : links) numbers.insert(id);
    if (*rc::gen::arbitrary<bool>()) RC_ASSERT(navs.Renumber());

    PlainDeletion plain;
    for (const auto& node : navs.NewEnum()) plain.nodes.push_back({0, node->ID, node->parentIs});
    std::size_t place = 0;
    for (std::set<int> filed; const auto& [id, parent] : links)
        if (filed.insert(id).second) plain.nodes[place++].key = id;
    RC_ASSERT(place == plain.nodes.size());
    for (const auto& node : plain.nodes) numbers.insert(node.id);
    for (const auto& paragraph : navs.oWebs.NewEnum()) plain.paragraphs.emplace_back(paragraph->ID, paragraph->XST1);

    const int number = *rc::gen::elementOf(std::vector(numbers.begin(), numbers.end()));
    plain.deleteNode(number);
    navs.DelNode(std::to_string(number));

    std::string links2;
    for (const auto& node : plain.nodes)
        links2 += (links2.empty() ? "" : " ") + std::to_string(node.id) + "<" + std::to_string(node.parent);
    RC_ASSERT(linksOf(navs) == links2);
    for (const auto& node : plain.nodes) RC_ASSERT(navs.Item(node.key)->ID == node.id);
    std::string paragraphs;
    for (const auto& [id, node] : plain.paragraphs) paragraphs += std::to_string(id) + " ";
    RC_ASSERT((idsOf(navs.oWebs) + " " == paragraphs || (navs.oWebs.Count() == 0 && paragraphs.empty())));
}

RC_GTEST_PROP(NavProperty, MaxIDAndChildCountsAreThoseOfAPlainScan, ()) {
    clsNavSchemes navs;
    addNodes(navs, *anyLinks(-2));
    int most = 0;
    for (const auto& node : nodesOf(navs)) {
        most = std::max(most, node->ID);
        int children = 0;
        for (const auto& other : nodesOf(navs)) children += other->parentIs == node->ID ? 1 : 0;
        RC_ASSERT(navs.GetChildren(*node) == children);
    }
    RC_ASSERT(navs.MaxID() == std::to_string(most));
}

// --- paragraphs ---

RC_GTEST_PROP(WebProperty, LoadingWhatWasSavedGivesTheSame, ()) {
    clsWebSchemes webs;
    const auto ids = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 500));
    for (const int id : ids) {
        const auto paragraph = makeParagraph(id, *rc::gen::arbitrary<int>(), *rc::gen::arbitrary<int>(), *anyText());
        paragraph->queryIs = *anyText();
        paragraph->parmIs = *anyText();
        paragraph->typeIs = *anyText();
        paragraph->formIs = *rc::gen::arbitrary<int>();
        paragraph->colsAre = *anyText();
        paragraph->extra = *anyText();
        webs.Add(paragraph);
    }
    RC_PRE(webs.Count() != 0);
    const auto rows = rowsOf(webs);
    clsWebSchemes loaded;
    loadBytes(loaded, savedBytes(webs));
    RC_ASSERT(rowsOf(loaded) == rows);
}

RC_GTEST_PROP(WebProperty, LoadsAnyBytesLikeTheReferenceAndSavesThemStably, ()) {
    const auto bytes = *anyFileBytes();
    clsWebSchemes webs;
    loadBytes(webs, bytes);
    RC_ASSERT(rowsOf(webs) == reference::paragraphsIn(bytes));
    RC_PRE(webs.Count() != 0);
    const auto saved = savedBytes(webs);
    clsWebSchemes again;
    loadBytes(again, saved);
    RC_ASSERT(rowsOf(again) == rowsOf(webs));
    RC_ASSERT(savedBytes(again) == saved);
}

RC_GTEST_PROP(WebProperty, MaxIDAndMaxSeqNoAreThoseOfAPlainScan, ()) {
    clsWebSchemes webs;
    const auto fields = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(
        rc::gen::tuple(rc::gen::inRange(-5, 90), rc::gen::inRange(-2, 5), rc::gen::arbitrary<int>()));
    for (const auto& [id, node, seqNo] : fields) webs.Add(makeParagraph(id, node, seqNo));
    int most = 0;
    std::map<int, int> mostOf;
    for (const auto& paragraph : webs.NewEnum()) {
        most = std::max(most, paragraph->ID);
        mostOf[paragraph->XST1] = std::max(mostOf[paragraph->XST1], paragraph->seqNo);
    }
    RC_ASSERT(webs.MaxID() == std::to_string(most));
    for (int node = -2; node < 6; ++node)
        RC_ASSERT(webs.MaxSeqNo(std::to_string(node)) == std::to_string(mostOf[node]));
}

RC_GTEST_PROP(WebProperty, TheGridShowsWhatThereIsAfterAnyChange, ()) {
    enum Operation { Add, Remove, Update, DelTreeNode, Show };
    Screen screen;
    clsWebSchemes webs;
    webs.SetGrid(screen.web, 0, 0, 0, 0);
    const auto steps = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(rc::gen::tuple(
        rc::gen::weightedElement<int>({{40, Add}, {10, Remove}, {15, Update}, {5, DelTreeNode}, {30, Show}}),
        rc::gen::inRange(1, 20), rc::gen::inRange(0, 4)));
    for (const auto& [operation, id, node] : steps) {
        if (operation == Add) webs.Add(makeParagraph(id, node));
        if (operation == Remove) webs.Remove(std::to_string(id));
        if (operation == Update && !webs.Update(*makeParagraph(id, node))) continue;
        if (operation == DelTreeNode) webs.DelTreeNode(std::to_string(node));
        if (operation != Show) continue;
        std::string expected = "paragraphs";
        for (const auto& paragraph : webs.NewEnum())
            if (node == 0 || paragraph->XST1 == node)
                expected += " " + std::to_string(paragraph->ID) + ">" + std::to_string(paragraph->XST1);
        webs.DispInGrid(node);
        RC_ASSERT(screen.taken().back() == expected);
    }
}
