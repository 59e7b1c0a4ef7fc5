// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "model/KeyIndex.h"
#include "model/LargeArray.h"

/// Which ID each node had before a renumbering and which it has now. It is complete before it is used to change
/// anything, so a lack of memory cannot leave the renumbering half done.
class NodeMoves {
  public:
    /// @param count the number of nodes that will be added
    explicit NodeMoves(std::size_t count) {
        places_.reserve(count);
        now_.reserve(count);
    }

    /// Of several nodes with the same former ID, the last one added counts.
    void add(std::int32_t former, std::int32_t now) {
        places_.set(former, static_cast<std::uint32_t>(now_.size()));
        now_.push_back(now);
    }

    /// The current ID of the node that had this former ID; nothing if there was no such node.
    [[nodiscard]] std::optional<std::int32_t> find(std::int32_t former) const {
        const auto place = places_.find(former);
        if (place == KeyIndex::none) return {};
        return now_[place];
    }

  private:
    KeyIndex places_;  // former ID -> its place in now_
    LargeArray<std::int32_t> now_;
};
