#include "mainform/page_desk.h"

#include "frame/failures/failures.h"
#include "pagetree/page_deletion.h"
#include "pagetree/page_id.h"

#include <utility>

namespace mrd::mainform {
namespace {

constexpr int kMessageChoosePage = 2;

} // namespace

class PageDesk::Work {
public:
  explicit Work(PageDesk& desk) : desk_(desk) { ++desk_.busy_; }
  ~Work() { --desk_.busy_; }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

private:
  PageDesk& desk_;
};

PageDesk::Open::Open(const Parts& parts, pagetree::PageFields& pageFields, const Hooks& hooks)
    : active(parts.project.db(), parts.TreeView1, parts.project.program().ui),
      treeView(parts.project.db(), parts.project.program().language, parts.TreeView1, active),
      store({parts.project.db(), parts.project.program().language, parts.project.program().clock, parts.DHTMLEdit1,
             parts.TreeView1, active},
            pageFields,
            {hooks.farbenaktualisieren, [this] { treeView.WriteExpandedNodes(); }, [this] { treeView.ZeigeStruktur(); }}),
      treeUndo(parts.project.db(), parts.project.program().language)
{
}

PageDesk::PageDesk(const Parts& parts, Hooks hooks) : parts_(parts), hooks_(std::move(hooks)) {}

void PageDesk::projectOpened()
{
  open_.emplace(parts_, fields, hooks_);
  parts_.TreeView1.setEvents({[this](std::string_view key) {
    if (open_)
      open_->treeView.Expand(key);
  }});
  setKind(DocumentKind::Page);
}

void PageDesk::ZeigeStruktur()
{
  if (open_)
    open_->treeView.ZeigeStruktur();
}

void PageDesk::loadLastActivePage()
{
  if (!open_)
    return;
  const std::string home = pagetree::keyOf(pagetree::kRootId);
  // The page that the project remembers may be gone; one without a homepage has nothing to show.
  const std::string key = parts_.TreeView1.hasNode(LastActivePage()) ? LastActivePage() : home;
  if (parts_.TreeView1.hasNode(key))
    LoadPage(key);
  else
    open_->active.LastActivePage.clear();
}

void PageDesk::rememberState()
{
  if (!open_)
    return;
  open_->active.WriteLastActivePage();
  open_->treeView.WriteExpandedNodes();
}

void PageDesk::changed()
{
  ++document.changes;
  if (document.kind == DocumentKind::File)
    document.isDirty = true;
  else if (open_)
    open_->active.PageDirty = true;
}

void PageDesk::opseitentyp_Click(int Index)
{
  fields.opseitentyp = Index;
  changed();
}

std::string PageDesk::LastActivePage() const { return open_ ? open_->active.LastActivePage : std::string(); }

std::string PageDesk::ActiveNodeText() const { return open_ ? open_->active.ActiveNodeText : std::string(); }

bool PageDesk::PageDirty() const { return open_ && open_->active.PageDirty && !keyToSave().empty(); }

void PageDesk::giveUp()
{
  if (open_)
    open_->active.PageDirty = false;
  hooks_.settled();
}

std::string PageDesk::keyToSave() const
{
  switch (document.kind) {
  case DocumentKind::Page:
    return LastActivePage();
  case DocumentKind::Head:
    return std::string(pagetree::kRootId);
  case DocumentKind::File:
    break;
  }
  return {};
}

bool PageDesk::SavePage()
{
  const std::string key = keyToSave();
  if (!open_ || key.empty())
    return true;
  const Work work(*this);
  fields.headOnTop = document.kind == DocumentKind::Head;
  // A refusal shows its message and leaves the page dirty.
  const bool saved = open_->store.SavePage(key) && !open_->active.PageDirty;
  if (!saved)
    return false;
  // The heading may have changed, and a move finds the page by it.
  if (document.kind == DocumentKind::Page && parts_.TreeView1.hasNode(key))
    open_->active.ActiveNodeText = parts_.TreeView1.label(key);
  hooks_.settled();
  return true;
}

bool PageDesk::leave()
{
  if (document.kind == DocumentKind::File)
    return hooks_.leaveFile();
  return !PageDirty() || SavePage();
}

void PageDesk::LoadPage(std::string_view key, std::string_view Schluessel)
{
  if (!open_)
    return;
  const Work work(*this);
  turnToPage([&] { open_->store.LoadPage(key, Schluessel); });
  parts_.screen.refresh(Shown::Page);
}

void PageDesk::turnToPage(const std::function<void()>& load)
{
  const EditedDocument before = document;
  setKind(DocumentKind::Page);
  try {
    load();
  } catch (...) {
    setKind(before.kind);
    document.isDirty = before.isDirty;
    throw;
  }
}

void PageDesk::whileBusy(const std::function<void()>& work)
{
  const Work busy(*this);
  work();
}

bool PageDesk::newPage()
{
  if (!open_)
    return false;
  const Work work(*this);
  const bool isLeft = document.kind == DocumentKind::File ? leave() : SavePage();
  if (!isLeft)
    return false;
  bool made = false;
  turnToPage([&] { made = open_->store.AddNewPage(); });
  if (made)
    changed();
  parts_.screen.refresh(Shown::Page);
  return made;
}

void PageDesk::DelPage()
{
  if (!open_)
    return;
  const auto selected = parts_.TreeView1.selected();
  if (!selected) {
    language().GetMsg(kMessageChoosePage);
    return;
  }
  const Work work(*this);
  bool deleted = false;
  open_->treeUndo.deletion(pagetree::idOf(*selected),
                           [&] { return deleted = pagetree::PageDeletion(parts_.project.db(), language()).DelPage(*selected); });
  if (!deleted)
    return;
  giveUp();
  ZeigeStruktur();
  const std::string home = pagetree::keyOf(pagetree::kRootId);
  if (!parts_.TreeView1.hasNode(home))
    return;
  parts_.TreeView1.select(home);
  LoadPage(home);
}

pagetree::TreeUndo::Change PageDesk::treeChange() const
{
  return open_ ? open_->treeUndo.change() : pagetree::TreeUndo::Change::None;
}

void PageDesk::undoTreeChange()
{
  if (!open_)
    return;
  const Work work(*this);
  // Open nodes are stored while the tree still shows them under the numbers of the table.
  rememberState();
  if (!open_->treeUndo.undo())
    return;
  ZeigeStruktur();
  loadLastActivePage();
}

void PageDesk::changePage(std::string_view key)
{
  if (!open_)
    return;
  const Work work(*this);
  const std::string node(key), before = LastActivePage();
  if (!leave()) {
    if (parts_.TreeView1.hasNode(before))
      parts_.TreeView1.select(before);
    return;
  }
  // The save has rebuilt the tree.
  open_->treeView.bringIn(node);
  parts_.TreeView1.select(node);
  LoadPage(node);
}

void PageDesk::setKind(DocumentKind kind)
{
  const bool isNew = document.kind != kind;
  document.kind = kind;
  document.isDirty = false;
  fields.headOnTop = kind == DocumentKind::Head;
  if (isNew)
    hooks_.kindChanged();
}

} // namespace mrd::mainform
