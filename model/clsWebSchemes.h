// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "model/FileReader.h"
#include "model/GroupIndex.h"
#include "model/KeyedCollection.h"
#include "model/NodeMoves.h"
#include "model/Screen.h"
#include "model/clsWebScheme.h"

/// The web display scheme: all report paragraphs, keyed by their ID, in the order in which they were added.
///
/// Only the scheme changes its paragraphs: `CloneWeb` returns a copy to edit, and `Update` takes it back. Nothing
/// here shows a message, and failures are silent except in `Item`.
class clsWebSchemes {
  public:
    using Pointer = std::shared_ptr<clsWebScheme>;

    // --- the collection ---

    /// Adds a paragraph under its ID, unless that key is taken. From then on only the scheme may change it.
    /// @return whether it was added
    bool Add(Pointer oWebScheme);
    /// The paragraph filed under this number or text, never the one at that position.
    /// @throws std::out_of_range if there is none (`clsNavSchemes::Item` returns null instead); check with `HasKey`
    [[nodiscard]] std::shared_ptr<const clsWebScheme> Item(std::int32_t key) const;
    [[nodiscard]] std::shared_ptr<const clsWebScheme> Item(std::string_view key) const;
    [[nodiscard]] std::int32_t Count() const { return paragraphs_.Count(); }
    /// Removes the paragraph filed under `key`, if there is one.
    void Remove(std::string_view key);
    /// Removes the paragraph at `position`, counted from 1.
    void Remove(std::int32_t position);
    /// The paragraphs in collection order, for a for-each loop.
    [[nodiscard]] ReadOnlyRecords<clsWebScheme> NewEnum() const { return ReadOnlyRecords(paragraphs_); }

    /// The largest ID as text; "0" if there is none above 0.
    [[nodiscard]] std::string MaxID() const;
    /// The largest sequence number among the paragraphs of the node with key `pKey`, as text; "0" if none is above 0.
    [[nodiscard]] std::string MaxSeqNo(std::string_view pKey) const;

    void NewScheme() { ClearAll(); }
    void ClearAll();
    /// Removes all paragraphs of the node with key `dKey` and shows that node's paragraphs (now none) in the grid.
    void DelTreeNode(std::string_view dKey);
    /// Removes the paragraphs of several nodes in one pass. Draws nothing.
    void DropParagraphsOf(const KeyIndex& nodes);

    /// A copy, not in the scheme, of the paragraph filed under `skey`; a blank one if there is none. The fields that
    /// renumbering uses are not copied.
    [[nodiscard]] Pointer CloneWeb(std::string_view skey) const;
    /// Stores the fields of `from`, except `extra` and those that renumbering uses, in the paragraph filed under its
    /// ID. @return false if there is none
    [[nodiscard]] bool Update(const clsWebScheme& from);
    /// Whether a paragraph is filed under this text.
    [[nodiscard]] bool HasKey(std::string_view key) const;
    /// Whether any paragraph currently has this ID.
    [[nodiscard]] bool HasID(std::int32_t id) const;

    // --- the text file ---

    /// Writes all paragraphs, in collection order, to a text file and replaces an old one.
    /// @return false if there is no paragraph or the file could not be written; the old file is then untouched
    [[nodiscard]] bool SaveData(const std::filesystem::path& vFile) const;
    /// Replaces the paragraphs with those of a text file (with none if it cannot be read). Draws nothing.
    /// @return always true
    bool LoadData(const std::filesystem::path& vFile);
    /// Passes the lines that `SaveData` writes to `write`, each with its line end.
    void WriteData(const std::function<void(std::string_view)>& write) const;
    /// `LoadData` from the bytes of a file.
    /// @throws std::bad_alloc; the scheme then has some of the paragraphs
    void LoadBytes(FileBytes content);

    // --- renumbering ---

    /// Makes every paragraph follow its node from the node's former ID (`tID`, or the ID if that is 0) to its current
    /// one, marks the paragraph "C" (connected) or "O" (orphan), and sets each node's `tID` to its current ID. Of
    /// nodes with the same former ID, the last one counts. The `XST1` of an orphan becomes what an earlier call gave
    /// it, or 0.
    /// @throws std::bad_alloc, changing nothing
    void Renumber(clsNavSchemes& oNC);
    /// The first half of `Renumber`: which ID each node had at the last renumbering and has now. Changes nothing.
    [[nodiscard]] static NodeMoves MovesOf(const clsNavSchemes& oNC);
    /// The second half of `Renumber`. Needs no memory.
    void Renumber(clsNavSchemes& oNC, const NodeMoves& moves);
    /// Only the part of `Renumber` that changes paragraphs: each follows its node. Needs no memory.
    void Follow(const NodeMoves& moves);

    // --- the grid ---

    /// Sets the grid and places it within its frame; all values in twips.
    void SetGrid(WebGridView& nGrid, Twips dL, Twips dT, Twips dW, Twips dH);
    /// Shows the paragraphs of node `pXST1`; 0 shows all paragraphs.
    void DispInGrid(std::int32_t pXST1);
    /// Renumbers, then shows the orphans.
    void DispOrphans(clsNavSchemes& oNC);
    /// Shows again what was shown last, or tries again if it could not be shown.
    void DispAgain();

    /// A right click on the grid. The arguments are the ID and the node ID in the current row, as shown ("ID " and
    /// "XST1" if that is the header row).
    std::function<void(std::string_view skey, std::string_view pKey)> oRightClick;

  private:
    void mGrid_MouseUp(int button);
    const GroupIndex& paragraphsByNode();
    void showOrphans();

    KeyedCollection<clsWebScheme> paragraphs_;
    std::optional<GroupIndex> byNode_;  // made when a node is shown, dropped on every change
    WebGridView* mGrid = nullptr;
    std::optional<std::int32_t> shown_ = 0;  // the node, 0 for all, nothing for the orphans
    const Text connected_{"C"};              // the values of `status`, made ahead so that using them needs no memory
    const Text orphan_{"O"};
};
