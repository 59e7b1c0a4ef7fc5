// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "model/clsNavSchemes.h"

// What the tests of this folder share: records in one line, schemes printed as text, a folder that cleans up
// after itself, and views that write down what they are asked to show.

using Rows = std::vector<std::string>;

// --- records and how they print ---

inline std::shared_ptr<clsNavScheme> makeNode(std::int32_t id, std::int32_t parent, const Text& type = "F",
                                              const Text& description = {}, const Text& query = {},
                                              const Text& parm = {}, const Text& icon = {}, const Text& role = {}) {
    auto node = std::make_shared<clsNavScheme>();
    node->ID = id;
    node->parentIs = parent;
    node->descriptionIs = description;
    node->setTypeIs(type);
    node->setQueryIs(query);
    node->setParmIs(parm);
    node->iconIs = icon;
    node->roleIs = role;
    return node;
}

inline std::shared_ptr<clsWebScheme> makeParagraph(std::int32_t id, std::int32_t node, std::int32_t seqNo = 0,
                                                   const Text& title = {}) {
    auto paragraph = std::make_shared<clsWebScheme>();
    paragraph->ID = id;
    paragraph->XST1 = node;
    paragraph->seqNo = seqNo;
    paragraph->titleIs = title;
    return paragraph;
}

/// A paragraph with another value in every field, those of the renumbering included.
inline std::shared_ptr<clsWebScheme> makeFullParagraph(std::int32_t id, const Text& type) {
    auto paragraph = makeParagraph(id, 4, 6, "Orders");
    paragraph->queryIs = "spW_Orders";
    paragraph->parmIs = "Lkey";
    paragraph->typeIs = type;
    paragraph->formIs = 8;
    paragraph->colsAre = "2:3";
    paragraph->extra = "more";
    paragraph->tXST1 = 5;
    paragraph->status = "O";
    return paragraph;
}

inline std::string operator+(const std::string& a, const Text& b) {
    return a + std::string(b.view());
}

/// ID|description|type|parent|query|parameter|icon|role
inline std::string rowOf(const clsNavScheme& node) {
    return std::to_string(node.ID) + "|" + node.descriptionIs + "|" + node.typeIs() + "|" +
           std::to_string(node.parentIs) + "|" + node.queryIs() + "|" + node.parmIs() + "|" + node.iconIs + "|" +
           node.roleIs;
}

/// ID|node|sequence number|title|query|parameter|type|form|columns|extra
inline std::string rowOf(const clsWebScheme& paragraph) {
    return std::to_string(paragraph.ID) + "|" + std::to_string(paragraph.XST1) + "|" +
           std::to_string(paragraph.seqNo) + "|" + paragraph.titleIs + "|" + paragraph.queryIs + "|" +
           paragraph.parmIs + "|" + paragraph.typeIs + "|" + std::to_string(paragraph.formIs) + "|" +
           paragraph.colsAre + "|" + paragraph.extra;
}

template <class Scheme>
Rows rowsOf(const Scheme& scheme) {
    Rows rows;
    for (const auto& record : scheme.NewEnum()) rows.push_back(rowOf(*record));
    return rows;
}

/// The IDs in collection order: "1 5 3".
template <class Scheme>
std::string idsOf(const Scheme& scheme) {
    std::string ids;
    for (const auto& record : scheme.NewEnum()) ids += (ids.empty() ? "" : " ") + std::to_string(record->ID);
    return ids;
}

/// ID<parent of each node in collection order: "1<0 2<1".
inline std::string linksOf(const clsNavSchemes& navs) {
    std::string links;
    for (const auto& node : navs.NewEnum())
        links += (links.empty() ? "" : " ") + std::to_string(node->ID) + "<" + std::to_string(node->parentIs);
    return links;
}

/// ID>node of each paragraph in collection order, and its status: "1>4C 2>0O".
inline std::string nodesOf(const clsWebSchemes& webs) {
    std::string nodes;
    for (const auto& paragraph : webs.NewEnum())
        nodes += (nodes.empty() ? "" : " ") + std::to_string(paragraph->ID) + ">" + std::to_string(paragraph->XST1) +
                 paragraph->status;
    return nodes;
}

/// Adds nodes without texts, given as ID and parent.
inline void addNodes(clsNavSchemes& navs, std::initializer_list<std::pair<std::int32_t, std::int32_t>> nodes) {
    for (const auto& [id, parent] : nodes) navs.Add(makeNode(id, parent));
}

/// Adds paragraphs given as ID and node.
inline void addParagraphs(clsWebSchemes& webs,
                          std::initializer_list<std::pair<std::int32_t, std::int32_t>> paragraphs) {
    for (const auto& [id, node] : paragraphs) webs.Add(makeParagraph(id, node));
}

/// The bytes 00 to FF in order, but for those in `left`.
inline std::string allBytesBut(std::string_view left) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (left.find(static_cast<char>(byte)) == std::string_view::npos) bytes += static_cast<char>(byte);
    return bytes;
}

// --- files ---

/// Where the tests put their folders: in memory where the system has room there, since saving waits for the disk.
inline std::filesystem::path placeForFolders() {
#ifdef _WIN32
    return std::filesystem::temp_directory_path();
#endif
    const std::filesystem::path memory = "/dev/shm";
    std::error_code error;
    const auto space = std::filesystem::space(memory, error);
    constexpr std::uintmax_t enough = std::uintmax_t{512} << 20;
    return !error && space.available > enough ? memory : std::filesystem::temp_directory_path();
}

/// A new folder that is removed with all that is in it.
class TempFolder {
  public:
    explicit TempFolder(const std::filesystem::path& place = placeForFolders()) {
        std::random_device random;
        do path_ = place / ("wizard-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    /// The names in the folder, sorted.
    [[nodiscard]] Rows names() const {
        Rows names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

  private:
    std::filesystem::path path_;
};

inline std::filesystem::path writeBytes(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    EXPECT_TRUE(out.good()) << "the test could not write " << file;
    return file;
}

inline std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << "the test could not read " << file;
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return std::move(bytes).str();
}

/// The lines of a file, each with its end.
inline std::string lines(std::initializer_list<std::string_view> texts) {
    std::string bytes;
    for (const auto text : texts) bytes += std::string(text) + "\r\n";
    return bytes;
}

/// Loads these bytes as a file.
template <class Scheme>
void loadBytes(Scheme& scheme, std::string_view bytes) {
    const TempFolder folder;
    EXPECT_TRUE(scheme.LoadData(writeBytes(folder / "in.txt", bytes)));
}

/// The bytes that the scheme saves.
template <class Scheme>
std::string savedBytes(const Scheme& scheme) {
    const TempFolder folder;
    EXPECT_TRUE(scheme.SaveData(folder / "out.txt"));
    return bytesOf(folder / "out.txt");
}

// --- the screen ---

using Calls = std::vector<std::string>;

class FakeTree final : public NavTreeView {
  public:
    explicit FakeTree(Calls& calls) : calls_(calls) {}
    void Fill(const clsNavSchemes& scheme) override {
        calls_.push_back("tree " + linksOf(scheme) + (scheme.mLastN.empty() ? "" : " at " + scheme.mLastN));
        if (whenAsked) whenAsked();
    }
    [[nodiscard]] std::string SelectedKey() const override { return selected; }
    void Expand(std::string_view key) override {
        calls_.push_back("expand " + std::string(key));
        if (whenAsked) whenAsked();
    }

    std::string selected;
    std::function<void()> whenAsked;  // to look at the scheme in the middle of an operation

  private:
    Calls& calls_;
};

class FakeNavGrid final : public NavGridView {
  public:
    explicit FakeNavGrid(Calls& calls) : calls_(calls) {}
    void Fill(const clsNavSchemes& scheme) override { calls_.push_back("grid " + linksOf(scheme)); }

  private:
    Calls& calls_;
};

class FakeWebGrid final : public WebGridView {
  public:
    explicit FakeWebGrid(Calls& calls) : calls_(calls) {}
    void Place(Twips left, Twips top, Twips width, Twips height) override {
        calls_.push_back("place " + std::to_string(left) + " " + std::to_string(top) + " " + std::to_string(width) +
                         " " + std::to_string(height));
    }
    void Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) override {
        std::string shown;
        for (const auto& paragraph : paragraphs)
            if (paragraph) shown += " " + std::to_string(paragraph->ID) + ">" + std::to_string(paragraph->XST1);
        calls_.push_back("paragraphs" + shown);
        if (whenAsked) whenAsked();
    }
    [[nodiscard]] std::string CurrentText(int column) const override {
        return column == 0 ? current.first : column == 1 ? current.second : "another column";
    }

    std::pair<std::string, std::string> current = {"ID ", "XST1"};  // the header row
    std::function<void()> whenAsked;

  private:
    Calls& calls_;
};

class FakeWindow final : public NavWindow {
  public:
    FakeWindow(Calls& calls, NavTreeView& tree, WebGridView& web) : calls_(calls), tree_(tree), web_(web) {}
    void Maximize() override { calls_.emplace_back("maximize"); }
    NavTreeView& CreateTree() override {
        calls_.emplace_back("create tree");
        return tree_;
    }
    void LayOut(clsWebSchemes& webs) override {
        calls_.emplace_back("lay out");
        webs.SetGrid(web_, 40, 300, 5000, 2000);
    }

  private:
    Calls& calls_;
    NavTreeView& tree_;
    WebGridView& web_;
};

/// A window with all views, which writes every call into `calls`. Declare it before the scheme.
struct Screen {
    Calls calls;
    FakeTree tree{calls};
    FakeNavGrid grid{calls};
    FakeWebGrid web{calls};
    FakeWindow window{calls, tree, web};

    void show(clsNavSchemes& navs) {
        navs.SetGrid(grid);
        navs.SetTreeview(window);
        calls.clear();
    }
    /// The calls since the last time.
    [[nodiscard]] Calls taken() { return std::exchange(calls, {}); }
};
