// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the browser asks and is answered, whatever carries it.

using Headers = std::vector<std::pair<std::string, std::string>>;

struct Request {
    std::string method;  ///< "GET", "POST"
    std::string path;    ///< "/page"
    std::string query;   ///< what stands after the question mark
    Headers headers;
    std::string body;

    /// The value of a header, whatever the case of its letters; empty where it is missing, and where it is there
    /// twice.
    [[nodiscard]] std::string_view header(std::string_view name) const;
    [[nodiscard]] bool hasHeader(std::string_view name) const;
};

struct Answer {
    int status = 200;
    std::string type = "text/html; charset=utf-8";
    std::string body{};
    Headers headers{};
};

/// A page of plain words, for what goes wrong.
[[nodiscard]] Answer plainAnswer(int status, std::string words);
