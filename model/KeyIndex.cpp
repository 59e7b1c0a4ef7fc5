#include "model/KeyIndex.h"

#include <algorithm>

namespace {

constexpr std::size_t smallestTable = 256;
constexpr std::size_t slotsPerEntry = 4;  // how thinly the table may be filled

}  // namespace

void KeyIndex::reserve(std::size_t count) {
    expected_ = std::max(expected_, count);
}

std::uint32_t KeyIndex::find(std::int32_t number) const {
    const auto place = static_cast<std::size_t>(static_cast<std::uint32_t>(number));
    if (place < table_.size() && table_[place] != none) return table_[place];
    if (rest_.empty()) return none;
    const auto found = rest_.find(number);
    return found == rest_.end() ? none : found->second;
}

std::uint32_t& KeyIndex::slotFor(std::int32_t number) {
    if (const auto found = rest_.find(number); found != rest_.end()) return found->second;
    ++inserted_;
    expected_ = std::max(expected_, inserted_);
    const auto place = static_cast<std::size_t>(static_cast<std::uint32_t>(number));
    if (place >= table_.size() && place < std::max(smallestTable, expected_ * slotsPerEntry))
        table_.resize(std::max(place + 1, smallestTable), none);
    return place < table_.size() ? table_[place] : rest_.try_emplace(number, none).first->second;
}

bool KeyIndex::insert(std::int32_t number, std::uint32_t place) {
    std::uint32_t& slot = slotFor(number);
    if (slot != none) return false;
    slot = place;
    return true;
}

void KeyIndex::set(std::int32_t number, std::uint32_t place) {
    slotFor(number) = place;
}

void KeyIndex::erase(std::int32_t number) {
    const auto place = static_cast<std::size_t>(static_cast<std::uint32_t>(number));
    if (place < table_.size()) table_[place] = none;
    rest_.erase(number);
}

void KeyIndex::clear() {
    table_ = {};
    rest_ = {};
    expected_ = inserted_ = 0;
}
