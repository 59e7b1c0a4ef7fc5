// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "model/Text.h"

/// Keeps alive the bytes that the rows of a tree or a grid show, so that they stay as they were drawn whatever
/// becomes of the records: the owned texts, and the files that the other texts lie in.
class TextKeeper {
  public:
    /// Keeps what `record` belongs to: the file that it was read from. To be called before `keep` for its texts.
    template <class Record>
    void keepOwner(const std::shared_ptr<Record>& record) {
        // The records of one file have one owner and mostly follow each other.
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
