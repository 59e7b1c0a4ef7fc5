// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <map>

#include "Helpers.h"
#include "Reference.h"
#include "model/GroupIndex.h"
#include "model/Integer.h"
#include "model/KeyIndex.h"

// Numbers, indexes and the collection against plain references.

namespace {

// Numbers around the bounds of the index's table, near each other, and anywhere.
rc::Gen<std::int32_t> anyNumber() {
    return rc::gen::oneOf(
        rc::gen::inRange<std::int32_t>(-3, 20), rc::gen::inRange<std::int32_t>(250, 262),
        rc::gen::inRange<std::int32_t>(0, 3000), rc::gen::arbitrary<std::int32_t>(),
        rc::gen::element(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

rc::Gen<std::string> textOf(std::string_view alphabet) {
    return rc::gen::container<std::string>(rc::gen::elementOf(std::string(alphabet)));
}

}  // namespace

RC_GTEST_PROP(IntegerProperty, ReadsDecimalNumbersExactly, ()) {
    const auto blanks = *rc::gen::inRange<std::size_t>(0, 3);
    const auto sign = *rc::gen::element<std::string>("", "-", "+");
    const auto whole = *rc::gen::oneOf(
        textOf("0123456789"), rc::gen::element<std::string>("2147483647", "2147483648", "2147483646", "4294967296"));
    const auto fraction = *rc::gen::oneOf(rc::gen::just(std::string()),
                                          rc::gen::map(textOf("0459"), [](auto digits) { return "." + digits; }));
    const auto text = std::string(blanks, ' ') + sign + whole + fraction + std::string(blanks, ' ');
    RC_CLASSIFY(reference::integer(text).has_value(), "a number");
    RC_ASSERT(readInteger(text) == reference::integer(text));
}

RC_GTEST_PROP(IntegerProperty, ReadsAnyTextLikeTheReference, ()) {
    const auto text = *textOf("0012579..+- ex\t,\xA0");
    RC_ASSERT(readInteger(text) == reference::integer(text));
}

RC_GTEST_PROP(IntegerProperty, KeysAndNumbersMapOneToOne, (std::int32_t number)) {
    RC_ASSERT(keyText(number) == std::to_string(number));
    RC_ASSERT(readKey(keyText(number)) == number);
    RC_ASSERT(readInteger(keyText(number)) == number);
}

RC_GTEST_PROP(IntegerProperty, OnlyTheOneSpellingIsAKey, ()) {
    const auto text = *textOf("00123459-+ .x");
    const auto number = readKey(text);
    RC_CLASSIFY(number.has_value(), "a key");
    RC_ASSERT(number.has_value() ==
              (reference::integer(text).has_value() && std::to_string(*reference::integer(text)) == text));
}

RC_GTEST_PROP(KeyIndexProperty, DoesWhatAMapDoes, ()) {
    enum Operation { Insert, Set, Erase, Find, Clear, Reserve };
    KeyIndex index;
    std::map<std::int32_t, std::uint32_t> map;
    const auto operations = *rc::gen::container<std::vector<std::pair<int, std::int32_t>>>(rc::gen::pair(
        rc::gen::weightedElement<int>({{60, Insert}, {20, Set}, {30, Erase}, {20, Find}, {1, Clear}, {2, Reserve}}),
        anyNumber()));
    std::uint32_t place = 0;
    for (const auto& [operation, number] : operations) {
        ++place;
        if (operation == Insert) RC_ASSERT(index.insert(number, place) == map.try_emplace(number, place).second);
        if (operation == Set) index.set(number, map[number] = place);
        if (operation == Erase) index.erase(number), map.erase(number);
        if (operation == Clear) index.clear(), map.clear();
        if (operation == Reserve) index.reserve(static_cast<std::size_t>(number & 0xFFFF));
        const auto found = map.find(number);
        RC_ASSERT(index.find(number) == (found == map.end() ? KeyIndex::none : found->second));
    }
    for (const auto& [number, expected] : map) RC_ASSERT(index.find(number) == expected);
}

RC_GTEST_PROP(GroupIndexProperty, DoesWhatAMapOfListsDoes, ()) {
    const auto numbers = *rc::gen::container<std::vector<std::int32_t>>(anyNumber());
    const auto left = *rc::gen::container<std::vector<bool>>(numbers.size(), rc::gen::arbitrary<bool>());
    std::map<std::int32_t, std::vector<std::uint32_t>> lists;
    for (std::uint32_t place = 0; place < numbers.size(); ++place)
        if (!left[place]) lists[numbers[place]].push_back(place);

    const GroupIndex index(static_cast<std::uint32_t>(numbers.size()),
                           [&](std::uint32_t place) { return left[place] ? nullptr : &numbers[place]; });
    for (const auto number : numbers) {
        const auto members = index[number];
        RC_ASSERT(std::vector(members.begin(), members.end()) == lists[number]);
    }
    const auto any = *anyNumber();
    const auto members = index[any];
    RC_ASSERT(std::vector(members.begin(), members.end()) == lists[any]);
}

RC_GTEST_PROP(KeyedCollectionProperty, DoesWhatAListOfKeysDoes, ()) {
    struct Record {
        std::int32_t ID;
    };
    enum Operation { Add, Remove, RemoveText, RemoveAt, Rename, Clear };
    KeyedCollection<Record> collection;
    std::vector<std::pair<std::int32_t, std::shared_ptr<Record>>> list;  // by key, in order
    const auto find = [&](std::int32_t key) {
        return std::ranges::find(list, key, &std::pair<std::int32_t, std::shared_ptr<Record>>::first);
    };
    const auto operations = *rc::gen::container<std::vector<std::pair<int, std::int32_t>>>(
        rc::gen::pair(rc::gen::weightedElement<int>(
                          {{60, Add}, {20, Remove}, {10, RemoveText}, {15, RemoveAt}, {15, Rename}, {1, Clear}}),
                      rc::gen::inRange<std::int32_t>(-3, 25)));
    for (const auto& [operation, number] : operations) {
        const auto found = find(number);
        const bool exists = found != list.end();
        if (operation == Add) {
            auto record = std::make_shared<Record>(Record{number});
            RC_ASSERT(collection.Add(record) == !exists);
            if (!exists) list.emplace_back(number, record);
        } else if (operation == Remove || operation == RemoveText) {
            RC_ASSERT((operation == Remove ? collection.RemoveKey(number)
                                           : collection.RemoveKey(std::to_string(number))) == exists);
            if (exists) list.erase(found);
        } else if (operation == RemoveAt) {
            const bool there = number >= 1 && static_cast<std::size_t>(number) <= list.size();
            RC_ASSERT(collection.RemoveAt(number) == there);
            if (there) list.erase(list.begin() + (number - 1));
        } else if (operation == Rename && exists) {
            found->second->ID += 1;
        } else if (operation == Clear) {
            collection.Clear();
            list.clear();
        }
        RC_ASSERT(collection.Count() == static_cast<std::int32_t>(list.size()));
        std::vector<std::shared_ptr<Record>> met;
        for (const auto& record : collection) met.push_back(record);
        RC_ASSERT(std::ranges::equal(met, list, {}, {}, &std::pair<std::int32_t, std::shared_ptr<Record>>::second));
        const auto now = find(number);
        RC_ASSERT(collection.Item(number) == (now == list.end() ? nullptr : now->second));
        RC_ASSERT(collection.Item(std::to_string(number)) == collection.Item(number));
    }
}
