// SPDX-License-Identifier: MIT
#include "analysis/ChildCounts.h"

#include <limits>

void ChildCounts::add(std::int32_t parent, bool isFixed) {
    auto children = of(parent);
    if (children.count < std::numeric_limits<std::int16_t>::max()) ++children.count;
    children.hasFixed = children.hasFixed || isFixed;
    byParent_.set(parent, static_cast<std::uint32_t>(children.count) | (children.hasFixed ? fixedBit : 0));
}
