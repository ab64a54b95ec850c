#pragma once
// The page that is open in the main window, the tree beside it, and every change of page.

#include "mainform/edited_document.h"
#include "mainform/main_screen.h"
#include "mainform/project_frame.h"
#include "pagetree/active_page.h"
#include "pagetree/page_store.h"
#include "pagetree/tree_undo.h"
#include "pagetree/tree_view.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/tree_control.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

class PageDesk {
public:
  struct Parts {
    ProjectFrame& project;
    MainScreen& screen;
    ui::EditingSurface& DHTMLEdit1;
    ui::TreeControl& TreeView1;
  };
  struct Hooks {
    std::function<void()> farbenaktualisieren = [] {};
    /// Asks about a changed file outside the project. False when the user wants to stay with it.
    std::function<bool()> leaveFile = [] { return true; };
    /// A page, or the head, is in the table now, or its changes have been given up.
    std::function<void()> settled = [] {};
    /// A page has taken the place of the head or of a file, or the other way round.
    std::function<void()> kindChanged = [] {};
  };

  PageDesk(const Parts& parts, Hooks hooks);

  /// The fields of the page. `sourceOnTop` and `headOnTop` follow the tabs.
  pagetree::PageFields fields;
  EditedDocument document;

  // The project.

  /// To be called when a project has been opened, and before it is closed: nothing of the one before is remembered.
  void projectOpened();
  void projectClosed() { open_.reset(); }
  bool isOpen() const { return open_.has_value(); }
  void ZeigeStruktur();
  /// Puts the page that the project remembers into the editor.
  void loadLastActivePage();
  /// Stores the last page and the open nodes.
  void rememberState();

  // Changes by the user, each of which makes the page dirty.

  void changed();
  void tbhtml_Change() { changed(); }
  void tbdateiname_Change() { changed(); }
  void tbScript_Change() { changed(); }
  void tbmeta_Change() { changed(); }
  void opseitentyp_Click(int Index);

  // The page.

  /// Key of the page in the editor, empty without one.
  std::string LastActivePage() const;
  std::string ActiveNodeText() const;
  /// What the editor holds of the project was changed since it was loaded.
  bool PageDirty() const;
  /// The changes of the page are given up.
  void giveUp();
  /// A page is being loaded, saved or made: commands have to wait, for events run meanwhile.
  bool isBusy() const { return busy_ > 0; }
  /// Runs what commands have to wait for.
  void whileBusy(const std::function<void()>& work);

  /// Saves the page, or the head while that is edited; a file outside the project is none of it. False when the message of a
  /// failure or a refusal has been shown: the page is then still in the editor, and still dirty.
  bool SavePage();
  /// SavePage for what is dirty; asks about a changed file. False when the user has to stay with what the editor holds.
  bool leave();
  void LoadPage(std::string_view key, std::string_view Schluessel = {});
  /// Saves, then makes a child of the page. False when one of both was refused.
  bool newPage();
  /// Asks and deletes the page that is selected in the tree; then shows the homepage.
  void DelPage();

  /// The deletion or move that can be taken back.
  pagetree::TreeUndo::Change treeChange() const;
  /// Takes it back, and shows the page that was open then. What is in the editor has been left.
  void undoTreeChange();

  /// Leaves what the editor holds and loads the page of the node. Where that has to stay, the node that was selected is so again.
  void changePage(std::string_view key);
  /// What the editor holds from now on.
  void setKind(DocumentKind kind);

  ui::TreeControl& tree() { return parts_.TreeView1; }
  ui::EditingSurface& surface() { return parts_.DHTMLEdit1; }
  /// The state behind a drag; there while a project is open.
  pagetree::ActivePage& active() { return open_->active; }
  pagetree::PageTreeView& treeView() { return open_->treeView; }
  pagetree::PageStore& store() { return open_->store; }
  pagetree::TreeUndo& treeUndo() { return open_->treeUndo; }

private:
  struct Open {
    Open(const Parts& parts, pagetree::PageFields& fields, const Hooks& hooks);

    pagetree::ActivePage active;
    pagetree::PageTreeView treeView;
    pagetree::PageStore store;
    pagetree::TreeUndo treeUndo;
  };

  /// Counts what is under way for the length of a scope.
  class Work;

  std::string keyToSave() const;
  /// Puts a page into the editor. Where that fails, what the editor holds is still what it was.
  void turnToPage(const std::function<void()>& load);
  messages::Language& language() { return parts_.project.program().language; }

  const Parts parts_;
  const Hooks hooks_;
  std::optional<Open> open_;
  int busy_ = 0;
};

} // namespace mrd::mainform
