// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "model/FileReader.h"
#include "model/LargeArray.h"

/// The records read from one file, together with the bytes that hold their texts.
template <class Record>
class LoadedFile {
  public:
    /// Reads the bytes of a file, calling `fill(record, pieces)` for the record of each line.
    template <class Fill>
    static std::shared_ptr<LoadedFile> read(FileBytes content, Fill fill) {
        auto loaded = std::make_shared<LoadedFile>();
        if (!content.bytes) return loaded;
        loaded->bytes_ = std::move(content.bytes);
        FileReader reader(loaded->bytes_.get(), content.size);
        FileReader::Pieces pieces;
        while (reader.next(pieces)) fill(loaded->append(), pieces);
        return loaded;
    }

    [[nodiscard]] std::size_t count() const { return count_; }

    /// Calls `take` with each record, in the order of the lines, as a pointer that keeps this whole object alive.
    template <class Take>
    static void handOver(const std::shared_ptr<LoadedFile>& loaded, Take take) {
        for (auto& part : loaded->parts_)
            for (auto& record : part) take(std::shared_ptr<Record>(loaded, &record));
    }

  private:
    static constexpr std::size_t firstPart = 32;
    static constexpr std::size_t largestPart = std::size_t{1} << 18;

    Record& append() {
        if (parts_.empty() || parts_.back().size() == parts_.back().capacity()) {
            const auto size = parts_.empty() ? firstPart : std::min(parts_.back().capacity() * 2, largestPart);
            parts_.emplace_back().reserve(size);
        }
        ++count_;
        return parts_.back().emplace_back();
    }

    LargeBytes bytes_;                       // outlives the records: declared before them
    std::vector<LargeArray<Record>> parts_;  // each filled up to its capacity, so records never move
    std::size_t count_ = 0;
};
