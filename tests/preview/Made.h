// SPDX-License-Identifier: MIT
#pragma once

#include <map>

#include "preview/Page.h"
#include "tests/model/Helpers.h"

// What the tests of the preview share: results of queries in a few words, and a database that gives them.

inline Cell number(std::string text) {
    return {Cell::Kind::Number, std::move(text)};
}
inline Cell text(std::string text) {
    return {Cell::Kind::Text, std::move(text)};
}
inline Cell bytes(std::string text) {
    return {Cell::Kind::Bytes, std::move(text)};
}
inline const Cell null;

inline QueryResult made(std::vector<std::string> fields, std::vector<std::vector<Cell>> rows) {
    QueryResult result;
    result.fields = std::move(fields);
    result.total = rows.size();
    result.rows = std::move(rows);
    result.time = std::chrono::microseconds(1500);
    return result;
}

inline QueryResult failed(std::string words) {
    QueryResult result;
    result.error = std::move(words);
    return result;
}

/// Names pictures "name1", "name2" and so on.
inline std::function<std::string()> countedNames() {
    return [count = 0]() mutable { return "name" + std::to_string(++count); };
}

/// The smallest picture that counts as one.
inline const std::string gif = "GIF89a and more";

/// Gives what the tests put into it, and writes down what it is asked.
struct MadeDatabase final : Database {
    std::map<std::string, QueryResult> results;
    std::vector<std::string> calls;
    bool isUndone = true;
    std::string unreachable;
    std::string name_ = "sqlite:made.db";

    [[nodiscard]] const std::string& name() const override { return name_; }
    [[nodiscard]] bool canUndo() const override { return isUndone; }
    void beginPage() override {
        if (!unreachable.empty()) throw DatabaseError(unreachable);
        calls.emplace_back("begin");
    }
    void endPage() noexcept override { calls.emplace_back("end"); }
    QueryResult run(const QueryCall& call, QueryKind kind, const QueryLimits& limits) override {
        auto line = (kind == QueryKind::Action ? "action " : "") + call.name;
        for (const auto& constant : call.constants) line += " " + constant;
        calls.push_back(line + "(" + call.parameter + ")");
        auto result =
            results.contains(call.name) ? results[call.name] : failed("There is no view " + call.name + ".");
        if (result.rows.size() > limits.rows) result.rows.resize(limits.rows);
        return result;
    }
    std::unique_ptr<KnownQuery> find(std::string_view, QueryKind) override { return nullptr; }
};

/// A paragraph of node 1 whose query gave this.
struct MadeParagraph {
    clsWebScheme record;
    PageParagraph paragraph;

    MadeParagraph(const Text& type, const Text& columns, QueryResult result) {
        record.ID = 7;
        record.XST1 = 1;
        record.seqNo = 2;
        record.titleIs = "Title";
        record.queryIs = "spW_Made";
        record.typeIs = type;
        record.colsAre = columns;
        paragraph.record = &record;
        paragraph.call.emplace();
        paragraph.call->name = "spW_Made";
        paragraph.result = std::move(result);
    }
    MadeParagraph(const MadeParagraph&) = delete;
    MadeParagraph& operator=(const MadeParagraph&) = delete;
};

/// What a text has between two others; empty where it has none.
inline std::string between(const std::string& all, const std::string& before, const std::string& after) {
    const auto first = all.find(before);
    if (first == std::string::npos) return {};
    const auto start = first + before.size();
    return all.substr(start, all.find(after, start) - start);
}
