// SPDX-License-Identifier: MIT
#include "database/Verify.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_map>

#include "database/GeneratedTree.h"
#include "database/ResultChecks.h"
#include "model/NodeType.h"

namespace {

using Place = std::pair<bool, std::uint32_t>;  // whether it is a node, its slot

// What a node and a paragraph have in common here.
struct Caller {
    Place place;
    QueryKind purpose = QueryKind::Rows;
    char paragraphType = 0;  // the letter
    std::string_view queryIs, parmIs, colsAre{};
};

Caller callerOf(const clsNavScheme& node, std::uint32_t slot) {
    return {.place = {true, slot}, .queryIs = node.queryIs(), .parmIs = node.parmIs()};
}

Caller callerOf(const clsWebScheme& paragraph, std::uint32_t slot) {
    const auto type = paragraph.typeIs.letter();
    return {.place = {false, slot},
            .purpose = queryKindOf(type),
            .paragraphType = type,
            .queryIs = paragraph.queryIs,
            .parmIs = paragraph.parmIs,
            .colsAre = paragraph.colsAre};
}

std::string values(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " value" : " values");
}

std::string takes(const KnownQuery& known) {
    if (known.fewestArguments == known.mostArguments) return values(known.mostArguments);
    return std::to_string(known.fewestArguments) + " to " + values(known.mostArguments);
}

class Verification {
  public:
    Verification(const clsNavSchemes& navs, Database& database, const VerifyOptions& options)
        : navs_(navs), database_(database), options_(options), tree_(navs, options.today) {
        for (std::uint32_t slot = 0; const auto& node : navs.NewEnum().Slots()) slots_[node.get()] = slot++;
        for (const auto* paragraph : navs.oWebs.NewEnum()) {
            pages_[paragraph->XST1].push_back(static_cast<std::uint32_t>(paragraphs_.size()));
            paragraphs_.push_back(paragraph);
        }
        for (auto& [node, page] : pages_)
            std::ranges::stable_sort(page, {}, [&](std::uint32_t slot) { return paragraph(slot).seqNo; });
    }

    [[nodiscard]] std::vector<QueryFinding> run() {
        lookUpAll();
        const auto root = tree_.root();
        if (root.node != nullptr) walk(root, 0);
        std::ranges::stable_sort(
            findings_, {}, [](const QueryFinding& finding) { return std::tuple(!finding.isNode, finding.slot); });
        return std::move(findings_);
    }

  private:
    [[nodiscard]] const clsWebScheme& paragraph(std::uint32_t slot) const { return *paragraphs_[slot]; }

    // The same flaw of the same field once, however many rows have it.
    void add(const Place& place, std::string_view id, std::string_view field, std::string words) {
        if (!told_.emplace(place, id, field).second) return;
        findings_.push_back({&queryFlaw(id), place.first, place.second, field, std::move(words)});
    }

    void lookUpAll() {
        for (std::uint32_t slot = 0; const auto& node : navs_.NewEnum().Slots()) {
            if (callsQuery(node->typeIs().letter())) lookUp(callerOf(*node, slot));
            ++slot;
        }
        for (std::uint32_t slot = 0; slot < paragraphs_.size(); ++slot) lookUp(callerOf(paragraph(slot), slot));
    }

    void lookUp(const Caller& caller) {
        const auto call = callOf(caller.queryIs, caller.parmIs, {}, options_.today);
        if (!call) return;
        const auto known = database_.find(call->name, caller.purpose);
        const auto count = call->constants.size() + (call->kind == ParameterKind::None ? 0 : 1);
        if (!known)
            add(caller.place, "query-missing", "queryIs",
                "The database has no " +
                    std::string(caller.purpose == QueryKind::Action ? "action query " : "query ") + call->name + ".");
        else if (known->areArgumentsKnown && (count < known->fewestArguments || count > known->mostArguments))
            add(caller.place, "query-arguments", "queryIs",
                call->name + " takes " + takes(*known) + ", and is called with " + std::to_string(count) +
                    ", the parameter included.");
        else
            return;
        broken_.insert(caller.place);
    }

    // `depth`: how many levels of rows are above.
    void walk(const TreeNode& node, std::size_t depth) {
        if (node.node == nullptr) return;
        if (!node.clicked.isGenerated && !fixed_.insert(node.node).second) return;  // a loop in the scheme
        readPage(node);
        if (!tree_.isBranch(node)) return;
        const auto caller = callerOf(*node.node, slots_.at(node.node));
        if (!callsQuery(node.node->typeIs().letter())) {
            for (const auto& child : tree_.below(node, database_, options_.limits).nodes) walk(child, depth);
        } else if (depth < options_.depth && !broken_.contains(caller.place)) {
            readRows(node, caller, depth);
        }
    }

    void readRows(const TreeNode& node, const Caller& caller, std::size_t depth) {
        if (!callOf(caller.queryIs, caller.parmIs, node.clicked, options_.today)) return;
        const auto branch = tree_.below(node, database_, options_.limits);
        if (!addFailure(caller, node, branch.error, branch.isTooSlow, branch.time)) return;
        for (auto& flaw : flawsOfTree(branch.fields)) add(caller.place, flaw.id, flaw.field, std::move(flaw.words));
        checkKeys(caller, branch);
        for (std::size_t i = 0; i < branch.nodes.size() && i < options_.rows; ++i) walk(branch.nodes[i], depth + 1);
    }

    // All records that get the keys of these rows: the query of the node that they are made after, and its page.
    void checkKeys(const Caller& caller, const TreeBranch& branch) {
        if (branch.nodes.empty()) return;
        const auto* const after = branch.nodes.front().node;
        std::vector<Caller> takers;
        if (after != nullptr && callsQuery(after->typeIs().letter()))
            takers.push_back(callerOf(*after, slots_.at(after)));
        if (after != nullptr)
            for (const auto slot : pages_[after->ID]) takers.push_back(callerOf(paragraph(slot), slot));
        for (const auto& [node, clicked] : branch.nodes) {
            if (clicked.key.empty())
                add(caller.place, "key-empty", "queryIs", "The row \"" + clicked.text + "\" has no key.");
            for (const auto& taker : takers)
                if (const auto why = whyNoKey(clicked.key, taker.parmIs); !why.empty() && !clicked.key.empty())
                    add(taker.place, "key-kind", "parmIs",
                        "The key \"" + clicked.key + "\" of a row of " + nameIn(caller.queryIs) + " " + why + ".");
        }
    }

    [[nodiscard]] std::string nameIn(std::string_view queryIs) const {
        return callOf(queryIs, "", {}, options_.today).value_or(QueryCall()).name;
    }

    void readPage(const TreeNode& node) {
        const auto page = pages_.find(node.node->ID);
        if (page == pages_.end()) return;
        const DatabasePage running(database_);
        for (const auto slot : page->second) {
            const auto caller = callerOf(paragraph(slot), slot);
            if (!broken_.contains(caller.place)) readParagraph(caller, node);
        }
    }

    void readParagraph(const Caller& caller, const TreeNode& node) {
        const auto call = callOf(caller.queryIs, caller.parmIs, node.clicked, options_.today);
        if (!call) return;
        const bool isAction = caller.purpose == QueryKind::Action;
        if (isAction && !database_.canUndo() && !options_.runsActions)
            return add(caller.place, "action-not-run", "queryIs",
                       call->name + " was not run: this database cannot take back what it does.");
        const auto result = database_.run(*call, caller.purpose, options_.limits);
        if (!addFailure(caller, node, result.error, result.isTooSlow, result.time) || isAction) return;
        for (auto& flaw : flawsOfPage(caller.paragraphType, caller.colsAre, result))
            add(caller.place, flaw.id, flaw.field, std::move(flaw.words));
    }

    // Returns whether there are results to look at.
    bool addFailure(const Caller& caller, const TreeNode& node, const std::string& error, bool isTooSlow,
                    std::chrono::microseconds time) {
        const auto name = nameIn(caller.queryIs);
        if (isTooSlow || time > options_.limits.time)
            add(caller.place, "query-too-slow", "queryIs",
                name + " takes longer than " + std::to_string(options_.limits.time.count()) + " ms" + forNode(node) +
                    ".");
        else if (!error.empty())
            add(caller.place, "query-fails", "queryIs", name + " fails" + forNode(node) + ": " + asOneLine(error));
        return error.empty();
    }

    static std::string forNode(const TreeNode& node) {
        return node.clicked.isGenerated
                   ? " for the node \"" + node.clicked.text + "\" with the key " + node.clicked.key
                   : "";
    }

    static std::string asOneLine(std::string text) {
        std::ranges::replace(text, '\n', ' ');
        return text;
    }

    const clsNavSchemes& navs_;
    Database& database_;
    const VerifyOptions& options_;
    GeneratedTree tree_;
    std::unordered_map<const clsNavScheme*, std::uint32_t> slots_;
    std::vector<const clsWebScheme*> paragraphs_;
    std::unordered_map<std::int32_t, std::vector<std::uint32_t>> pages_;  // by node: its paragraphs in their order
    std::set<Place> broken_;                                              // whose call could only fail
    std::set<const clsNavScheme*> fixed_;                                 // that were visited
    std::set<std::tuple<Place, std::string_view, std::string_view>> told_;
    std::vector<QueryFinding> findings_;
};

}  // namespace

std::vector<QueryFinding> verifyQueries(const clsNavSchemes& navs, Database& database, const VerifyOptions& options) {
    return Verification(navs, database, options).run();
}
