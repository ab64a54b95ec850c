#pragma once
// The small queries that all operations on the tree of pages rest on.

#include "platform/dao/database.h"
#include "platform/ui/ui.h"

#include <string>
#include <string_view>

namespace mrd::pagetree {

/// Where a moved page goes, seen from the target.
enum class MoveOption : int { Before = 0, Behind = 1, Under = 2 };

/// What a drag in the tree, or a move at the command line, is about.
struct MoveRequest {
  std::string MoveSourceID, MoveTargetID;
  mrd::pagetree::MoveOption MoveOption = mrd::pagetree::MoveOption::Before;
};

/// Answer of CheckChildren for a page without children.
inline constexpr std::string_view kNoChildren = "^None";

class TreeQueries {
public:
  TreeQueries(dao::Database& db, ui::Ui& ui) : db_(db), ui_(ui) {}

  /// Page type of the first page below `id`, or kNoChildren.
  std::string CheckChildren(std::string_view id);
  /// Number of children; with the flag false of all pages in the subtree, `id` included.
  int ChildrenCount(std::string_view id, bool NurDirekteKinder);
  /// Length of the longest id in the subtree, `id` included; 0 without a page.
  int ChildrenLen(std::string_view id);

  /// Entries that the target level would hold after the move; 99 may not be exceeded. Mixes sizes of subtrees with numbers of
  /// children: it errs towards refusing. 0 when the query failed, which is shown.
  int PrüfeMaxAnzahlEinträge(const MoveRequest& move);
  /// Depth in levels that the moved subtree would reach; below 5 is allowed. 0 when the query failed, which is shown.
  int PrüfeÜberschreitungDerEbenen(const MoveRequest& move);

private:
  dao::Database& db_;
  ui::Ui& ui_;
};

} // namespace mrd::pagetree
