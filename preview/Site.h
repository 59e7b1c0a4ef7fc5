// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "preview/Findings.h"
#include "preview/Page.h"
#include "preview/Pictures.h"
#include "preview/Request.h"

/// What the site of a preview is made of.
struct SiteSettings {
    std::string files;  ///< their names, for the head of the pages
    std::function<void(clsNavSchemes&)>
        load;                            ///< reads both files. @throws std::runtime_error with a line for the user
    std::function<std::string()> today;  ///< the day for queries, as "05-Mar-2026"
    QueryLimits limits{};                ///< of a paragraph's query
    std::size_t mostChildren = 10'000;   ///< that a node shows; the rest are counted
    bool runsAllActions = false;         ///< also those that the database cannot undo
    std::function<std::vector<QueryFinding>(const clsNavSchemes&)> verify;  ///< @throws DatabaseError
    std::function<std::string(std::string_view)> asset;  ///< the bytes of "preview.css" and the like
    std::function<std::string()> newName;                ///< for a picture; nobody can guess it
};

/// All that the preview answers to a browser that may ask.
class Site {
  public:
    /// @param database must outlive this
    /// @throws std::runtime_error where the files cannot be read
    Site(SiteSettings settings, Database& database);

    [[nodiscard]] Answer answer(const Request& request);

    /// Reads the files again, after one was saved. Where that fails, pages go on showing the old ones and say why.
    void reload();

  private:
    struct Scheme {
        clsNavSchemes navs;
        std::optional<GeneratedTree> tree;
    };
    [[nodiscard]] std::unique_ptr<Scheme> loaded() const;
    [[nodiscard]] const GeneratedTree& tree();
    [[nodiscard]] std::string pageOf(const TreeNode& node, const std::string& tab);

    [[nodiscard]] Answer frame();
    [[nodiscard]] Answer page(const Request& request);
    [[nodiscard]] Answer branch(const Request& request);
    [[nodiscard]] Answer findings();
    [[nodiscard]] Answer version() const;
    [[nodiscard]] Answer picture(std::string_view name) const;

    SiteSettings settings_;
    Database& database_;
    Pictures pictures_;
    std::unique_ptr<Scheme> scheme_;
    std::optional<Findings> findings_;  // once they were asked for
    std::string day_;                   // that the tree was made for
    std::string problem_;               // why the files could not be read again
    std::uint64_t version_ = 1;
};
