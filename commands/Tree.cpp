// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>

#include "commands/Command.h"
#include "commands/CommandLine.h"
#include "commands/Input.h"
#include "model/Integer.h"
#include "model/NodeTree.h"

namespace {

struct Arguments {
    std::string nodes;
    std::string paragraphs;
    bool withoutIds = false;
};

// One line of the tree.
class Line {
  public:
    explicit Line(std::size_t depth) : text_(2 * depth, ' ') {}

    Line& word(std::string_view text) {
        text_.append(isFirst_ ? "" : " ").append(text);
        isFirst_ = false;
        return *this;
    }
    Line& quoted(std::string_view bytes) { return word("\"" + shown(bytes) + "\""); }
    // A field that may be empty.
    Line& field(std::string_view name, std::string_view bytes) {
        return bytes.empty() ? *this : word(std::string(name) + "=\"" + shown(bytes) + "\"");
    }
    void print(const Console& console) { console.print(text_.append("\n")); }

  private:
    std::string text_;
    bool isFirst_ = true;
};

std::string typeOf(const Text& type) {
    return type.empty() ? "?" : shown(type);
}

class TreePrinter {
  public:
    TreePrinter(const clsNavSchemes& navs, bool withoutIds, const Console& console)
        : navs_(navs), withoutIds_(withoutIds), console_(console) {
        for (const auto* paragraph : navs.oWebs.NewEnum()) paragraphs_.push_back(paragraph);
        pages_ = {static_cast<std::uint32_t>(paragraphs_.size()),
                  [this](std::uint32_t place) { return &paragraphs_[place]->XST1; }};
    }

    void printAll() {
        const auto slots = navs_.NewEnum().Slots();
        std::vector<bool> isPrinted(slots.size());
        NodeTree(navs_.NewEnum()).walk([&](std::uint32_t slot, std::size_t depth) {
            printNode(*slots[slot], depth);
            isPrinted[slot] = true;
            return true;
        });
        const char* heading = "\nNodes that are in no tree:\n";
        for (std::size_t slot = 0; slot < slots.size(); ++slot) {
            if (isPrinted[slot]) continue;
            console_.print(std::exchange(heading, ""));
            printNode(*slots[slot], 0);
        }
        printOrphans(slots.empty() ? "" : "\nParagraphs of no node:\n");
    }

  private:
    void printNode(const clsNavScheme& node, std::size_t depth) {
        Line line(depth);
        if (!withoutIds_) line.word("[" + keyText(node.ID) + "]");
        line.word(typeOf(node.typeIs())).quoted(node.descriptionIs);
        line.field("query", node.queryIs()).field("parameter", node.parmIs());
        line.field("icon", node.iconIs).field("role", node.roleIs).print(console_);

        std::vector<const clsWebScheme*> page;
        for (const auto place : pages_[node.ID]) page.push_back(paragraphs_[place]);
        std::ranges::stable_sort(page, {}, &clsWebScheme::seqNo);
        for (const auto* paragraph : page) printParagraph(*paragraph, depth + 1);
    }

    void printParagraph(const clsWebScheme& paragraph, std::size_t depth) {
        Line line(depth);
        line.word("-");
        if (!withoutIds_) line.word("[" + keyText(paragraph.ID) + "]");
        line.word(keyText(paragraph.seqNo)).word(typeOf(paragraph.typeIs)).quoted(paragraph.titleIs);
        line.field("query", paragraph.queryIs).field("parameter", paragraph.parmIs);
        if (paragraph.formIs != 0) line.word("form=" + keyText(paragraph.formIs));
        line.field("columns", paragraph.colsAre).field("extra", paragraph.extra).print(console_);
    }

    void printOrphans(const char* heading) {
        for (const auto* paragraph : paragraphs_) {
            if (navs_.NewEnum().SlotOf(paragraph->XST1) != KeyIndex::none) continue;
            console_.print(std::exchange(heading, ""));
            printParagraph(*paragraph, 0);
        }
    }

    const clsNavSchemes& navs_;
    bool withoutIds_;
    const Console& console_;
    std::vector<const clsWebScheme*> paragraphs_;
    GroupIndex pages_;  // places in paragraphs_, by node
};

// A file of paragraphs alone is listed, so that "git diff" can show either file.
void load(clsNavSchemes& navs, const Arguments& given, const Console& console) {
    if (!given.paragraphs.empty()) {
        loadSchemes(navs, given.nodes, given.paragraphs, console);
        return;
    }
    auto file = readInput(given.nodes, console);
    if (tableOf(file) == &webTable)
        navs.oWebs.LoadBytes(std::move(file.content));
    else
        navs.LoadBytes(std::move(file.content));
}

}  // namespace

RunCommand declareTree(CommandLine& line) {
    const auto given = std::make_shared<Arguments>();
    line.argument("XST1", given->nodes, "The file of the nodes; or that of the paragraphs alone");
    line.argument("XST2", given->paragraphs, "The file of the paragraphs", Need::Optional);
    line.flag("--no-ids", given->withoutIds, "Print nothing that Re-Number changes");
    return [given](const Console& console) {
        clsNavSchemes navs;
        load(navs, *given, console);
        TreePrinter(navs, given->withoutIds, console).printAll();
        return nothingFound;
    };
}
