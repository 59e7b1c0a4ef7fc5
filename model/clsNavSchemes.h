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
/// The scheme says when the tree and the grids are redrawn. Any view may be missing; all operations work without it.
/// Failures are silent, except that `FuseNav` and `FuseWeb` pass their rule messages to `inform`.
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

    /// Adds a node under its ID, unless that key is taken. @return whether it was added
    bool Add(Pointer oNavScheme);
    [[nodiscard]] std::int32_t Count() const { return nodes_.Count(); }
    /// The node filed under this number or text, never the one at that position. Null if there is none
    /// (`clsWebSchemes::Item` throws instead).
    [[nodiscard]] Pointer Item(std::int32_t key) const { return nodes_.Item(key); }
    [[nodiscard]] Pointer Item(std::string_view key) const { return nodes_.Item(key); }
    /// Removes the node filed under `key`, if there is one.
    void Remove(std::string_view key) { nodes_.RemoveKey(key); }
    /// Removes the node at `position`, counted from 1.
    void Remove(std::int32_t position) { nodes_.RemoveAt(position); }
    /// The nodes in collection order, for a for-each loop.
    [[nodiscard]] const KeyedCollection<clsNavScheme>& NewEnum() const { return nodes_; }

    // --- structure ---

    /// Starts over with a single node, the root "Data Browser", and no paragraphs, and redraws everything.
    void NewScheme();
    /// Deletes the node `dKey`, all nodes below it and their paragraphs, and shows the paragraphs of `dKey` (now
    /// none) in the paragraph grid. The caller redraws the tree and the node grid. If `FileAnew` left nodes without a
    /// key because they shared their ID with a deleted one, the next of them gets that key.
    void DelNode(std::string_view dKey);
    /// The largest ID as text; "0" if there is none above 0.
    [[nodiscard]] std::string MaxID() const;
    /// The number of nodes whose parent is `oNode`; stops at 32,767.
    [[nodiscard]] std::int16_t GetChildren(const clsNavScheme& oNode) const;
    /// Whether `oNode` is of type G and has a child of type F.
    [[nodiscard]] bool IsFType(const clsNavScheme& oNode) const;

    // --- the text files ---

    /// Writes the nodes that can be reached from the root, in tree order, and replaces an old file.
    /// @return false if there is no node or the file could not be written; the old file is then untouched
    [[nodiscard]] bool SaveData(const std::filesystem::path& vFile) const;
    /// Replaces the nodes with those of a text file (with none if it cannot be read) and redraws the tree.
    /// @return always true
    bool LoadData(const std::filesystem::path& vFile);
    /// Passes the lines that `SaveData` writes to `write`, each with its line end.
    void WriteData(const std::function<void(std::string_view)>& write) const;
    /// `LoadData` from the bytes of a file.
    /// @throws std::bad_alloc; the scheme then has some of the nodes, or has all of them but is not drawn
    void LoadBytes(FileBytes content);
    /// `oWebs.LoadData`, then shows all paragraphs. @return always false: do not test it
    bool LoadWeb(const std::filesystem::path& oFile);
    /// `oWebs.SaveData`.
    [[nodiscard]] bool SaveWeb(const std::filesystem::path& vFile) const { return oWebs.SaveData(vFile); }

    // --- renumbering, cloning, fusing ---

    /// Numbers the nodes that can be reached from the root 1, 2, 3 … in tree order; the paragraphs follow. The other
    /// nodes take their ID and parent from `tID` and `tParentIs`; both are 0 at first, so such a node becomes the
    /// root if it comes before the old one. Keys stay until `FileAnew`, or until the scheme is saved and loaded
    /// again. Redraws the tree and shows all paragraphs.
    /// @return false if there is no node
    /// @throws std::bad_alloc; the scheme is then unchanged, unless only the redraw failed
    bool Renumber();
    /// Files every node under its current ID; the order stays. Of the nodes that share an ID, one gets the key: the
    /// one that the tree shows, else the first. The others stay in the scheme, its grid and its file.
    /// @throws std::bad_alloc, changing nothing
    void FileAnew();
    /// A copy, not in the scheme, of the node filed under `skey`; an empty node if there is none.
    [[nodiscard]] Pointer CloneNav(std::string_view skey) const;
    /// Stores a copy of a new or edited node if it obeys the rules; otherwise shows a message. Draws nothing.
    /// @return whether it was stored
    [[nodiscard]] bool FuseNav(const Pointer& oFuse);
    /// Stores a copy of a new or edited paragraph and empties the fields that its type does not use. Without a query
    /// it is not stored, and a message says so. Draws nothing. @return whether it was stored
    [[nodiscard]] bool FuseWeb(const clsWebSchemes::Pointer& oFuse);

    // --- the views ---

    /// Sets the grid of nodes. Call this before `SetTreeview`.
    void SetGrid(NavGridView& nGrid) { mGrid = &nGrid; }
    /// Maximizes the window, creates the tree in it and lays out its panels.
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
