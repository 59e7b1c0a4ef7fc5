// SPDX-License-Identifier: MIT
#include "model/clsNavScheme.h"

#include <utility>

#include "model/NodeType.h"

bool clsNavScheme::takesQuery() const {
    const auto* type = nodeType(typeIs_.letter());
    return !type || type->hasQuery;
}

void clsNavScheme::setTypeIs(Text type) {
    typeIs_ = std::move(type);
    if (!takesQuery()) {
        queryIs_ = {};
        parmIs_ = {};
    }
}

void clsNavScheme::setQueryIs(Text query) {
    queryIs_ = takesQuery() ? std::move(query) : Text();
}

void clsNavScheme::setParmIs(Text parm) {
    parmIs_ = takesQuery() ? std::move(parm) : Text();
}
