// SPDX-License-Identifier: MIT
#include "commands/SavedScheme.h"

#include <algorithm>
#include <ostream>

#include "commands/Input.h"
#include "model/Integer.h"
#include "model/NodeTree.h"

namespace {

// CR LF, LF and CR each end a line.
std::size_t lineAt(std::string_view bytes, std::size_t place) {
    std::size_t line = 1;
    for (std::size_t at = 0; at < place; ++at)
        if (bytes[at] == '\n' || (bytes[at] == '\r' && bytes[at + 1] != '\n')) ++line;
    return line;
}

void refuseByte00(const InputFile& file) {
    const auto place = file.bytes().find('\0');
    if (place == std::string_view::npos) return;
    throw Unusable(file.name + ":" + std::to_string(lineAt(file.bytes(), place)) +
                   ": the byte 00, which no text of a database can hold");
}

}  // namespace

SavedScheme::SavedScheme(const std::string& nodes, const std::string& paragraphs, const Console& console) {
    refuseTwoStandardInputs(nodes, paragraphs);
    auto nodeFile = readInput(nodes, navTable, console);
    auto paragraphFile = readInput(paragraphs, webTable, console);
    refuseByte00(nodeFile);
    refuseByte00(paragraphFile);
    navs_.LoadBytes(std::move(nodeFile.content));
    navs_.oWebs.LoadBytes(std::move(paragraphFile.content));
    collectNodes(nodeFile.name, console);
    for (const auto* paragraph : navs_.oWebs.NewEnum()) paragraphs_.push_back(paragraph);
    if (paragraphs_.empty()) throw Unusable(paragraphFile.name + ": there is no paragraph in it");
}

void SavedScheme::collectNodes(const std::string& file, const Console& console) {
    const auto slots = navs_.NewEnum().Slots();
    std::vector<bool> isSaved(slots.size());
    NodeTree(navs_.NewEnum()).walk([&](std::uint32_t slot, std::size_t) {
        isSaved[slot] = true;
        nodes_.push_back(slots[slot].get());
        return true;
    });
    if (nodes_.empty()) throw Unusable(file + ": there is no root in it, and so nothing to save");
    for (std::size_t slot = 0; slot < slots.size(); ++slot)
        if (!isSaved[slot])
            console.err << "pelmo-scheme: " << file << ": node " << keyText(slots[slot]->ID)
                        << " cannot be reached from the root and is left out\n";
}

std::vector<Value> valuesOf(const clsNavScheme& node) {
    return {node.ID,
            node.descriptionIs.view(),
            node.typeIs().view(),
            node.parentIs,
            node.queryIs().view(),
            node.parmIs().view(),
            node.iconIs.view(),
            node.roleIs.view()};
}

std::vector<Value> valuesOf(const clsWebScheme& paragraph) {
    return {paragraph.ID,
            paragraph.XST1,
            paragraph.seqNo,
            paragraph.titleIs.view(),
            paragraph.queryIs.view(),
            paragraph.parmIs.view(),
            paragraph.typeIs.view(),
            paragraph.formIs,
            paragraph.colsAre.view(),
            paragraph.extra.view()};
}
