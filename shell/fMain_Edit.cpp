// SPDX-License-Identifier: MIT
#include <QCursor>
#include <QMenu>
#include <limits>
#include <optional>

#include "forms/fNav.h"
#include "forms/fWeb.h"
#include "model/Integer.h"
#include "model/NodeType.h"
#include "shell/fMain.h"
#include "views/CodePage.h"
#include "views/MessageBox.h"

// What the events of the tree and the paragraph grid, and the commands of their popup menus, do to nodes and
// paragraphs. Keys are IDs as text. A command acts on the record filed under the ID; if there is none, it does
// nothing.

namespace {

// Why no node can be added below one of this type that has this many children; empty if one can.
QString refusalBelow(const NodeType* type, int children) {
    if (!type || children < type->mostChildren) return {};
    return QString::fromLatin1(type->noneToAdd.data(), static_cast<qsizetype>(type->noneToAdd.size()));
}

std::string treeKey(std::string_view skey) {
    return "N" + std::string(skey);
}

std::string withoutPrefix(const std::string& treeKey) {
    return treeKey.empty() ? std::string() : treeKey.substr(1);
}

// The number after the largest one, which is passed as text.
std::optional<std::int32_t> numberAfter(const std::string& largest) {
    const auto number = readInteger(largest);
    if (!number || *number == std::numeric_limits<std::int32_t>::max()) return {};
    return *number + 1;
}

// Shows a form, filled by `fill`, until it is closed. Without memory for the pixels of its window, the program would
// end.
template <class Form, class Fill>
void edit(fMain& window, MemoryReserve& reserve, Fill fill) {
    {
        const MemoryReserve::Spent more(reserve);
        Form form(*window.oNavs, &window);
        fill(form);
        form.exec();
    }
    // A form closes together with the question that it asked. A window manager that is just giving the keyboard to
    // the form may then give it to no window.
    window.activateWindow();
}

}  // namespace

void fMain::connectScheme() {
    oNavs->oInsert = [this](std::string_view skey) { oNavs_oInsert(std::string(skey)); };
    oNavs->oEdit = [this](std::string_view skey) { oNavs_oEdit(std::string(skey)); };
    oNavs->oDelete = [this](std::string_view skey) { oNavs_oDelete(std::string(skey)); };
    oNavs->oNodeClick = [this](std::string_view skey) { flexNav_->showAtTop(skey); };
    oNavs->oRightClick = [this](std::string_view skey) { popUpForNode(std::string(skey), QCursor::pos()); };
    oNavs->wRightClick = [this](std::string_view skey, std::string_view pKey) {
        popUpForParagraph(std::string(skey), std::string(pKey), QCursor::pos());
    };
}

void fMain::popUpForNode(std::string skey, QPoint place) {
    sPopKey = std::move(skey);
    find<QMenu>("mnuPopUp").popup(place);
}

void fMain::popUpForParagraph(std::string skey, std::string pKey, QPoint place) {
    sPopKey = std::move(skey);
    pPopKey = std::move(pKey);
    find<QMenu>("mnuWPopUp").popup(place);
}

// Does what a right click does, for the keyboard: opens the menu below the selected node or the current row. As in
// any menu that a key opens, the first command is highlighted: Enter runs it, and a screen reader announces it.
void fMain::popUpAtFocus() {
    if (myTree_->hasFocus()) {
        const auto key = myTree_->SelectedKey();
        if (key.empty()) return;
        popUpForNode(withoutPrefix(key), myTree_->placeOfCurrent());
        chooseFirst("mnuPopUp");
    } else if (flexWeb_->hasFocus()) {
        popUpForParagraph(flexWeb_->CurrentText(WebGridRows::columnOfID),
                          flexWeb_->CurrentText(WebGridRows::columnOfNode), flexWeb_->placeOfCurrent());
        chooseFirst("mnuWPopUp");
    }
}

void fMain::chooseFirst(const char* menu) {
    auto& popUp = find<QMenu>(menu);
    popUp.setActiveAction(popUp.actions().front());
}

// --- nodes ---

// A redraw selects the remembered node. Each command remembers the node that it acts on, even one that the arrow keys
// selected: the next command must not act on the node that was clicked before.
void fMain::remember(const std::string& skey) {
    oNavs->mLastN = treeKey(skey);
}

void fMain::oNavs_oInsert(const std::string& skey) {
    remember(skey);
    const auto parent = oNavs->Item(skey);
    if (!parent) return;
    const auto* type = nodeType(parent->typeIs().letter());
    if (const auto refusal = refusalBelow(type, myTree_->childCount(treeKey(skey))); !refusal.isEmpty()) {
        showMessage(this, refusal);
        return;
    }
    const auto number = numberAfter(oNavs->MaxID());
    if (!number) {
        showMessage(this, QStringLiteral("No ID is left: the largest one, 2147483647, is taken.\r\n"
                                         "Please choose Re-Number."));
        return;
    }
    const auto node = std::make_shared<clsNavScheme>();
    node->ID = *number;
    node->descriptionIs = "New";
    node->setTypeIs("N");
    node->parentIs = readInteger(skey).value_or(0);
    node->iconIs = "leaf";
    editNode(parent, node);
}

void fMain::oNavs_oEdit(const std::string& skey) {
    remember(skey);
    const auto node = oNavs->Item(skey);
    if (!node) return;
    if (node->parentIs == 0) {
        showMessage(this, QStringLiteral("Root Node cannot be modified !!"));
        return;
    }
    const auto parent = oNavs->Item(withoutPrefix(myTree_->parentKey(treeKey(skey))));
    if (parent) editNode(parent, oNavs->CloneNav(skey));
}

void fMain::editNode(const clsNavSchemes::Pointer& parent, const clsNavSchemes::Pointer& node) {
    edit<fNav>(*this, reserve_, [&](fNav& form) {
        form.setPObject(parent);
        form.setNavObject(node);
    });
    oNavs->DispInTV();
}

void fMain::oNavs_oDelete(const std::string& skey) {
    remember(skey);
    const auto node = oNavs->Item(skey);
    if (!node) return;
    if (node->parentIs == 0) {
        showMessage(this, QStringLiteral("Root Node cannot be deleted!!"));
        return;
    }
    oNavs->DelNode(skey);
    oNavs->DispInTV();
}

void fMain::mnuChild_Click() {
    oNavs_oInsert(sPopKey);
}

void fMain::mnuEdit_Click() {
    oNavs_oEdit(sPopKey);
}

void fMain::mnuDelete_Click() {
    oNavs_oDelete(sPopKey);
}

// --- paragraphs ---

void fMain::mnuAddP_Click() {
    if (!readInteger(pPopKey)) pPopKey = withoutPrefix(myTree_->SelectedKey());
    const auto node = readInteger(pPopKey).value_or(0);
    if (node <= 0) {
        showMessage(this, QStringLiteral("Cannot Add ...."));
        return;
    }
    const auto number = numberAfter(oNavs->oWebs.MaxID());
    const auto seqNo = numberAfter(oNavs->oWebs.MaxSeqNo(pPopKey));
    if (!number || !seqNo) {
        showMessage(this, QStringLiteral("No %1 is left: the largest one, 2147483647, is taken.")
                              .arg(number ? QStringLiteral("sequence number") : QStringLiteral("ID")));
        return;
    }
    const auto paragraph = std::make_shared<clsWebScheme>();
    paragraph->ID = *number;
    paragraph->XST1 = node;
    paragraph->seqNo = *seqNo;
    paragraph->titleIs = "New";
    paragraph->typeIs = "S";
    editParagraph(paragraph);
}

void fMain::mnuEditP_Click() {
    const auto node = readInteger(pPopKey);
    if (!node || *node <= 0) {
        showMessage(this, node ? QStringLiteral("Cannot Edit ....") : QStringLiteral("Nothin to Edit ...."));
        return;
    }
    if (oNavs->oWebs.HasKey(sPopKey)) editParagraph(oNavs->oWebs.CloneWeb(sPopKey));
}

void fMain::editParagraph(const clsWebSchemes::Pointer& paragraph) {
    edit<fWeb>(*this, reserve_, [&](fWeb& form) { form.setWebObject(paragraph); });
    showPopKeyParagraphs();
}

void fMain::mnuDeleteP_Click() {
    oNavs->oWebs.Remove(sPopKey);
    showPopKeyParagraphs();
}

// The header text, "XST1", counts as 0, which shows all paragraphs.
void fMain::showPopKeyParagraphs() {
    oNavs->oWebs.DispInGrid(readInteger(pPopKey).value_or(0));
}

void fMain::mnuDisplayAll_Click() {
    oNavs->DisplayFullWeb();
}

void fMain::mnuOrphans_Click() {
    oNavs->DispOrphans();
}
