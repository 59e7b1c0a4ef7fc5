// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/NavTree.h"
#include "views/TreeSnapshot.h"

// Trees of any size and shape go through everything a user does with one, from the file to the saved file. What
// recursed for each level would overflow the stack here, and what took steps squared would meet the time limit.

namespace {

#ifdef WIZARD_SANITIZED
constexpr int most = 100'000;  // all that is checked at each step takes its time
#else
constexpr int most = 1'000'000;
#endif
constexpr int many = 100'000;

struct Shape {
    std::string name;
    int nodes;                    // that the file holds, and as many paragraphs
    int inTree;                   // of them, below the first root
    std::string (*line)(int id);  // of the node
    std::string deepest;          // the key of a node far from the root
    int paragraphsNode = 0;       // the node of all paragraphs; 0: each node has one
};

std::string node(int id, int parent, const char* type = "F") {
    return std::to_string(id) + ",node " + std::to_string(id) + "," + type + "," + std::to_string(parent) + "\r\n";
}

void PrintTo(const Shape& shape, std::ostream* out) {
    *out << shape.name;
}

class AnyTree : public testing::TestWithParam<Shape> {
  protected:
    TempFolder folder;
    Wizard wizard;

    void SetUp() override {
        const auto& shape = GetParam();
        std::string nodes;
        std::string paragraphs;
        for (int id = 1; id <= shape.nodes; ++id) {
            nodes += shape.line(id);
            const int of = shape.paragraphsNode != 0 ? shape.paragraphsNode : id;
            paragraphs += std::to_string(id) + "," + std::to_string(of) + ",1,title,spW,Lkey,S,0,2,\r\n";
        }
        wizard.openNodes(writeBytes(folder / "nodes.txt", nodes));
        wizard.openParagraphs(writeBytes(folder / "paragraphs.txt", paragraphs));
    }
    [[nodiscard]] NavTree& tree() { return dynamic_cast<NavTree&>(wizard.tree()); }
    void key(Qt::Key key) {
        press(wizard.window, key);
        EXPECT_FALSE(wizard.window.grab().isNull());
    }
    [[nodiscard]] int nodesInTree() { return static_cast<int>(tree().treeModel().snapshot().count()); }
    static std::size_t linesOf(const std::filesystem::path& file) {
        const auto bytes = bytesOf(file);
        std::size_t lines = 0;
        for (auto end = bytes.find('\n'); end != std::string::npos; end = bytes.find('\n', end + 1)) ++lines;
        return lines;
    }
};

}  // namespace

TEST_P(AnyTree, GoesThroughEverything) {
    const auto& shape = GetParam();
    ASSERT_EQ(wizard.navs().Count(), shape.nodes);
    ASSERT_EQ(wizard.navs().oWebs.Count(), shape.nodes);
    ASSERT_EQ(nodesInTree(), shape.inTree);
    EXPECT_EQ(wizard.nodeGrid().model()->rowCount(), shape.nodes);
    EXPECT_EQ(wizard.paragraphGrid().model()->rowCount(), shape.nodes);

    // Clicks and keys in the tree.
    activate(wizard.window);
    wizard.click("Data Browser");
    EXPECT_TRUE(tree().hasFocus());
    for (const auto step : {Qt::Key_Asterisk, Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Right,
                            Qt::Key_Asterisk, Qt::Key_Home, Qt::Key_Minus, Qt::Key_Plus, Qt::Key_End, Qt::Key_Left})
        key(step);
    wizard.choose("NC");
    EXPECT_EQ(nodesInTree(), shape.inTree);

    // A redraw far from the root.
    wizard.navs().mLastN = shape.deepest;
    wizard.navs().DispInTV();
    EXPECT_EQ(tree().SelectedKey(), shape.deepest);
    tree().setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(wizard.navs().mLastN, shape.deepest);

    // That node is deleted, with all below it.
    if (wizard.navs().Item(shape.deepest.substr(1))->parentIs != 0) {
        key(Qt::Key_Delete);
        EXPECT_EQ(wizard.navs().Item(shape.deepest.substr(1)), nullptr);
        EXPECT_LT(nodesInTree(), shape.inTree);
    }
    const auto left = static_cast<std::size_t>(nodesInTree());

    wizard.choose("NR");
    EXPECT_EQ(static_cast<std::size_t>(nodesInTree()), left);
    // Nodes that are not in the tree share the number 0 now.
    activate(wizard.window);
    tree().setFocus();
    for (const auto step : {Qt::Key_Home, Qt::Key_Asterisk, Qt::Key_End, Qt::Key_Return, Qt::Key_Home}) key(step);
    wizard.navs().DispOrphans();
    wizard.window.grab();
    for (const std::string report : {"NA", "NT", "WA", "WT"}) {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, report);
    }

    wizard.saveNodes(folder / "saved nodes.txt");
    wizard.saveParagraphs(folder / "saved paragraphs.txt");
    EXPECT_EQ(linesOf(folder / "saved nodes.txt"), left + 1);
    EXPECT_EQ(linesOf(folder / "saved paragraphs.txt"), static_cast<std::size_t>(wizard.navs().oWebs.Count()) + 1);
    wizard.openNodes(folder / "saved nodes.txt");
    EXPECT_EQ(static_cast<std::size_t>(nodesInTree()), left);
    EXPECT_EQ(static_cast<std::size_t>(wizard.navs().Count()), left);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, AnyTree,
    testing::Values(
        Shape{"Star", most, most, [](int id) { return node(id, id == 1 ? 0 : 1); }, "N" + std::to_string(most)},
        Shape{"Chain", most, most, [](int id) { return node(id, id - 1); }, "N" + std::to_string(most - 1)},
        Shape{"ChainFromTheLeafUp", many, many, [](int id) { return node(id, id == many ? 0 : id + 1); }, "N2"},
        Shape{"Loops", many, many / 2,
              [](int id) { return id <= many / 2 ? node(id, id / 2) : node(id, id == many ? many / 2 + 1 : id + 1); },
              "N" + std::to_string(many / 2)},
        Shape{"OwnParents", many, 2, [](int id) { return node(id, id <= 2 ? id - 1 : id); }, "N2"},
        Shape{"ManyRoots", many, 1, [](int id) { return node(id, 0); }, "N1"},
        Shape{"RootWithTheIDZero", many, many, [](int id) { return node(id - 1, 0); }, "N1"},
        Shape{"Orphans", many, 1, [](int id) { return node(id, id == 1 ? 0 : most); }, "N1", most}),
    [](const auto& instance) { return instance.param.name; });
