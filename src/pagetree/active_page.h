#pragma once
// The page that is open, and how a project remembers it.

#include "platform/dao/database.h"
#include "platform/ui/tree_control.h"
#include "platform/ui/ui.h"

#include <string>

namespace mrd::pagetree {

class ActivePage {
public:
  ActivePage(dao::Database& db, ui::TreeControl& tree, ui::Ui& ui) : db_(db), tree_(tree), ui_(ui) {}

  /// Key of the page in the editor ("@0102"); empty before one was chosen.
  std::string LastActivePage;
  /// Label of its node.
  std::string ActiveNodeText;
  /// The page was changed since it was loaded.
  bool PageDirty = false;
  /// A drag may start: not while a page is being loaded.
  bool DragErlaubt = true;

  /// Stores the current id in the project; a missing row stays missing.
  void WriteLastActivePage();
  /// Selects the stored page in the tree; adds the row with "00" where it is missing. A page that is gone leaves the tree as it
  /// is.
  void SetLastActivePage();

private:
  dao::Database& db_;
  ui::TreeControl& tree_;
  ui::Ui& ui_;
};

} // namespace mrd::pagetree
