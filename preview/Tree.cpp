// SPDX-License-Identifier: MIT
#include "preview/Tree.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <utility>

namespace {

using nlohmann::json;

json asJson(const TreeNode& node, const GeneratedTree& tree) {
    return {{"n", node.node ? json(node.node->ID) : json(nullptr)},
            {"k", node.clicked.key},
            {"t", node.clicked.text},
            {"g", node.clicked.isGenerated},
            {"b", tree.isBranch(node)}};
}

// What is no UTF-8 becomes the replacement character.
std::string printed(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

constexpr std::size_t longestTab = 40;

template <class Number>
std::optional<std::int32_t> inRange(Number number) {
    if (!std::in_range<std::int32_t>(number)) return {};
    return static_cast<std::int32_t>(number);
}
std::optional<std::int32_t> idOf(const json& asked) {
    if (asked.is_number_unsigned()) return inRange(asked.get<std::uint64_t>());
    if (asked.is_number_integer()) return inRange(asked.get<std::int64_t>());
    return {};
}

}  // namespace

std::string nodeAsJson(const TreeNode& node, const GeneratedTree& tree) {
    return printed(asJson(node, tree));
}

std::string branchAsJson(const TreeBranch& branch, const GeneratedTree& tree) {
    auto nodes = json::array();
    for (const auto& node : branch.nodes) nodes.push_back(asJson(node, tree));
    return printed({{"nodes", std::move(nodes)}, {"total", branch.total}, {"error", branch.error}});
}

std::optional<AskedNode> askedNode(std::string_view text, const clsNavSchemes& navs) try {
    const auto asked = json::parse(text);
    AskedNode found;
    if (!asked.at("n").is_null()) {
        const auto id = idOf(asked.at("n"));
        found.node.node = id ? navs.Item(*id).get() : nullptr;
        if (!found.node.node) return {};
    }
    found.node.clicked = {asked.at("k").get<std::string>(), asked.at("t").get<std::string>(),
                          asked.at("g").get<bool>()};
    found.tab = asked.value("tab", "").substr(0, longestTab);
    return found;
} catch (const json::exception&) {
    return {};
}
