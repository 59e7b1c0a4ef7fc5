// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "model/Integer.h"
#include "model/KeyIndex.h"
#include "model/LargeArray.h"

/// The collection behind both schemes: records in the order in which they were added, each filed under the ID that
/// it had at that moment. A record whose ID changes later keeps its key until `FileAnew`.
///
/// Adding, finding and removing by key take O(1). A for-each loop may remove records, and add others as long as at
/// least one stays: no record is skipped or visited twice. (A removed record leaves an empty slot behind until the
/// collection is empty; loops skip it.)
template <class Record>
class KeyedCollection {
  public:
    using Pointer = std::shared_ptr<Record>;

    /// Files `record` under its ID. @return false, changing nothing, if the key is taken
    /// @throws std::bad_alloc, changing nothing
    bool Add(Pointer record) {
        const auto key = record->ID;
        makeRoomForOne();
        if (!places_.insert(key, static_cast<std::uint32_t>(slots_.size()))) return false;
        slots_.push_back(std::move(record));
        keys_.push_back(key);
        ++count_;
        return true;
    }

    /// Files every record under its current ID; the order stays. Of the records that share an ID, one gets the key:
    /// the first that `preferred` names, else the first in collection order. The others stay without a key.
    /// @param preferred callable: () -> a list of slots; called only if records share an ID
    /// @throws std::bad_alloc, and whatever `preferred` throws, changing nothing
    template <class Preferred>
    void FileAnew(Preferred preferred) {
        KeyIndex places;
        std::int32_t filed = 0;
        const auto file = [&](std::uint32_t slot) { filed += places.insert(slots_[slot]->ID, slot) ? 1 : 0; };
        const auto fileAll = [&] {
            for (std::uint32_t slot = 0; slot < slots_.size(); ++slot)
                if (slots_[slot]) file(slot);
        };
        places.reserve(slots_.size());
        fileAll();
        if (filed != count_) {
            places.clear();
            filed = 0;
            for (const std::uint32_t slot : preferred()) file(slot);
            fileAll();
        }
        // From here on nothing fails.
        for (std::size_t slot = 0; slot < slots_.size(); ++slot)
            if (slots_[slot]) keys_[slot] = slots_[slot]->ID;
        places_ = std::move(places);
        withoutKey_ = count_ - filed;
    }
    /// Whether some records have no key because they share their ID with another one.
    [[nodiscard]] bool HasRecordsWithoutKey() const { return withoutKey_ != 0; }

    /// @return the record filed under `key`, null if there is none
    [[nodiscard]] Pointer Item(std::int32_t key) const {
        const auto place = places_.find(key);
        return place == KeyIndex::none ? nullptr : slots_[place];
    }
    [[nodiscard]] Pointer Item(std::string_view key) const {
        const auto number = readKey(key);
        return number ? Item(*number) : nullptr;
    }

    /// The slot of the record filed under `key`, `KeyIndex::none` if there is none.
    [[nodiscard]] std::uint32_t SlotOf(std::int32_t key) const { return places_.find(key); }

    /// Removes the record filed under `key`. @return false if there is none
    bool RemoveKey(std::int32_t key) {
        const auto place = places_.find(key);
        if (place == KeyIndex::none) return false;
        RemoveSlot(place);
        return true;
    }
    bool RemoveKey(std::string_view key) {
        const auto number = readKey(key);
        return number && RemoveKey(*number);
    }

    /// Removes the record at `position`, counted from 1 in collection order, in O(n). @return false if there is none
    bool RemoveAt(std::int32_t position) {
        for (std::size_t slot = 0; position > 0 && slot < slots_.size(); ++slot)
            if (slots_[slot] && --position == 0) {
                RemoveSlot(slot);
                return true;
            }
        return false;
    }

    /// Removes the record in `slot`, which must hold one. Removing the last record frees all slots.
    void RemoveSlot(std::size_t slot) {
        if (places_.find(keys_[slot]) == slot)
            places_.erase(keys_[slot]);
        else
            --withoutKey_;
        slots_[slot] = nullptr;
        if (--count_ == 0) Clear();
    }

    void Clear() {
        slots_ = LargeArray<Pointer>();  // assigning {} would keep the memory
        keys_ = LargeArray<std::int32_t>();
        places_.clear();
        count_ = 0;
        withoutKey_ = 0;
    }

    /// Prepares for `count` records in all.
    void Reserve(std::size_t count) {
        slots_.reserve(count);
        keys_.reserve(count);
        places_.reserve(count);
    }

    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// All slots in order; those of removed records are null.
    [[nodiscard]] std::span<const Pointer> Slots() const { return slots_; }

    /// Goes over the records and follows changes of the collection. It returns the collection's own pointer:
    /// copy it to keep a record that the loop removes.
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
    // Makes sure that the next record goes into both lists without an allocation.
    void makeRoomForOne() {
        if (slots_.size() < slots_.capacity() && keys_.size() < keys_.capacity()) return;
        const auto room = std::max<std::size_t>(slots_.size() * 2, 8);
        slots_.reserve(room);
        keys_.reserve(room);
    }

    LargeArray<Pointer> slots_;
    LargeArray<std::int32_t> keys_;  // by slot; for a record without a key, its ID
    KeyIndex places_;                // key -> slot
    std::int32_t count_ = 0;
    std::int32_t withoutKey_ = 0;
};

/// The records of a collection in order, for a for-each loop that only reads them. Each is a plain pointer, valid
/// until the record is removed.
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
