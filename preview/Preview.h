// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "database/Database.h"
#include "model/clsNavSchemes.h"

/// What a preview shows, and how.
struct PreviewSettings {
    std::string nodes, paragraphs;               ///< the names of both files, which are watched
    std::function<void(clsNavSchemes&)> load{};  ///< reads both. @throws std::runtime_error with a line for the user
    std::string day{};                           ///< the day for queries, "2026-03-05"; empty for each day's own
    QueryLimits limits{};                        ///< of a paragraph's query
    bool runsAllActions = false;                 ///< also those that the database cannot undo
    bool opensBrowser = true;
    std::function<void(const std::string&)> say{};  ///< tells the user a line: the address, what goes wrong
};

/// Shows the pages of a scheme to a browser on this computer, until the user ends it with Ctrl+C or the session is
/// closed. While it runs, it reads the files again whenever they are saved.
/// @throws std::runtime_error where it cannot begin, as when a file cannot be read
void servePreview(const PreviewSettings& settings, Database& database);
