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

/// Length on the screen in twips, 1/1440 inch.
using Twips = std::int32_t;

/// Shows one of the rule messages to the user and returns when it has been read. The text may hold line breaks.
using Inform = std::function<void(std::string_view)>;

// Key and button codes that the screen reports.
inline constexpr int keyInsert = 45;
inline constexpr int keyDelete = 46;
inline constexpr int keyF2 = 113;
inline constexpr int buttonRight = 2;

// What the schemes know of the screen. The schemes say when something is shown, the implementations say what it
// looks like. One call is one redraw; none of the calls raises an event. The schemes hold references: a view must
// outlive the scheme that it was given to. A view without the memory for what it is to show throws std::bad_alloc and
// shows nothing; the schemes pass that on as `NotDrawn`.

/// A redraw lacked memory. The schemes are complete: what led to the redraw has been done.
struct NotDrawn final : std::bad_alloc {
    [[nodiscard]] const char* what() const noexcept override { return "no memory for a redraw"; }
};

/// Runs the step of a scheme that draws.
template <class Step>
void draw(Step step) try {
    step();
} catch (const std::bad_alloc&) {
    throw NotDrawn();
}

/// The navigation tree. Its nodes have the keys "N" and the ID.
class NavTreeView {
  public:
    virtual ~NavTreeView() = default;
    /// Redraws the tree from the scheme: the root open, all else closed, and the node `mLastN`, if there is one,
    /// selected and scrolled into view.
    virtual void Fill(const clsNavSchemes& scheme) = 0;
    /// The key of the selected node, empty when none is selected.
    [[nodiscard]] virtual std::string SelectedKey() const = 0;
    /// Opens the node with that key, if there is one.
    virtual void Expand(std::string_view key) = 0;

    // What the user does, for the scheme to listen to.
    std::function<void()> NodeClick;          ///< a node was clicked; it is the selected one
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
    /// Shows these paragraphs, passing over null pointers; the header row becomes the current row.
    virtual void Fill(std::span<const std::shared_ptr<clsWebScheme>> paragraphs) = 0;
    /// The text of a cell of the current row, which may be the header row.
    [[nodiscard]] virtual std::string CurrentText(int column) const = 0;

    std::function<void(int button)> MouseUp;  ///< a mouse button was released on the grid
};

/// The window that the tree lives on.
class NavWindow {
  public:
    virtual ~NavWindow() = default;
    virtual void Maximize() = 0;
    /// Makes the tree with its pictures.
    virtual NavTreeView& CreateTree() = 0;
    /// Places the tree and the panels, and hands the paragraph grid to `webs` with its place.
    virtual void LayOut(clsWebSchemes& webs) = 0;
};
