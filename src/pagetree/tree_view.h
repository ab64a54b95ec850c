#pragma once
// What the tree shows of the table: filled level by level as nodes are opened, and rebuilt after every change of the table.

#include "frame/messages/messages.h"
#include "pagetree/active_page.h"
#include "platform/dao/database.h"
#include "platform/ui/tree_control.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pagetree {

/// A closed node with pages below it holds one placeholder, so that it can be opened; its real children come with its opening.
/// Every procedure has the standard failure handler.
class PageTreeView {
public:
  PageTreeView(dao::Database& db, messages::Language& language, ui::TreeControl& TreeView1, ActivePage& active);

  /// Rebuilds the whole tree and selects the remembered page. Message 9 and an empty tree where the homepage is missing.
  void ZeigeStruktur();
  /// Puts the children of a node that is being opened under it.
  void Expand(std::string_view key);
  /// Stores which nodes are open.
  void WriteExpandedNodes();
  /// Reads the levels above a page, so that its node is there; false where there is none.
  bool bringIn(std::string_view key);

private:
  struct Row {
    std::string id, label;
    int image;
    bool expanded;
  };
  class Rows;
  class Reading;

  bool ReadRootNode(const Rows& rows);
  void ExpandTreeView1OnLoad(const Rows& rows);
  void fill(std::string_view key, const Rows& rows);
  void addPage(std::string_view parentKey, const Row& row, const Rows& rows);
  /// The placeholder of a node with pages below it, and its opening where it was left open.
  void showBelow(const Row& row, const Rows& rows);

  dao::Database& db_;
  messages::Language& language_;
  ui::TreeControl& tree_;
  ActivePage& active_;
  /// The table while a reading of it serves.
  const Rows* rows_ = nullptr;
};

} // namespace mrd::pagetree
