// SPDX-License-Identifier: MIT
#include "model/KeyIndex.h"

#include <algorithm>
#include <random>

namespace {

constexpr std::size_t smallestTable = 256;
constexpr std::size_t slotsPerEntry = 4;  // how thinly the table may be filled

const std::uint64_t seed = [] {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}();

std::size_t unsignedOf(std::int32_t number) {
    return static_cast<std::uint32_t>(number);
}

}  // namespace

// The mixing steps of the generator SplitMix64: each bit of the number and of the seed changes about half of the bits
// of the result.
std::size_t KeyIndex::Mixed::operator()(std::int32_t number) const noexcept {
    auto mixed = seed + unsignedOf(number) * std::uint64_t{0x9E3779B97F4A7C15};
    mixed = (mixed ^ mixed >> 30) * std::uint64_t{0xBF58476D1CE4E5B9};
    mixed = (mixed ^ mixed >> 27) * std::uint64_t{0x94D049BB133111EB};
    return static_cast<std::size_t>(mixed ^ mixed >> 31);
}

void KeyIndex::reserve(std::size_t count) {
    expected_ = std::max(expected_, count);
}

std::uint32_t KeyIndex::findOther(std::int32_t number) const {
    const auto other = others_.find(number);
    return other == others_.end() ? none : other->second;
}

std::uint32_t& KeyIndex::slotFor(std::int32_t number) {
    if (!others_.empty())
        if (const auto other = others_.find(number); other != others_.end()) return other->second;
    const auto place = unsignedOf(number);
    if (place < table_.size()) return table_[place];
    expected_ = std::max(expected_, inserted_ + 1);
    if (place < std::max(smallestTable, expected_ * slotsPerEntry)) {
        // Reserve room for numbers with gaps between them at once: memory that stays unused is never touched.
        if (place >= table_.capacity())
            table_.reserve(std::max({place + 1, expected_ * 2, smallestTable, table_.capacity() * 2}));
        table_.resize(std::max(place + 1, smallestTable), none);
        ++inserted_;
        return table_[place];
    }
    auto& slot = others_.emplace(number, none).first->second;
    ++inserted_;
    return slot;
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
    if (unsignedOf(number) < table_.size()) table_[unsignedOf(number)] = none;
    others_.erase(number);
}

void KeyIndex::clear() {
    *this = {};
}
