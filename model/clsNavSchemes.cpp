// SPDX-License-Identifier: MIT
#include "model/clsNavSchemes.h"

#include <algorithm>
#include <limits>

#include "model/NodeTree.h"

clsNavSchemes::clsNavSchemes() {
    oWebs.oRightClick = [this](std::string_view skey, std::string_view pKey) { oWebs_oRightClick(skey, pKey); };
}

bool clsNavSchemes::Add(Pointer oNavScheme) {
    return nodes_.Add(std::move(oNavScheme));
}

void clsNavSchemes::NewScheme() {
    auto root = std::make_shared<clsNavScheme>();
    root->ID = 1;
    root->descriptionIs = "Data Browser";
    root->parentIs = 0;
    root->setTypeIs("F");
    root->iconIs = "leaf";
    KeyedCollection<clsNavScheme> nodes;
    nodes.Add(std::move(root));
    nodes_ = std::move(nodes);
    const auto clearParagraphs = [this] {
        oWebs.ClearAll();
        oWebs.DispInGrid(0);
    };
    try {
        DispInTV();
    } catch (const NotDrawn&) {
        clearParagraphs();
        throw;
    }
    clearParagraphs();
}

namespace {

// A branch that is being deleted: what `DelNode` still has to do for it.
struct Branch {
    std::int32_t id;
    std::vector<std::int32_t> children;  // IDs, as they were when the branch was reached
    std::size_t next = 0;
};

}  // namespace

// Nodes are removed by key, but children are found by ID. Between a renumbering and `FileAnew` the two differ, so the
// order matters: the children of a branch are looked up when its turn comes, without the nodes that are already gone,
// and the branch itself goes after everything below it. On the way the nodes are only marked; they are removed at the
// end, when nothing can fail any more.
void clsNavSchemes::DelNode(std::string_view dKey) {
    const auto named = readKey(dKey);
    if (!named) {
        oWebs.DelTreeNode(dKey);
        return;
    }
    const auto slots = nodes_.Slots();
    const NodeTree tree(nodes_);
    std::vector<bool> gone(slots.size());
    KeyIndex met;  // the IDs of the branch: each is entered once, so loops end
    std::vector<Branch> open;
    const auto enter = [&](std::int32_t id) {
        if (!met.insert(id, 0)) return;
        Branch branch{id, {}};
        for (const auto slot : tree.childrenOf(id))
            if (!gone[slot]) branch.children.push_back(slots[slot]->ID);
        open.push_back(std::move(branch));
    };
    enter(*named);
    while (!open.empty()) {
        if (auto& branch = open.back(); branch.next < branch.children.size()) {
            enter(branch.children[branch.next++]);
        } else {
            if (const auto slot = nodes_.SlotOf(branch.id); slot != KeyIndex::none) gone[slot] = true;
            open.pop_back();
        }
    }
    for (std::size_t slot = 0; slot < gone.size(); ++slot)
        if (gone[slot]) nodes_.RemoveSlot(slot);
    oWebs.DropParagraphsOf(met);
    draw([this] {  // the deletion is done, whether there is memory for this or not
        if (nodes_.HasRecordsWithoutKey()) FileAnew();
    });
    oWebs.DispInGrid(*named);
}

std::string clsNavSchemes::MaxID() const {
    std::int32_t most = 0;
    for (const auto& node : nodes_) most = std::max(most, node->ID);
    return keyText(most);
}

std::int16_t clsNavSchemes::GetChildren(const clsNavScheme& oNode) const {
    constexpr auto most = std::numeric_limits<std::int16_t>::max();
    std::int16_t count = 0;
    for (const auto& node : nodes_)
        if (node->parentIs == oNode.ID && count < most) ++count;
    return count;
}

bool clsNavSchemes::IsFType(const clsNavScheme& oNode) const {
    if (oNode.typeIs() != "G") return false;
    return std::ranges::any_of(nodes_.Slots(), [&](const auto& slot) {
        return slot && slot->parentIs == oNode.ID && slot->typeIs() == "F";
    });
}

void clsNavSchemes::SetTreeview(NavWindow& vFrm) {
    mFrm = &vFrm;
    mFrm->Maximize();
    cTreeView = &mFrm->CreateTree();
    cTreeView->NodeClick = [this] { cTreeView_NodeClick(); };
    cTreeView->KeyUp = [this](int keyCode) { cTreeView_KeyUp(keyCode); };
    cTreeView->MouseUp = [this](int button) { cTreeView_MouseUp(button); };
    mFrm->LayOut(oWebs);
}

void clsNavSchemes::DispInTV() {
    draw([this] {
        if (cTreeView) cTreeView->Fill(*this);
    });
    if (Count() != 0) DispInGrid();
}

void clsNavSchemes::DispInGrid() {
    draw([this] {
        if (mGrid) mGrid->Fill(*this);
    });
}

void clsNavSchemes::cTreeView_NodeClick() {
    const auto key = cTreeView->SelectedKey();
    if (key.empty()) return;
    const auto skey = std::string_view(key).substr(1);
    if (const auto id = readInteger(skey)) oWebs.DispInGrid(*id);
    if (oNodeClick) oNodeClick(skey);
    cTreeView->Expand(key);
    mLastN = key;
}

void clsNavSchemes::cTreeView_KeyUp(int keyCode) {
    const auto key = cTreeView->SelectedKey();
    if (key.empty()) return;
    const auto& event = keyCode == keyInsert   ? oInsert
                        : keyCode == keyF2     ? oEdit
                        : keyCode == keyDelete ? oDelete
                                               : nullptr;
    if (event) event(std::string_view(key).substr(1));
}

void clsNavSchemes::cTreeView_MouseUp(int button) {
    const auto key = cTreeView->SelectedKey();
    if (button == buttonRight && !key.empty() && oRightClick) oRightClick(std::string_view(key).substr(1));
}

void clsNavSchemes::oWebs_oRightClick(std::string_view skey, std::string_view pKey) {
    if (wRightClick) wRightClick(skey, pKey);
}
