#include "mainform/tree_mouse.h"

#include "frame/failures/failures.h"
#include "pagetree/page_id.h"
#include "platform/ui/twips.h"

namespace mrd::mainform {
namespace {

constexpr int kLeftButton = 1;
constexpr int kScrollMarginPx = 3;
constexpr int kMessageHomepageStays = 8;

/// Where along one direction the cursor is near an edge: -1, 0 or 1.
int nearEdge(int position, int extent, int margin)
{
  if (position >= 1 && position < margin)
    return -1;
  return position > extent - margin ? 1 : 0;
}

} // namespace

void TreeViewScroll(ui::TreeControl& Tree, int X, int Y, int Rand)
{
  const ui::TreeExtent extent = Tree.extent();
  const int margin = Rand * ui::kTwipsPerPixel;
  if (const int vertical = nearEdge(Y, extent.heightPx * ui::kTwipsPerPixel, margin); vertical != 0) {
    Tree.scroll(vertical < 0 ? ui::ScrollStep::LineUp : ui::ScrollStep::LineDown);
    return;
  }
  const int horizontal = nearEdge(X, extent.widthPx * ui::kTwipsPerPixel, margin);
  if (horizontal == 0)
    return;
  const int before = Tree.horizontalPosition();
  Tree.scroll(horizontal < 0 ? ui::ScrollStep::LineLeft : ui::ScrollStep::LineRight);
  if (Tree.horizontalPosition() != before)
    Tree.refresh();
}

void TreeMouse::TreeView1_MouseDown(const Hit& hit)
{
  failures::withStandardHandler(language(), "TreeView1_MouseDown", [&] {
    parts_.help.page = "baumbereich.htm";
    if (hit && !parts_.pages.isBusy())
      parts_.pages.changePage(*hit);
  });
}

void TreeMouse::TreeView1_MouseMove(int Button, const Hit& hit)
{
  if (Button != kLeftButton)
    return;
  failures::withStandardHandler(language(), "TreeView1_MouseMove", [&] {
    language().ui().pumpEvents();
    auto& tree = parts_.pages.tree();
    const auto selected = tree.selected();
    const bool mayDrag = parts_.pages.isOpen() && parts_.pages.active().DragErlaubt && !parts_.pages.isBusy();
    if (mayDrag && hit && selected && tree.label(*hit) != tree.label(*selected))
      tree.startDrag();
  });
}

void TreeMouse::TreeView1_DragOver(const Hit& hit, int X, int Y)
{
  failures::withStandardHandler(language(), "TreeView1_DragOver", [&] {
    DragTargetKey_.clear();
    DragTargetText_.clear();
    auto& tree = parts_.pages.tree();
    if (hit) {
      DragTargetKey_ = *hit;
      DragTargetText_ = tree.label(*hit);
      tree.setDropHighlight(hit);
    }
    TreeViewScroll(tree, X, Y, kScrollMarginPx);
  });
}

void TreeMouse::TreeView1_DragDrop(const Hit& hit)
{
  failures::withStandardHandler(language(), "TreeView1_DragDrop", [&] {
    if (!hit)
      DragTargetKey_.clear();
    if (!DragTargetKey_.empty() && !parts_.pages.LastActivePage().empty() && !parts_.pages.isBusy())
      move();
  });
  dragCancelled();
}

void TreeMouse::dragCancelled()
{
  DragTargetKey_.clear();
  DragTargetText_.clear();
  parts_.pages.tree().setDropHighlight(std::nullopt);
}

void TreeMouse::move()
{
  auto& pages = parts_.pages;
  pagetree::MoveRequest request{pagetree::idOf(pages.LastActivePage()), pagetree::idOf(DragTargetKey_),
                                pagetree::MoveOption::Behind};
  if (pagetree::isRoot(request.MoveSourceID)) {
    language().GetMsg(kMessageHomepageStays);
    return;
  }
  if (request.MoveSourceID == request.MoveTargetID)
    return;
  // Pages are moved as the table has them: what is in the editor belongs there first.
  if (!pages.leave())
    return;
  // Open nodes are stored while the tree still shows them under the numbers of the table: each row takes its own along.
  pages.rememberState();
  pagetree::frmMove1 dialog(parts_.project.db(), language(), request, &pages.tree());
  dialog.lblMove = {{{pages.ActiveNodeText(), request.MoveSourceID}, {DragTargetText_, request.MoveTargetID}}};
  pages.treeUndo().move([&] {
    failures::withStandardHandler(language(), "Moving", [&] { parts_.dialogs.showModal(dialog); });
    return dialog.MoveAusgefuehrt;
  });
  if (dialog.MoveAusgefuehrt)
    showMoved();
}

void TreeMouse::showMoved()
{
  auto& pages = parts_.pages;
  const std::string home = pagetree::keyOf(pagetree::kRootId);
  pages.active().LastActivePage = pagetree::keyOf(pagetree::findMovedPage(parts_.project.db(), pages.ActiveNodeText()));
  pages.active().WriteLastActivePage();
  pages.ZeigeStruktur();
  auto& tree = pages.tree();
  if (!tree.selected() && tree.hasNode(home))
    tree.select(home);
  if (const auto selected = tree.selected())
    pages.LoadPage(*selected);
}

} // namespace mrd::mainform
