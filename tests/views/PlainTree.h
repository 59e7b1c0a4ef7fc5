// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "model/clsNavSchemes.h"
#include "tests/Letters.h"

/// What the tree must show of a scheme, found as directly as possible: by recursion, with a search through all nodes
/// for the children of each one. A node is put below the one with its parent's key. It is left out if its key is
/// taken, that parent is not there, or its type has no picture.
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
            items_[node->ID] = {"Data Browser", 1, {}};
            addBelow(*node);
            list(node->ID, 0);
            break;
        }
    }

    std::vector<Row> rows;  ///< from top to bottom

  private:
    struct Item {
        std::string text;
        int picture = 0;
        std::vector<int> children;
    };

    void addBelow(const clsNavScheme& parent) {
        if (!open_.insert(&parent).second) return;  // a loop
        for (const auto& node : nodes_) {
            if (node->parentIs != parent.ID) continue;
            const auto type = node->typeIs().view();
            const auto letter = type.size() == 1 ? nodeLetters.find(type) : std::string::npos;
            int picture = letter == std::string::npos ? 0 : static_cast<int>(letter) + 2;
            if (node->parentIs == 0) picture = 1;
            if (picture != 0 && items_.contains(parent.ID) && !items_.contains(node->ID)) {
                items_[node->ID] = {std::string(node->descriptionIs.view()), picture, {}};
                items_[parent.ID].children.push_back(node->ID);
            }
            addBelow(*node);
        }
        open_.erase(&parent);
    }

    void list(int id, std::size_t level) {
        const auto& item = items_.at(id);
        rows.push_back({level, "N" + std::to_string(id), item.text, item.picture});
        for (const int child : item.children) list(child, level + 1);
    }

    std::vector<std::shared_ptr<clsNavScheme>> nodes_;
    std::map<int, Item> items_;  // by ID
    std::set<const clsNavScheme*> open_;
};
