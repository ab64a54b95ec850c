#pragma once
// The mouse over the tree: a click opens a page, a drag onto another node moves it. `hit` is the key of the node under the
// cursor, nothing outside of nodes.

#include "mainform/help.h"
#include "mainform/page_desk.h"

#include <optional>
#include <string>

namespace mrd::mainform {

/// Scrolls a tree while something is dragged over it: a line at a time within `Rand` pixels of an edge. X and Y in twips.
void TreeViewScroll(ui::TreeControl& Tree, int X, int Y, int Rand);

class TreeMouse {
public:
  using Hit = std::optional<std::string>;

  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    Dialogs& dialogs;
    Help& help;
  };
  explicit TreeMouse(const Parts& parts) : parts_(parts) {}

  /// Button pressed on the tree, or a node chosen by keyboard: saves the page that is open and opens the node's. Outside of nodes
  /// everything stays.
  void TreeView1_MouseDown(const Hit& hit);
  /// Starts a drag when the cursor has left the pressed node. `Button` is 1 while the left button is held.
  void TreeView1_MouseMove(int Button, const Hit& hit);
  void TreeView1_DragOver(const Hit& hit, int X, int Y);
  /// Asks for the placement and moves the page that was open.
  void TreeView1_DragDrop(const Hit& hit);
  /// The drag ended outside of the tree.
  void dragCancelled();

private:
  void move();
  void showMoved();
  messages::Language& language() { return parts_.project.program().language; }

  const Parts parts_;
  std::string DragTargetKey_, DragTargetText_;
};

} // namespace mrd::mainform
