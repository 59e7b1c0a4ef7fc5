// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "model/Integer.h"
#include "model/KeyIndex.h"

/// The collection behind both schemes: records in the order in which they were added, each filed under the ID that
/// it had at that moment. A record whose ID changes later keeps its key.
///
/// Adding, finding and removing by key take O(1). Records may be removed, and, while one stays, others added, in
/// the middle of a for-each loop: nobody is skipped or met twice. (A removed record leaves an empty slot behind until
/// the collection is empty; loops pass over it.)
template <class Record>
class KeyedCollection {
  public:
    using Pointer = std::shared_ptr<Record>;

    /// Files `record` under its ID. @return false, changing nothing, when the key is taken
    bool Add(Pointer record) {
        const auto key = record->ID;
        if (!places_.insert(key, static_cast<std::uint32_t>(slots_.size()))) return false;
        slots_.push_back(std::move(record));
        keys_.push_back(key);
        ++count_;
        return true;
    }

    /// @return the record filed under `key`, null when there is none
    [[nodiscard]] Pointer Item(std::int32_t key) const {
        const auto place = places_.find(key);
        return place == KeyIndex::none ? nullptr : slots_[place];
    }
    [[nodiscard]] Pointer Item(std::string_view key) const {
        const auto number = readKey(key);
        return number ? Item(*number) : nullptr;
    }

    /// Removes the record filed under `key`. @return false when there is none
    bool Remove(std::int32_t key) {
        const auto place = places_.find(key);
        if (place == KeyIndex::none) return false;
        places_.erase(key);
        slots_[place] = nullptr;
        if (--count_ == 0) Clear();
        return true;
    }
    bool Remove(std::string_view key) {
        const auto number = readKey(key);
        return number && Remove(*number);
    }

    /// Removes the record at `position`, counted from 1 in collection order, in O(n). @return false when there is
    /// none
    bool RemoveAt(std::int32_t position) {
        for (std::size_t slot = 0; position > 0 && slot < slots_.size(); ++slot)
            if (slots_[slot] && --position == 0) return Remove(keys_[slot]);
        return false;
    }

    void Clear() {
        slots_ = std::vector<Pointer>();  // an empty list in braces would keep the memory
        keys_ = std::vector<std::int32_t>();
        places_.clear();
        count_ = 0;
    }

    /// Expects `count` records in all.
    void Reserve(std::size_t count) {
        slots_.reserve(count);
        keys_.reserve(count);
        places_.reserve(count);
    }

    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// Every place of the collection in order; those of removed records are null.
    [[nodiscard]] std::span<const Pointer> Slots() const { return slots_; }

    /// Walks over the records, following changes of the collection. It hands out the collection's own pointer:
    /// copy that to keep a record that the loop removes.
    class Iterator {
      public:
        explicit Iterator(const KeyedCollection& collection) : collection_(&collection) { skipRemoved(); }
        const Pointer& operator*() const { return collection_->slots_[slot_]; }
        Iterator& operator++() {
            ++slot_;
            skipRemoved();
            return *this;
        }
        bool operator==(std::nullptr_t) const { return slot_ >= collection_->slots_.size(); }

      private:
        void skipRemoved() {
            while (slot_ < collection_->slots_.size() && !collection_->slots_[slot_]) ++slot_;
        }
        const KeyedCollection* collection_;
        std::size_t slot_ = 0;
    };
    [[nodiscard]] Iterator begin() const { return Iterator(*this); }
    [[nodiscard]] std::nullptr_t end() const { return nullptr; }

  private:
    std::vector<Pointer> slots_;
    std::vector<std::int32_t> keys_;  // by slot
    KeyIndex places_;                 // key -> slot
    std::int32_t count_ = 0;
};

/// The records of a collection in order, for a for-each loop that only reads them. Each is handed out as a plain
/// pointer, good until it is removed.
template <class Record>
class ReadOnlyRecords {
  public:
    explicit ReadOnlyRecords(const KeyedCollection<Record>& collection) : collection_(collection) {}

    class Iterator {
      public:
        explicit Iterator(typename KeyedCollection<Record>::Iterator at) : at_(at) {}
        const Record* operator*() const { return (*at_).get(); }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator==(std::nullptr_t) const { return at_ == nullptr; }

      private:
        typename KeyedCollection<Record>::Iterator at_;
    };
    [[nodiscard]] Iterator begin() const { return Iterator(collection_.begin()); }
    [[nodiscard]] std::nullptr_t end() const { return nullptr; }

  private:
    const KeyedCollection<Record>& collection_;
};
