#pragma once
// The frame around one open project: the one way into it, and what the whole program knows of it.

#include "frame/settings/fields.h"
#include "mainform/program.h"
#include "platform/dao/database.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

/// What the main window does when a project opens.
struct ProjectHooks {
  /// Fills the tree from the table.
  std::function<void()> ZeigeStruktur = [] {};
  /// Puts the stored page into the editor.
  std::function<void()> loadLastActivePage = [] {};
  /// Marks the open page as changed by its type options.
  std::function<void()> opseitentyp_Click = [] {};
  /// Closes the window and with it the program.
  std::function<void()> unload = [] {};
  /// Puts a document without content into the editor.
  std::function<void()> emptyEditor = [] {};
  /// Recolours the editor and the previews from the fields.
  std::function<void()> farbenaktualisieren = [] {};
};

/// Where the files of a project's site go.
struct ExportPath {
  /// A directory in place of the stored one, which is then not touched; it must exist.
  std::optional<std::string> given;
};

class ProjectFrame {
public:
  explicit ProjectFrame(Program& program, ProjectHooks hooks = {});

  Program& program() { return program_; }
  settings::Fields& fields() { return fields_; }
  dao::Database& db() { return *db_; }
  bool isOpen() const { return db_.has_value(); }
  const std::string& DbName() const { return DbName_; }

  /// Adds the users' layouts to the layout box. Warns of files that are not well-formed.
  void ladebenutzerlayouts();

  /// The one way into a project for a window: opens the file, or asks for one when the path is empty or leads nowhere.
  /// `Abgebrochen` becomes true when access was denied.
  void DialogOpenChangeNewDB(std::string_view Pfad, bool& Abgebrochen);
  /// Asks for a name and makes a project from the empty template. True when one was made and opened.
  bool NewProject_Click();
  /// Asks for a project and opens it.
  void OpenProject_Click();

  /// Opens a project and brings its schema up to date, without its settings. False, with a message, when it cannot be used.
  bool openProject(std::string_view path);
  /// Fills the fields from the open project. False, with message 37, when the export directory that was given does not exist.
  bool loadSettings(const ExportPath& exportPath = {});
  /// Makes a project from a database of an earlier version: in a file of its own, or without `target` in the place of the old
  /// one, as opening it does. False, with a message, when there is none.
  bool importProject(std::string_view jetFile, const std::optional<std::string>& target);
  /// Makes a project from the empty template. False, with message 5 or 6, when the file exists or the template is missing.
  bool createProject(std::string_view path);

  /// Closes and reopens the project database.
  void CheckDatabase();
  /// Closes the project and the language database.
  void close();

private:
  /// How the file came to be open. A refusal was told.
  enum class Opened { Refused, AsItWas, Converted };
  Opened open(std::string_view path);
  /// The path that the user chose, empty where nothing is asked; nothing when no project can be made.
  std::optional<std::string> chooseProject();
  void openWithWindow(const std::string& path);
  bool tellFailure(const base::Error& error, bool& Abgebrochen);

  Program& program_;
  ProjectHooks hooks_;
  settings::Fields fields_;
  std::optional<dao::Database> db_;
  std::string DbName_;
  int OpenMode_ = 0;
};

} // namespace mrd::mainform
