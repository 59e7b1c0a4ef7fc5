// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "model/clsNavSchemes.h"

/// What the tree must show of a scheme, found as directly as can be: node by node, by recursion, each by a search
/// through all; left out if its key is taken, its parent is not there or its type has no picture.
class PlainTree {
  public:
    struct Row {
        std::size_t level;
        std::string key, text;
        int picture;
    };

    explicit PlainTree(const clsNavSchemes& navs) {
        for (const auto& node : navs.NewEnum()) nodes_.push_back(node);
        for (const auto& node : nodes_) {
            if (node->parentIs != 0) continue;
            keys_.insert(node->ID);
            rows.push_back({0, "N" + std::to_string(node->ID), "Data Browser", 1});
            addBelow(*node, 1);
            break;
        }
    }

    std::vector<Row> rows;  ///< from top to bottom

  private:
    void addBelow(const clsNavScheme& parent, std::size_t level) {
        if (!open_.insert(&parent).second) return;  // a loop
        for (const auto& node : nodes_) {
            if (node->parentIs != parent.ID) continue;
            const auto type = node->typeIs().view();
            const auto letter = type.size() == 1 ? std::string("FGRN").find(type) : std::string::npos;
            int picture = letter == std::string::npos ? 0 : static_cast<int>(letter) + 2;
            if (node->parentIs == 0) picture = 1;
            if (keys_.contains(parent.ID) && picture != 0 && keys_.insert(node->ID).second)
                rows.push_back(
                    {level, "N" + std::to_string(node->ID), std::string(node->descriptionIs.view()), picture});
            addBelow(*node, level + 1);
        }
        open_.erase(&parent);
    }

    std::vector<std::shared_ptr<clsNavScheme>> nodes_;
    std::set<int> keys_;
    std::set<const clsNavScheme*> open_;
};
