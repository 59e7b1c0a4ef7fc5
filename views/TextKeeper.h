// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "model/Text.h"

/// Keeps alive the bytes that the rows of a tree or a grid show, so that the rows do not change whatever happens to
/// the records: the owned texts, and the files that the other texts point into.
class TextKeeper {
  public:
    /// Keeps the owner of `record`: the file that it was read from. Call this before `keep` for its texts.
    template <class Record>
    void keepOwner(const std::shared_ptr<Record>& record) {
        // The records of a file have the same owner and mostly follow each other.
        if (owners_.empty() || owners_.back().owner_before(record) || record.owner_before(owners_.back()))
            owners_.push_back(record);
    }

    Text::Ref keep(const Text& text) {
        if (text.isOwned()) owned_.push_back(text);
        return text.ref();
    }

  private:
    std::vector<std::shared_ptr<const void>> owners_;
    std::vector<Text> owned_;
};
