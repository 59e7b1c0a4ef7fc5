// SPDX-License-Identifier: MIT
#include <algorithm>
#include <new>
#include <utility>

#include "model/NodeType.h"
#include "model/ParagraphType.h"
#include "model/clsNavSchemes.h"

namespace {

// The rules that a node must obey to be stored, and the messages if it does not.

std::string_view refusalOfParent(const NodeType* parent) {
    if (!parent || parent->mostChildren != 0) return {};
    return "The Parent of this Node is of Recurring or Non-Generating type. Changes cannot be saved";
}

std::string_view refusalOfType(const NodeType* type, int children) {
    return type && children > type->mostChildren ? type->tooManyToStore : std::string_view();
}

std::string_view refusalOfQuery(const NodeType* type, std::string_view query) {
    if (!type || !type->hasQuery || !query.empty()) return {};
    return "No Generating Query or Stored procedure specified. Changes not saved";
}

constexpr std::string_view refusalOfMemory = "There is not enough memory. Changes not saved";

void normalise(clsWebScheme& paragraph) {
    const auto* type = paragraphType(paragraph.typeIs.letter());
    if (!type) return;
    if (!type->keepsForm) paragraph.formIs = 0;
    if (type->columns == ColumnsUse::None) paragraph.colsAre = {};
}

bool refuse(const Inform& inform, std::string_view message) {
    if (inform) inform(message);
    return false;
}

}  // namespace

clsNavSchemes::Pointer clsNavSchemes::CloneNav(std::string_view skey) const {
    auto copy = std::make_shared<clsNavScheme>();
    if (const auto from = Item(skey)) {
        copy->ID = from->ID;
        copy->descriptionIs = from->descriptionIs;
        copy->iconIs = from->iconIs;
        copy->parentIs = from->parentIs;
        copy->setParmIs(from->parmIs());
        copy->setQueryIs(from->queryIs());
        copy->roleIs = from->roleIs;
        copy->setTypeIs(from->typeIs());  // last: until then the copy accepts query and parameter
    }
    return copy;
}

bool clsNavSchemes::FuseNav(const Pointer& oFuse) try {
    const bool isNew =
        std::ranges::none_of(nodes_.Slots(), [&](const auto& slot) { return slot && slot->ID == oFuse->ID; });
    const auto parent = Item(oFuse->parentIs);
    const auto* type = nodeType(oFuse->typeIs().letter());
    for (const auto refusal : {refusalOfParent(parent ? nodeType(parent->typeIs().letter()) : nullptr),
                               refusalOfType(type, GetChildren(*oFuse)), refusalOfQuery(type, oFuse->queryIs())})
        if (!refusal.empty()) return refuse(inform, refusal);

    // Stores a copy: the caller may go on editing its record, and a later change that is refused must not show up
    // here.
    const auto copy = std::make_shared<clsNavScheme>(*oFuse);
    if (isNew) return Add(copy);
    const auto stored = Item(copy->ID);
    if (!stored) return false;  // between a renumbering and `FileAnew` it is filed under another number
    stored->ID = copy->ID;
    stored->descriptionIs = std::move(copy->descriptionIs);
    stored->setTypeIs(copy->typeIs());  // before query and parameter, so that the new type's rule applies to them
    stored->iconIs = std::move(copy->iconIs);
    stored->parentIs = copy->parentIs;
    stored->setParmIs(copy->parmIs());
    stored->setQueryIs(copy->queryIs());
    stored->roleIs = std::move(copy->roleIs);
    return true;
} catch (const std::bad_alloc&) {
    return refuse(inform, refusalOfMemory);
}

bool clsNavSchemes::FuseWeb(const clsWebSchemes::Pointer& oFuse) try {
    const bool isNew = !oWebs.HasID(oFuse->ID);
    if (oFuse->queryIs.empty()) return refuse(inform, "Query field cannot be blank...");
    normalise(*oFuse);
    return isNew ? oWebs.Add(std::make_shared<clsWebScheme>(*oFuse)) : oWebs.Update(*oFuse);
} catch (const std::bad_alloc&) {
    return refuse(inform, refusalOfMemory);
}
