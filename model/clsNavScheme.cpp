// SPDX-License-Identifier: MIT
#include "model/clsNavScheme.h"

#include <utility>

bool clsNavScheme::takesQuery() const {
    return typeIs_ != "F" && typeIs_ != "N";
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
