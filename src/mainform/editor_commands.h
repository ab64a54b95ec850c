#pragma once
// The entries of the menus "Edit", "Insert", "Format", "Table" and "Positioning", and the context menu of the page.

#include "editor/link_dialog.h"
#include "editor/search_replace.h"
#include "mainform/editor_tabs.h"
#include "mainform/page_desk.h"
#include "mainform/project_frame.h"
#include "platform/ui/source_field.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::mainform {

/// How an entry of a menu is shown.
struct EntryState {
  bool enabled = true, checked = false;
};

class EditorCommands {
public:
  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    EditorTabs& tabs;
    MainScreen& screen;
    Dialogs& dialogs;
    ui::SourceField& tbhtml;
  };
  explicit EditorCommands(const Parts& parts);
  EditorCommands(const EditorCommands&) = delete;
  EditorCommands& operator=(const EditorCommands&) = delete;

  /// What the surface asks the user: each in a dialog of its own.
  ui::SurfacePrompts prompts();

  // Menus are about to open: their entries show what the selection allows.

  void Edit_Click() { showStates("editsub"); }
  void Format_Click() { showStates("FormatSub"); }
  void Table_Click() { showStates("TableSub"); }
  void D2D_Click();
  /// By the name of the menu; nothing for one whose entries are always the same.
  void menuOpens(std::string_view menu);
  /// State of an entry as it was when its menu opened.
  EntryState state(std::string_view name, int Index) const;
  /// Caption of the first entry of `D2DSub`; empty until its menu opens for the first time.
  const std::string& positionCaption() const { return positionCaption_; }

  // Entries.

  void editsub_Click(int Index);
  void InsertSub1_Click(int Index);
  void TableSub_Click(int Index);
  void D2DSub_Click(int Index);
  void FormatSub_Click(int Index, std::string_view caption);
  void mnuTableProperties_Click();
  /// The last search once more.
  void findNext();

  void ShowContextMenu(int x, int y);
  void ContextMenuAction(int index);

  editor::FormSuchenErsetzen& searchDialog() { return search_; }

private:
  struct Menu;
  static const Menu* menuOf(std::string_view name);

  bool isEditorOnTop() const { return parts_.tabs.tabHtml == static_cast<int>(HtmlTab::Editor); }
  bool isSourceOnTop() const { return parts_.tabs.tabHtml == static_cast<int>(HtmlTab::Source); }
  /// Message 10 where something else than the page is on top.
  bool needsEditor();
  void showStates(std::string_view menu);
  EntryState entryState(std::string_view menu, int Index) const;
  void showPositionCaption();
  void replace();
  void find();
  void find(std::string_view text);
  void marquee();
  void twelvePoint();
  void schatten_hinzufügen();
  void schatten_entfernen();
  ui::EditingSurface& surface() const { return parts_.pages.surface(); }
  messages::Language& language() const { return parts_.project.program().language; }
  std::vector<editor::LinkTarget> linkTargets() const;

  const Parts parts_;
  editor::FormSuchenErsetzen search_;
  std::map<std::string, EntryState, std::less<>> states_;
  std::string positionCaption_;
  /// The text that was searched last on the page.
  std::string searched_;
};

} // namespace mrd::mainform
