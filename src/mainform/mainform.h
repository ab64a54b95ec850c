#pragma once
// The main window without a screen: its parts, each with the controls and the procedures of its subject, and the commands that
// lead from one to another.

#include "imode/head_frame.h"
#include "mainform/draft_keeper.h"
#include "mainform/editor_commands.h"
#include "mainform/editor_tabs.h"
#include "mainform/editor_tools.h"
#include "mainform/export_commands.h"
#include "mainform/file_commands.h"
#include "mainform/help.h"
#include "mainform/main_screen.h"
#include "mainform/page_desk.h"
#include "mainform/picture_commands.h"
#include "mainform/program.h"
#include "mainform/project_frame.h"
#include "mainform/settings_tabs.h"
#include "mainform/shop_commands.h"
#include "mainform/site_colours.h"
#include "mainform/tree_mouse.h"
#include "platform/files/user_settings.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/shell.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

class Mainform {
public:
  struct Seams {
    MainScreen& screen;
    Dialogs& dialogs;
    ui::EditingSurface& DHTMLEdit1;
    ui::SourceField& tbhtml;
    ui::TreeControl& TreeView1;
    ui::Shell& shell;
    files::UserSettings& userSettings;
    ui::Clipboard& clipboard;
  };
  Mainform(Program& program, const Seams& seams);
  Mainform(const Mainform&) = delete;
  Mainform& operator=(const Mainform&) = delete;

  // Parts.

  Program& program() { return program_; }
  ProjectFrame& project() { return project_; }
  PageDesk& pages() { return pages_; }
  TreeMouse& treeMouse() { return treeMouse_; }
  EditorTabs& tabs() { return tabs_; }
  EditorTools& tools() { return tools_; }
  EditorCommands& editor() { return editor_; }
  FileCommands& files() { return files_; }
  SettingsTabs& settings() { return settings_; }
  SiteColours& colours() { return colours_; }
  imode::HeadFrame& imodeHead() { return imodeHead_; }
  DraftKeeper& drafts() { return drafts_; }
  Help& help() { return help_; }
  PictureCommands& pictures() { return pictures_; }

  // Start and end.

  /// Fills the lists, shows the window, and only then touches language, project and assistant. Opens `projectFile`, or what was
  /// open last where none is named; a named one that is missing is message 109, and none is open then.
  void Form_Load(std::string_view projectFile = {});
  /// Keeps the window wide enough. Twips.
  void Form_Resize(int width);
  /// Left edge of the splitter for a wish of the user. Twips.
  int SizeControls(int SplitterLeft) const;
  /// Whether the window may close: asks about what is not saved (message 3).
  bool Form_QueryUnload();
  /// Saves the placement and the state of the project and closes the databases. Does not save the page.
  void Form_Unload();
  /// Every DraftKeeper::kIntervalSeconds.
  void Timer();

  // Commands.

  void NewProject_Click();
  void OpenProject_Click();
  /// Asks which backup is to take the place of the project, and opens that anew.
  void RestoreProject_Click();
  /// Asks about what is not saved and closes the window.
  void FileExit_Click();
  /// Takes the last deletion or move of pages back.
  void mnuSeitenZurueck_Click();
  /// Caption of the entry for it: what would be taken back.
  std::string treeUndoCaption();
  void SeiteSub_Click(int Index);
  void NetSub_Click(int Index);
  void HelpSub1_Click(int Index);
  void eng_Click();
  void GER_Click();
  /// The command of a toolbar's button, by its exact key.
  void Toolbar1_ButtonClick(std::string_view Key) { tools_.Toolbar1_ButtonClick(Key); }
  void Toolbar2_ButtonClick(std::string_view Key);
  void Toolbar3_ButtonClick(std::string_view Key);
  /// The command of a menu entry, by its name and number; an entry that has none does nothing.
  void menu_Click(std::string_view name, std::optional<int> index);
  /// A menu is about to open; its entries show what can be done.
  void menuOpens(std::string_view menu);
  /// The last search of the page or its source once more.
  void findNext();
  void cbimode_Click();
  void cbEbayHTMLkopieren_Click();
  void CbEbayMetatag_Click();
  void cbebaykategorien_Click();
  void HilfeAnzeigen() { help_.HilfeAnzeigen("Mainform"); }

private:
  ProjectHooks projectHooks();
  ui::SurfaceEvents surfaceEvents();
  std::optional<std::string> storePicture(std::string_view bytes, std::string_view mimeType);
  /// Runs a command under the standard handler; nothing while another one waits for the surface.
  void command(std::string_view name, const std::function<void()>& body);
  void showStates();
  /// Opens a project and offers what a crash has left of it.
  void openProject(const std::function<void()>& open);
  void openFirstProject(std::string_view projectFile);
  bool leaveProject();
  /// The project whose backups are asked for; nothing when the user cancels.
  std::optional<std::string> projectToRestore();
  void restoreProject(const std::string& path, const std::string& name);
  void FormatSub_Click(int Index);
  void seiteneu();
  void seitelöschen();
  void showAssistant(int page);
  void showAbout();

  Program& program_;
  const Seams seams_;
  ProjectFrame project_;
  PageDesk pages_;
  SiteColours colours_;
  Help help_;
  EditorTabs tabs_;
  EditorTools tools_;
  EditorCommands editor_;
  FileCommands files_;
  SettingsTabs settings_;
  imode::HeadFrame imodeHead_;
  TreeMouse treeMouse_;
  DraftKeeper drafts_;
  PictureCommands pictures_;
  ExportCommands exports_;
  ShopCommands shop_;
  bool projectOpened_ = false;
  /// The window is closed or about to be.
  bool ended_ = false;
};

} // namespace mrd::mainform
