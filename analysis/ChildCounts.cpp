#include "analysis/ChildCounts.h"

#include <limits>

ChildCounts::ChildCounts(const clsNavSchemes& navs) {
    parents_.reserve(static_cast<std::size_t>(navs.Count()));
    for (const auto& node : navs.NewEnum()) {
        auto place = parents_.find(node->parentIs);
        if (place == KeyIndex::none) {
            place = static_cast<std::uint32_t>(children_.size());
            parents_.insert(node->parentIs, place);
            children_.emplace_back();
        }
        auto& children = children_[place];
        if (children.count < std::numeric_limits<std::int16_t>::max()) ++children.count;
        children.hasFixed = children.hasFixed || node->typeIs() == "F";
    }
}
