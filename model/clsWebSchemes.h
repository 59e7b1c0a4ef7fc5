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
/// Paragraphs in the scheme are changed by the scheme alone; `CloneWeb` gives a copy to edit and `Update` takes it
/// back. Nothing here shows a message, and, but for `Item`, failures are silent.
class clsWebSchemes {
  public:
    using Pointer = std::shared_ptr<clsWebScheme>;

    // --- the collection ---

    /// Adds a paragraph under its ID; one whose ID is taken is not added. From here on the scheme alone changes it.
    /// @return whether it was added
    bool Add(Pointer oWebScheme);
    /// The paragraph filed under this number or text, never the one at that position.
    /// @throws std::out_of_range when there is none, where `clsNavSchemes::Item` is null; `HasKey` asks before
    [[nodiscard]] std::shared_ptr<const clsWebScheme> Item(std::int32_t key) const;
    [[nodiscard]] std::shared_ptr<const clsWebScheme> Item(std::string_view key) const;
    [[nodiscard]] std::int32_t Count() const { return paragraphs_.Count(); }
    /// Removes the paragraph filed under the key `key`; a missing one is ignored.
    void Remove(std::string_view key);
    /// Removes the paragraph at `position`, counted from 1.
    void Remove(std::int32_t position);
    /// The paragraphs in collection order, for a for-each loop.
    [[nodiscard]] ReadOnlyRecords<clsWebScheme> NewEnum() const { return ReadOnlyRecords(paragraphs_); }

    /// The largest ID as text; "0" when there is none above 0.
    [[nodiscard]] std::string MaxID() const;
    /// The largest sequence number among the paragraphs of the node with key `pKey`, as text; "0" when none is above.
    [[nodiscard]] std::string MaxSeqNo(std::string_view pKey) const;

    void NewScheme() { ClearAll(); }
    void ClearAll();
    /// Removes all paragraphs of the node with key `dKey` and shows that node in the grid.
    void DelTreeNode(std::string_view dKey);
    /// The same for several nodes in one pass, showing none of them.
    void DropParagraphsOf(const KeyIndex& nodes);

    /// A copy of the paragraph filed under `skey` that is not in the scheme; a blank one when there is none. The
    /// fields of the renumbering are not copied.
    [[nodiscard]] Pointer CloneWeb(std::string_view skey) const;
    /// Stores the fields of `from`, but for `extra` and those of the renumbering, in the paragraph filed under its
    /// ID. @return false when there is none
    [[nodiscard]] bool Update(const clsWebScheme& from);
    /// Whether a paragraph is filed under this text.
    [[nodiscard]] bool HasKey(std::string_view key) const;
    /// Whether some paragraph has this ID now.
    [[nodiscard]] bool HasID(std::int32_t id) const;

    // --- the text file ---

    /// Writes all paragraphs, in collection order, to a text file in place of the file that was there.
    /// @return false when there is no paragraph, or the file could not be written; the old file is then untouched
    [[nodiscard]] bool SaveData(const std::filesystem::path& vFile) const;
    /// Replaces the paragraphs by those of a text file, by none if it cannot be read. Draws nothing.
    /// @return true, whatever could be read
    bool LoadData(const std::filesystem::path& vFile);
    /// Hands the lines that `SaveData` writes to `write`, each with its end.
    void WriteData(const std::function<void(std::string_view)>& write) const;
    /// `LoadData` from the bytes of a file.
    /// @throws std::bad_alloc; the scheme then holds some of the paragraphs
    void LoadBytes(FileBytes content);

    // --- renumbering ---

    /// Lets every paragraph follow its node from the node's former ID (`tID`, or the ID if that is 0) to the ID that
    /// it has now, marks it "C" (connected) or "O" (orphan), and makes the current ID each node's `tID`. Of nodes
    /// with the same former ID the last one counts. An orphan's `XST1` becomes what an earlier call gave it, or 0.
    /// @throws std::bad_alloc, changing nothing
    void Renumber(clsNavSchemes& oNC);
    /// The first half of it: where each node has gone since the last renumbering. Changes nothing.
    [[nodiscard]] static NodeMoves MovesOf(const clsNavSchemes& oNC);
    /// The second half of it. Needs no memory.
    void Renumber(clsNavSchemes& oNC, const NodeMoves& moves);
    /// What that does to the paragraphs: each follows its node. Needs no memory.
    void Follow(const NodeMoves& moves);

    // --- the grid ---

    /// Keeps the grid and puts it in its place, in twips within its frame.
    void SetGrid(WebGridView& nGrid, Twips dL, Twips dT, Twips dW, Twips dH);
    /// Shows the paragraphs of node `pXST1`, all paragraphs for 0.
    void DispInGrid(std::int32_t pXST1);
    /// Renumbers, then shows the orphans.
    void DispOrphans(clsNavSchemes& oNC);
    /// Shows once more what was to be shown last.
    void DispAgain();

    /// A right click on the grid: the ID and the node ID in the current row, as shown ("ID " and "XST1" if that is
    /// the header row).
    std::function<void(std::string_view skey, std::string_view pKey)> oRightClick;

  private:
    void mGrid_MouseUp(int button);
    const GroupIndex& paragraphsByNode();
    void showOrphans();

    KeyedCollection<clsWebScheme> paragraphs_;
    std::optional<GroupIndex> byNode_;  // made when a node is shown, dropped by every change
    WebGridView* mGrid = nullptr;
    std::optional<std::int32_t> shown_ = 0;  // the node, 0 for all, nothing for the orphans
    const Text connected_{"C"};              // the values of `status`, made before there is no memory for them
    const Text orphan_{"O"};
};
