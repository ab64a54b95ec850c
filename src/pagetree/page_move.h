#pragma once
// Moving a page with all below it before or behind another one.

#include "frame/messages/messages.h"
#include "pagetree/id_table.h"
#include "pagetree/tree_queries.h"
#include "platform/dao/database.h"
#include "platform/ui/form_window.h"
#include "platform/ui/tree_control.h"
#include "platform/ui/window_controls.h"

#include <array>
#include <string>
#include <string_view>

namespace mrd::pagetree {

/// The dialog "Seite(n) verschieben": its values and its procedures, without a screen.
class frmMove1 {
public:
  /// `move` names the source and the target; the option is set by Form_Load and by clicks. `TreeView1`, where there is one, draws
  /// nothing while pages move.
  frmMove1(dao::Database& db, messages::Language& language, MoveRequest& move, ui::TreeControl* TreeView1 = nullptr)
      : db_(db), language_(language), move_(move), tree_(TreeView1)
  {
  }

  /// A heading, and the id that it stands for.
  struct Label {
    std::string caption, tag;
  };
  /// Source and target.
  std::array<Label, 2> lblMove;
  /// Number of the chosen placement.
  int optMove() const { return static_cast<int>(move_.MoveOption); }
  ui::FormWindow window;

  /// Applies the language, then as below.
  void Form_Load(ui::WindowControls& controls);
  /// Fills the labels' ids and chooses "behind".
  void Form_Load();
  /// Chooses a placement. "Before" is a "behind" the previous number: each click lowers the target by one.
  void optMove_Click(MoveOption Index);
  /// Refuses with a message, or moves; closes the dialog.
  void btnMove_Click();
  void btnCancel_Click();

  /// Tells the tree that a move ran; cleared by each refusal.
  bool MoveAusgefuehrt = true;

private:
  bool refuse(int message, bool forgetTarget);
  bool isAllowed();
  void MovePage();
  /// The ids after the move; false when a step would write a number above 99 or take one that is in use.
  bool workOut(IdTable& pages) const;
  void MovePageUnderM(IdTable& pages, const std::string& arrival) const;
  bool ReorgZielPos(IdTable& pages, int Modus) const;

  dao::Database& db_;
  messages::Language& language_;
  MoveRequest& move_;
  ui::TreeControl* tree_;
};

/// The page that was moved, by its heading, since its id has changed: the first one in table order, "00" without one.
std::string findMovedPage(dao::Database& db, std::string_view heading);

} // namespace mrd::pagetree
