// SPDX-License-Identifier: MIT
#include "preview/Site.h"

#include <algorithm>

#include "preview/Tree.h"

namespace {

constexpr std::string_view pictureFolder = "/picture/";

struct Asset {
    std::string_view path, name, type;
};
constexpr Asset assets[] = {
    {"/preview.css", "preview.css", "text/css; charset=utf-8"},
    {"/preview.js", "preview.js", "text/javascript; charset=utf-8"},
    {"/icon.svg", "icon.svg", "image/svg+xml"},
};

Answer noSuchAddress() {
    return plainAnswer(404, "The preview has no such address.");
}

Answer noSuchNode() {
    return plainAnswer(404, "This node is no longer in the scheme.");
}

// For the page of the root.
void addUnreached(Html& html, std::size_t count) {
    if (count > 0)
        html << "<p class=error>" << Escaped(std::to_string(count) + (count == 1 ? " node" : " nodes"))
             << " of the file cannot be reached from the root: pelmo-scheme check says why.</p>";
}

}  // namespace

Site::Site(SiteSettings settings, Database& database)
    : settings_(std::move(settings)), database_(database), pictures_(settings_.newName), scheme_(loaded()) {
}

std::unique_ptr<Site::Scheme> Site::loaded() const {
    auto scheme = std::make_unique<Scheme>();
    settings_.load(scheme->navs);
    return scheme;
}

void Site::reload() {
    try {
        scheme_ = loaded();
        problem_.clear();
        findings_.reset();
    } catch (const std::runtime_error& error) {
        problem_ = error.what();
    }
    ++version_;
}

// Made anew after midnight, too: its queries may get the day.
const GeneratedTree& Site::tree() {
    const auto day = settings_.today();
    if (!scheme_->tree || day_ != day) scheme_->tree.emplace(scheme_->navs, day);
    day_ = day;
    return *scheme_->tree;
}

Answer Site::answer(const Request& request) {
    const std::string_view path = request.path;
    if (request.method == "POST") {
        if (path == "/page") return page(request);
        if (path == "/branch") return branch(request);
        return noSuchAddress();
    }
    if (path == "/") return frame();
    if (path == "/findings/anew") findings_.reset();
    if (path == "/findings" || path == "/findings/anew") return findings();
    if (path == "/version") return version();
    if (path.starts_with(pictureFolder)) return picture(path.substr(pictureFolder.size()));
    const auto* const asset = std::ranges::find(assets, path, &Asset::path);
    if (asset == std::end(assets)) return noSuchAddress();
    return {.type = std::string(asset->type), .body = settings_.asset(asset->name)};
}

std::string Site::pageOf(const TreeNode& node, const std::string& tab) {
    pictures_.beginPage(tab);
    const PageSettings settings{settings_.limits, settings_.runsAllActions, settings_.today()};
    Html html;
    if (!problem_.empty())
        html << "<p class=error>" << Escaped(problem_) << ". What is shown is what was read before.</p>";
    if (node.node == tree().root().node) addUnreached(html, tree().unreachedNodes());
    auto page = makePage(scheme_->navs, node, database_, settings);
    if (findings_) findings_->addTo(page);
    html << shownPage(page, pictures_);
    return html.text();
}

// The first page has all but the branches of the tree, so that it takes one request. Whoever loads it again may have
// changed the queries of the database.
Answer Site::frame() {
    findings_.reset();
    const auto root = tree().root();
    Html html;
    html << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<meta name=\"color-scheme\" content=\"light dark\">\n<title>"
         << Escaped(root.clicked.text)
         << " \u2013 preview</title>\n<link rel=\"icon\" href=\"icon.svg\">\n"
            "<link rel=\"stylesheet\" href=\"preview.css\">\n<script src=\"preview.js\" defer></script>\n</head>\n"
            "<body>\n<a class=\"skip\" href=\"#page\">Skip to the page</a>\n<header><p>Preview of <b>"
         << Escaped(settings_.files) << "</b> with <b>" << Escaped(database_.name())
         << "</b></p><p id=\"status\" role=\"status\"></p></header>\n<nav aria-label=\"Tree\">"
            "<ul id=\"tree\" role=\"tree\" aria-label=\"Nodes\" data-version=\""
         << Escaped(std::to_string(version_)) << "\" data-root=\"" << Escaped(nodeAsJson(root, tree()))
         << "\"></ul></nav>\n<main id=\"page\" tabindex=\"-1\">";
    auto page = html.text() + pageOf(root, {}) + "</main>\n</body>\n</html>\n";
    return {.body = std::move(page)};
}

Answer Site::page(const Request& request) {
    const auto asked = askedNode(request.body, scheme_->navs);
    if (!asked) return noSuchNode();
    return {.body = pageOf(asked->node, asked->tab)};
}

Answer Site::branch(const Request& request) {
    const auto asked = askedNode(request.body, scheme_->navs);
    if (!asked) return noSuchNode();
    TreeBranch found;
    try {
        auto limits = settings_.limits;
        limits.rows = settings_.mostChildren;
        found = tree().below(asked->node, database_, limits);
    } catch (const DatabaseError& error) {
        found.error = error.what();
    }
    return {.type = "application/json", .body = branchAsJson(found, tree())};
}

// Takes longer than a page, so the browser asks for it when it has shown one.
Answer Site::findings() {
    if (!findings_) try {
            findings_.emplace(settings_.verify(scheme_->navs), scheme_->navs);
        } catch (const DatabaseError&) {
            return {.type = "application/json", .body = Findings().asJson(scheme_->navs)};  // as the pages say
        }
    return {.type = "application/json", .body = findings_->asJson(scheme_->navs)};
}

Answer Site::version() const {
    return {.type = "application/json", .body = std::to_string(version_)};
}

Answer Site::picture(std::string_view name) const {
    auto found = pictures_.find(name);
    if (!found) return plainAnswer(404, "There is no such picture on the page.");
    return {.type = std::string(found->type), .body = std::move(found->bytes)};
}
