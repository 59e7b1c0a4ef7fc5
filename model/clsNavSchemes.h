// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/FileReader.h"
#include "model/KeyedCollection.h"
#include "model/LargeArray.h"
#include "model/Screen.h"
#include "model/clsNavScheme.h"
#include "model/clsWebSchemes.h"

/// The navigational scheme: all nodes, keyed by the ID that they had when they were added or last filed, in the order
/// in which they were added; and, in `oWebs`, the web display scheme that belongs to it.
///
/// The scheme says when the tree and the grids are redrawn. Every view may be missing; all operations work without.
/// Failures are silent but for the rule messages of `FuseNav` and `FuseWeb`, which go through `inform`.
class clsNavSchemes {
  public:
    using Pointer = std::shared_ptr<clsNavScheme>;

    clsNavSchemes();
    clsNavSchemes(const clsNavSchemes&) = delete;  // the views call back
    clsNavSchemes& operator=(const clsNavSchemes&) = delete;

    clsWebSchemes oWebs;               ///< the web display scheme
    NavTreeView* cTreeView = nullptr;  ///< the tree, once `SetTreeview` has made it
    std::string mLastN;                ///< key of the tree node last clicked, "N12"; survives redraws and loading
    Inform inform;                     ///< shows the rule messages

    // Events. `skey` is a node's ID as text.
    std::function<void(std::string_view skey)> oInsert;      ///< Ins on the tree
    std::function<void(std::string_view skey)> oEdit;        ///< F2 on the tree
    std::function<void(std::string_view skey)> oDelete;      ///< Del on the tree
    std::function<void(std::string_view skey)> oNodeClick;   ///< a tree node was clicked
    std::function<void(std::string_view skey)> oRightClick;  ///< the right mouse button on the tree
    std::function<void(std::string_view skey, std::string_view pKey)>
        wRightClick;  ///< `oWebs.oRightClick`, passed on

    // --- the collection ---

    /// Adds a node under its ID; one whose key is taken is not added. @return whether it was added
    bool Add(Pointer oNavScheme);
    [[nodiscard]] std::int32_t Count() const { return nodes_.Count(); }
    /// The node filed under this number or text, never the one at that position; null when there is none, where
    /// `clsWebSchemes::Item` throws.
    [[nodiscard]] Pointer Item(std::int32_t key) const { return nodes_.Item(key); }
    [[nodiscard]] Pointer Item(std::string_view key) const { return nodes_.Item(key); }
    /// Removes the node filed under `key`; a missing one is ignored.
    void Remove(std::string_view key) { nodes_.RemoveKey(key); }
    /// Removes the node at `position`, counted from 1.
    void Remove(std::int32_t position) { nodes_.RemoveAt(position); }
    /// The nodes in collection order, for a for-each loop.
    [[nodiscard]] const KeyedCollection<clsNavScheme>& NewEnum() const { return nodes_; }

    // --- structure ---

    /// Starts over with one node, the root "Data Browser", and no paragraphs, and redraws everything.
    void NewScheme();
    /// Deletes the node `dKey` with all nodes below it and their paragraphs, and shows the paragraphs of `dKey` (now
    /// none) in the paragraph grid. The tree and the node grid are left to the caller. Where `FileAnew` left nodes
    /// without a key, because they shared their ID with a deleted one, the next of them is then found by it.
    void DelNode(std::string_view dKey);
    /// The largest ID as text; "0" when there is none above 0.
    [[nodiscard]] std::string MaxID() const;
    /// The number of nodes whose parent is `oNode`; stops at 32,767.
    [[nodiscard]] std::int16_t GetChildren(const clsNavScheme& oNode) const;
    /// Whether `oNode` is of type G and has a child of type F.
    [[nodiscard]] bool IsFType(const clsNavScheme& oNode) const;

    // --- the text files ---

    /// Writes the nodes that are reachable from the root, in tree order, in place of the file that was there.
    /// @return false when there is no node, or the file could not be written; the old file is then untouched
    [[nodiscard]] bool SaveData(const std::filesystem::path& vFile) const;
    /// Replaces the nodes by those of a text file, by none if it cannot be read, and redraws the tree.
    /// @return true, whatever could be read
    bool LoadData(const std::filesystem::path& vFile);
    /// Hands the lines that `SaveData` writes to `write`, each with its end.
    void WriteData(const std::function<void(std::string_view)>& write) const;
    /// `LoadData` from the bytes of a file.
    /// @throws std::bad_alloc; the scheme then holds some of the nodes, or all of them but is not drawn
    void LoadBytes(FileBytes content);
    /// `oWebs.LoadData`, then shows all paragraphs. @return always false: do not test it
    bool LoadWeb(const std::filesystem::path& oFile);
    /// `oWebs.SaveData`.
    [[nodiscard]] bool SaveWeb(const std::filesystem::path& vFile) const { return oWebs.SaveData(vFile); }

    // --- renumbering, cloning, fusing ---

    /// Numbers the reachable nodes 1, 2, 3 … in tree order and lets the paragraphs follow. The others take what their
    /// work fields hold, 0 at first, so that one before the root takes its place. Keys stay until `FileAnew`, or
    /// until the scheme is saved and loaded again. Redraws the tree and shows all paragraphs.
    /// @return false when there is no node
    /// @throws std::bad_alloc; the scheme is then as it was, unless only the redraw failed
    bool Renumber();
    /// Files every node under the ID that it has now, in the same order. Of nodes that share an ID one is found by
    /// it: the one that the tree shows, else the first. The others stay in the scheme, in its grid and its file.
    /// @throws std::bad_alloc, changing nothing
    void FileAnew();
    /// A copy of the node filed under `skey` that is not in the scheme; an empty one when there is none.
    [[nodiscard]] Pointer CloneNav(std::string_view skey) const;
    /// Stores a copy of a new or edited node if it obeys the rules; otherwise says why not. Draws nothing.
    /// @return whether it was stored
    [[nodiscard]] bool FuseNav(const Pointer& oFuse);
    /// Stores a copy of a new or edited paragraph, having emptied the fields that its type does not use; refuses one
    /// without a query, and says so. Draws nothing. @return whether it was stored
    [[nodiscard]] bool FuseWeb(const clsWebSchemes::Pointer& oFuse);

    // --- the views ---

    /// Keeps the grid of nodes. Call it before `SetTreeview`.
    void SetGrid(NavGridView& nGrid) { mGrid = &nGrid; }
    /// Maximizes the window, makes the tree on it and lays out its panels.
    void SetTreeview(NavWindow& vFrm);
    /// Redraws the tree, then the grid of nodes. An empty scheme clears the tree and leaves the grid as it is.
    void DispInTV();
    /// Redraws the grid of nodes.
    void DispInGrid();
    /// Shows all paragraphs.
    void DisplayFullWeb() { oWebs.DispInGrid(0); }
    /// Renumbers the paragraphs and shows the orphans.
    void DispOrphans() { oWebs.DispOrphans(*this); }

  private:
    void cTreeView_NodeClick();
    void cTreeView_KeyUp(int keyCode);
    void cTreeView_MouseUp(int button);
    void oWebs_oRightClick(std::string_view skey, std::string_view pKey);

    struct NewNumbers {
        std::int32_t id = 0, parent = 0;
    };
    [[nodiscard]] LargeArray<NewNumbers> newNumbers() const;

    KeyedCollection<clsNavScheme> nodes_;
    NavGridView* mGrid = nullptr;
    NavWindow* mFrm = nullptr;
};
