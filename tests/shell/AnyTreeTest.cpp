// SPDX-License-Identifier: MIT
#include "Helpers.h"
#include "views/NavTree.h"
#include "views/TreeSnapshot.h"

// Trees of any size and shape go through everything a user does with one, from the file to the saved file. Code that
// recursed for each level would overflow the stack here, and code that took quadratic time would never finish.

namespace {

#ifdef WIZARD_SANITIZED
constexpr int most = 20'000;  // what the sanitizers check at each step takes time
constexpr int many = 20'000;
#else
constexpr int most = 1'000'000;
constexpr int many = 100'000;
#endif
constexpr int nobody = 2'000'000'000;  // the ID of no node

struct Shape {
    std::string name;
    int nodes;                    // that the file holds, and as many paragraphs
    int inTree;                   // of them, below the first root
    std::string (*line)(int id);  // of the node
    std::string deepest;          // the key of a node far from the root
    int paragraphsNode = 0;       // the node of all paragraphs; 0: that with the paragraph's ID
    int orphans = 0;              // paragraphs whose node is missing
};

std::string node(int id, int parent, const char* type = "F") {
    return std::to_string(id) + ",node " + std::to_string(id) + "," + type + "," + std::to_string(parent) + "\r\n";
}

void PrintTo(const Shape& shape, std::ostream* out) {
    *out << shape.name;
}

class AnyTreeOf : public testing::TestWithParam<Shape> {
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
    [[nodiscard]] QModelIndex root() { return tree().model()->index(0, 0); }
    [[nodiscard]] bool isAnyOpenBelowTheRoot() {
        for (int row = 0; row < tree().model()->rowCount(root()); ++row)
            if (tree().isExpanded(tree().model()->index(row, 0, root()))) return true;
        return false;
    }
    void key(Qt::Key key) {
        press(wizard.window, key);
        wizard.window.grab();  // paints it
    }
    // Redraws the tree with this node selected, and clicks it with the keyboard.
    void click(const std::string& key) {
        wizard.navs().mLastN = key;
        wizard.navs().DispInTV();
        ASSERT_EQ(tree().SelectedKey(), key);
        wizard.navs().mLastN = "";
        tree().setFocus();
        this->key(Qt::Key_Return);
        ASSERT_EQ(wizard.navs().mLastN, key);
    }
    [[nodiscard]] int nodesInTree() { return static_cast<int>(tree().treeModel().snapshot().count()); }
    [[nodiscard]] int paragraphsShown() { return wizard.paragraphGrid().model()->rowCount(); }
    static std::size_t linesOf(const std::filesystem::path& file) {
        const auto bytes = bytesOf(file);
        std::size_t lines = 0;
        for (auto end = bytes.find('\n'); end != std::string::npos; end = bytes.find('\n', end + 1)) ++lines;
        return lines;
    }
};

}  // namespace

TEST_P(AnyTreeOf, GoesThroughEverything) {
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
    key(Qt::Key_Home);
    key(Qt::Key_Minus);
    EXPECT_FALSE(tree().isExpanded(root()));
    key(Qt::Key_Plus);
    EXPECT_TRUE(tree().isExpanded(root()));
    key(Qt::Key_Asterisk);
    wizard.choose("NC");
    EXPECT_EQ(nodesInTree(), shape.inTree);
    EXPECT_TRUE(tree().isExpanded(root()));
    EXPECT_FALSE(isAnyOpenBelowTheRoot());
    EXPECT_EQ(tree().SelectedKey(), "");

    // A click far from the root.
    click(shape.deepest);
    EXPECT_EQ(paragraphsShown(), shape.paragraphsNode == 0 ? 1 : 0);

    wizard.navs().DispOrphans();
    EXPECT_EQ(paragraphsShown(), shape.orphans);
    wizard.window.grab();

    // That node is deleted, with all below it.
    if (wizard.navs().Item(shape.deepest.substr(1))->parentIs != 0) {
        key(Qt::Key_Delete);
        EXPECT_EQ(wizard.navs().Item(shape.deepest.substr(1)), nullptr);
        EXPECT_LT(nodesInTree(), shape.inTree);
    }
    auto left = static_cast<std::size_t>(nodesInTree());

    wizard.choose("NR");
    EXPECT_EQ(static_cast<std::size_t>(nodesInTree()), left);
    // Nodes that are not in the tree keep their numbers, which may be those of others now.
    activate(wizard.window);
    tree().setFocus();
    for (const auto step : {Qt::Key_Home, Qt::Key_Asterisk, Qt::Key_End, Qt::Key_Return, Qt::Key_Home}) key(step);
    wizard.navs().DispOrphans();
    wizard.window.grab();
    EXPECT_EQ(paragraphsShown(), shape.orphans);
    for (const std::string report : {"NA", "NT", "WA", "WT"}) {
        Answers answers;
        answers.then("fOutput", escape);
        choose(wizard.window, report);
    }
    // The node with the largest number in the tree is deleted, with all below it.
    if (left > 1) {
        click("N" + std::to_string(left));
        key(Qt::Key_Delete);
        EXPECT_LE(static_cast<std::size_t>(nodesInTree()), left);
        EXPECT_EQ(wizard.nodeGrid().model()->rowCount(), wizard.navs().Count());
        wizard.choose("NR");
        left = static_cast<std::size_t>(nodesInTree());
    }

    wizard.saveNodes(folder / "saved nodes.txt");
    wizard.saveParagraphs(folder / "saved paragraphs.txt");
    EXPECT_EQ(linesOf(folder / "saved nodes.txt"), left + 1);
    EXPECT_EQ(linesOf(folder / "saved paragraphs.txt"), static_cast<std::size_t>(wizard.navs().oWebs.Count()) + 1);
    wizard.openNodes(folder / "saved nodes.txt");
    EXPECT_EQ(static_cast<std::size_t>(nodesInTree()), left);
    EXPECT_EQ(static_cast<std::size_t>(wizard.navs().Count()), left);

    // The first branch is deleted, which may be all but the root. In a saved file parents come before their children.
    if (left == 1) return;
    wizard.openParagraphs(folder / "saved paragraphs.txt");
    std::vector<bool> isDeleted(static_cast<std::size_t>(shape.nodes) + 1);  // by ID
    isDeleted[2] = true;
    for (const auto& each : wizard.navs().NewEnum())
        if (isDeleted[static_cast<std::size_t>(each->parentIs)]) isDeleted[static_cast<std::size_t>(each->ID)] = true;
    const auto inBranch = std::ranges::count(isDeleted, true);
    int kept = 0;
    for (const auto& each : wizard.navs().oWebs.NewEnum())
        if (!isDeleted[static_cast<std::size_t>(each->XST1)]) ++kept;
    click("N2");
    key(Qt::Key_Delete);
    EXPECT_EQ(wizard.navs().Count(), static_cast<int>(left) - inBranch);
    EXPECT_EQ(nodesInTree(), static_cast<int>(left) - inBranch);
    EXPECT_EQ(wizard.navs().oWebs.Count(), kept);
}

// What becomes of nodes with the same number: the tree shows the first, the file holds all, and renumbering gives
// each a number of its own.
TEST(AnyTree, OfTwins) {
    Wizard wizard;
    auto& navs = wizard.navs();
    for (int id = 2; id <= many; ++id) {
        auto twin = std::make_shared<clsNavScheme>();
        twin->ID = id;
        twin->parentIs = 1;
        twin->setTypeIs("N");
        ASSERT_TRUE(navs.Add(twin));
        twin->ID = 7;
    }
    const auto shown = [&] {
        navs.DispInTV();
        wizard.window.grab();
        return dynamic_cast<NavTree&>(wizard.tree()).treeModel().snapshot().count();
    };
    EXPECT_EQ(shown(), 2U);
    wizard.click("");
    EXPECT_EQ(navs.mLastN, "N7");
    const TempFolder folder;
    wizard.saveNodes(folder / "twins.txt");
    EXPECT_EQ(std::ranges::count(bytesOf(folder / "twins.txt"), '\n'), many + 1);
    wizard.choose("NR");
    EXPECT_EQ(shown(), static_cast<unsigned>(many));

    // Each has its own key again: the last one can be selected and deleted.
    activate(wizard.window);
    wizard.tree().setFocus();
    for (const auto key : {Qt::Key_Home, Qt::Key_Asterisk, Qt::Key_End}) press(wizard.window, key);
    wizard.choose("NC");
    navs.mLastN = "N" + std::to_string(many);
    EXPECT_EQ(shown(), static_cast<unsigned>(many));
    wizard.tree().setFocus();
    press(wizard.window, Qt::Key_Delete);
    EXPECT_EQ(navs.Count(), many - 1);
    EXPECT_EQ(shown(), static_cast<unsigned>(many) - 1);
    wizard.choose("NR");
    EXPECT_EQ(shown(), static_cast<unsigned>(many) - 1);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, AnyTreeOf,
    testing::Values(
        Shape{"Star", most, most, [](int id) { return node(id, id <= 2 ? id - 1 : 2); }, "N" + std::to_string(most)},
        Shape{"Chain", most, most, [](int id) { return node(id, id - 1); }, "N" + std::to_string(most - 1)},
        Shape{"ChainFromTheLeafUp", many, many, [](int id) { return node(id, id == many ? 0 : id + 1); }, "N2"},
        Shape{"Loops", many, many / 2,
              [](int id) { return id <= many / 2 ? node(id, id / 2) : node(id, id == many ? many / 2 + 1 : id + 1); },
              "N" + std::to_string(many / 2)},
        Shape{"OwnParents", many, 2, [](int id) { return node(id, id <= 2 ? id - 1 : id); }, "N2"},
        Shape{"ManyRoots", many, 1, [](int id) { return node(id, 0); }, "N1"},
        Shape{"RootWithTheIDZero", many, many, [](int id) { return node(id - 1, 0); }, "N1", 0, 1},
        Shape{"Orphans", many, 1, [](int id) { return node(id, id == 1 ? 0 : nobody); }, "N1", nobody, many}),
    [](const auto& instance) { return instance.param.name; });
