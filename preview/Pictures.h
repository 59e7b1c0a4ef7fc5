// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// The pictures that a page shows. The browser may fetch no others.

/// A picture is what begins like a GIF, PNG, JPEG, WebP, AVIF or BMP, whatever the name of its file.
class Pictures {
  public:
    static constexpr std::size_t mostBytes = std::size_t{10} << 20;  ///< of one picture
    static constexpr std::size_t mostPages = 16;                     ///< whose pictures are kept, two for each tab

    /// @param newName returns another name on each call that nobody can guess, fit for an address
    explicit Pictures(std::function<std::string()> newName) : newName_(std::move(newName)) {}

    /// From now on, pictures belong to a new page of this tab of the browser. Those of the page before are kept, as
    /// the browser may still ask for them; those of the pages before that are gone.
    void beginPage(std::string_view tab);

    /// A picture that was added to the page, or why there is none.
    struct Added {
        std::string name;     ///< under which `find` has it; empty if there is a problem
        std::string problem;  ///< as in "there is no such file"
    };
    [[nodiscard]] Added addBytes(std::string bytes);
    /// @param path the full path of a regular file that this user may read; links are followed
    [[nodiscard]] Added addFile(const std::string& path);

    struct Picture {
        std::string_view type;
        std::string bytes;
    };
    /// A picture of one of the pages. A file is read anew, and must still be a picture.
    [[nodiscard]] std::optional<Picture> find(std::string_view name) const;

  private:
    struct Path {
        std::string path;
    };
    using Source = std::variant<std::string, Path>;
    struct Page {
        std::string tab;
        std::map<std::string, Source, std::less<>> sources;
    };
    Added add(Source source);

    std::function<std::string()> newName_;
    std::list<Page> pages_;  // the newest first
};
