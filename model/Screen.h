// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <string_view>

class clsNavSchemes;
class clsWebScheme;
class clsWebSchemes;

/// A length on the screen in twips (1/1440 inch).
using Twips = std::int32_t;

/// Shows one of the rule messages to the user and returns when the user closes it. The text may contain line breaks.
using Inform = std::function<void(std::string_view)>;

// Key and button codes that the screen reports.
inline constexpr int keyInsert = 45;
inline constexpr int keyDelete = 46;
inline constexpr int keyF2 = 113;
inline constexpr int buttonRight = 2;

// What the schemes know about the screen. The schemes say when something is shown, the implementations what it looks
// like. One call is one redraw; no call raises an event. The schemes keep pointers to the views: a view must outlive
// the scheme that it was given to. A view that lacks the memory for what it should show throws std::bad_alloc and
// shows nothing; the schemes pass that on as `NotDrawn`.

/// A redraw ran out of memory. The schemes are consistent: the change that led to the redraw is complete.
struct NotDrawn final : std::bad_alloc {};

/// Runs a step of a scheme that draws, and throws `NotDrawn` if it runs out of memory.
template <class Step>
void draw(Step step) try {
    step();
} catch (const std::bad_alloc&) {
    throw NotDrawn();
}

/// The navigation tree. The key of a node is "N" and its ID: "N12".
class NavTreeView {
  public:
    virtual ~NavTreeView() = default;
    /// Redraws the tree from the scheme: the root is open, everything else closed, and the node `mLastN`, if there is
    /// one, is selected and scrolled into view.
    virtual void Fill(const clsNavSchemes& scheme) = 0;
    /// The key of the selected node; empty if none is selected.
    [[nodiscard]] virtual std::string SelectedKey() const = 0;
    /// Opens the node with that key, if there is one.
    virtual void Expand(std::string_view key) = 0;

    // What the user does. The scheme sets these.
    std::function<void()> NodeClick;          ///< a node was clicked; it is now selected
    std::function<void(int keyCode)> KeyUp;   ///< a key was released on the tree
    std::function<void(int button)> MouseUp;  ///< a mouse button was released on the tree
};

/// The grid of all nodes.
class NavGridView {
  public:
    virtual ~NavGridView() = default;
    virtual void Fill(const clsNavSchemes& scheme) = 0;
};

/// The grid of paragraphs.
class WebGridView {
  public:
    virtual ~WebGridView() = default;
    /// Puts the grid at a place in its frame.
    virtual void Place(Twips left, Twips top, Twips width, Twips height) = 0;
    /// Shows these paragraphs and skips null pointers; the header row becomes the current row.
    virtual void Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) = 0;
    /// The text of a cell of the current row, which may be the header row.
    [[nodiscard]] virtual std::string CurrentText(int column) const = 0;

    std::function<void(int button)> MouseUp;  ///< a mouse button was released on the grid
};

/// The window that contains the tree.
class NavWindow {
  public:
    virtual ~NavWindow() = default;
    virtual void Maximize() = 0;
    /// Creates the tree with its pictures.
    virtual NavTreeView& CreateTree() = 0;
    /// Places the tree and the panels, and hands the paragraph grid to `webs` with its place.
    virtual void LayOut(clsWebSchemes& webs) = 0;
};
