// SPDX-License-Identifier: MIT
#include "model/clsWebSchemes.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "model/clsNavSchemes.h"

bool clsWebSchemes::Add(Pointer oWebScheme) {
    byNode_.reset();
    return paragraphs_.Add(std::move(oWebScheme));
}

std::shared_ptr<const clsWebScheme> clsWebSchemes::Item(std::int32_t key) const {
    auto found = paragraphs_.Item(key);
    if (!found) throw std::out_of_range("no paragraph has this key");
    return found;
}

std::shared_ptr<const clsWebScheme> clsWebSchemes::Item(std::string_view key) const {
    auto found = paragraphs_.Item(key);
    if (!found) throw std::out_of_range("no paragraph has this key");
    return found;
}

void clsWebSchemes::Remove(std::string_view key) {
    byNode_.reset();
    paragraphs_.RemoveKey(key);
}

void clsWebSchemes::Remove(std::int32_t position) {
    byNode_.reset();
    paragraphs_.RemoveAt(position);
}

std::string clsWebSchemes::MaxID() const {
    std::int32_t most = 0;
    for (const auto& paragraph : paragraphs_) most = std::max(most, paragraph->ID);
    return keyText(most);
}

std::string clsWebSchemes::MaxSeqNo(std::string_view pKey) const {
    std::int32_t most = 0;
    if (const auto node = readKey(pKey))
        for (const auto& paragraph : paragraphs_)
            if (paragraph->XST1 == *node) most = std::max(most, paragraph->seqNo);
    return keyText(most);
}

void clsWebSchemes::ClearAll() {
    byNode_.reset();
    paragraphs_.Clear();
}

void clsWebSchemes::DelTreeNode(std::string_view dKey) {
    if (const auto node = readKey(dKey)) {
        KeyIndex nodes;
        nodes.set(*node, 0);
        DropParagraphsOf(nodes);
    }
    if (const auto node = readInteger(dKey)) DispInGrid(*node);
}

void clsWebSchemes::DropParagraphsOf(const KeyIndex& nodes) {
    byNode_.reset();
    for (const auto& paragraph : paragraphs_)
        if (nodes.find(paragraph->XST1) != KeyIndex::none) paragraphs_.RemoveKey(paragraph->ID);
}

clsWebSchemes::Pointer clsWebSchemes::CloneWeb(std::string_view skey) const {
    auto copy = std::make_shared<clsWebScheme>();
    if (const auto from = paragraphs_.Item(skey)) {
        *copy = *from;
        copy->tXST1 = 0;
        copy->status = {};
    }
    return copy;
}

bool clsWebSchemes::Update(const clsWebScheme& from) {
    const auto stored = paragraphs_.Item(from.ID);
    if (!stored) return false;
    auto copy = from;  // needs memory; what follows does not
    byNode_.reset();
    stored->ID = copy.ID;
    stored->XST1 = copy.XST1;
    stored->seqNo = copy.seqNo;
    stored->titleIs = std::move(copy.titleIs);
    stored->queryIs = std::move(copy.queryIs);
    stored->parmIs = std::move(copy.parmIs);
    stored->typeIs = std::move(copy.typeIs);
    stored->formIs = copy.formIs;
    stored->colsAre = std::move(copy.colsAre);
    return true;
}

bool clsWebSchemes::HasKey(std::string_view key) const {
    return paragraphs_.Item(key) != nullptr;
}

bool clsWebSchemes::HasID(std::int32_t id) const {
    return std::ranges::any_of(paragraphs_.Slots(), [id](const auto& slot) { return slot && slot->ID == id; });
}

void clsWebSchemes::Renumber(clsNavSchemes& oNC) {
    Renumber(oNC, MovesOf(oNC));
}

NodeMoves clsWebSchemes::MovesOf(const clsNavSchemes& oNC) {
    NodeMoves moves(static_cast<std::size_t>(oNC.Count()));
    for (const auto& node : oNC.NewEnum()) moves.add(node->tID != 0 ? node->tID : node->ID, node->ID);
    return moves;
}

void clsWebSchemes::Renumber(clsNavSchemes& oNC, const NodeMoves& moves) {
    for (const auto& node : oNC.NewEnum()) node->tID = node->ID;
    Follow(moves);
}

void clsWebSchemes::Follow(const NodeMoves& moves) {
    byNode_.reset();
    for (const auto& paragraph : paragraphs_) {
        const auto now = moves.find(paragraph->XST1);
        paragraph->status = now ? connected_ : orphan_;
        if (now) paragraph->tXST1 = *now;
        paragraph->XST1 = paragraph->tXST1;
    }
}

void clsWebSchemes::SetGrid(WebGridView& nGrid, Twips dL, Twips dT, Twips dW, Twips dH) {
    mGrid = &nGrid;
    mGrid->MouseUp = [this](int button) { mGrid_MouseUp(button); };
    mGrid->Place(dL, dT, dW, dH);
}

const GroupIndex& clsWebSchemes::paragraphsByNode() {
    if (!byNode_) {
        const auto slots = paragraphs_.Slots();
        byNode_.emplace(static_cast<std::uint32_t>(slots.size()),
                        [&](std::uint32_t slot) { return slots[slot] ? &slots[slot]->XST1 : nullptr; });
    }
    return *byNode_;
}

void clsWebSchemes::DispInGrid(std::int32_t pXST1) {
    shown_ = pXST1;
    if (!mGrid) return;
    draw([&] {
        const auto slots = paragraphs_.Slots();
        if (pXST1 == 0) {
            mGrid->Fill(slots);
            return;
        }
        const auto places = paragraphsByNode()[pXST1];
        LargeArray<Pointer> shown;
        shown.reserve(places.size());
        for (const auto slot : places) shown.push_back(slots[slot]);
        mGrid->Fill(shown);
    });
}

void clsWebSchemes::DispOrphans(clsNavSchemes& oNC) {
    Renumber(oNC);
    showOrphans();
}

void clsWebSchemes::showOrphans() {
    shown_.reset();
    if (!mGrid) return;
    draw([this] {
        std::vector<Pointer> orphans;
        for (const auto& paragraph : paragraphs_)
            if (paragraph->status == "O") orphans.push_back(paragraph);
        mGrid->Fill(orphans);
    });
}

void clsWebSchemes::DispAgain() {
    if (shown_)
        DispInGrid(*shown_);
    else
        showOrphans();
}

void clsWebSchemes::mGrid_MouseUp(int button) {
    if (button == buttonRight && oRightClick) oRightClick(mGrid->CurrentText(0), mGrid->CurrentText(1));
}
