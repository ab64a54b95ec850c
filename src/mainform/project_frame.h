#pragma once
// The frame around one open project: the one way into it, and what the whole program knows of it.

#include "frame/project/backup_copy.h"
#include "frame/settings/fields.h"
#include "mainform/program.h"
#include "platform/dao/database.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
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

/// What a project is opened for: before it is worked with, it is backed up.
enum class Purpose { Reading, Working };

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
  /// For what works with a project. False, with message 24, where none is open.
  bool requireOpen();
  const std::string& DbName() const { return DbName_; }

  /// Adds the users' layouts to the layout box. Remarks on files that are not well-formed.
  void ladebenutzerlayouts();

  /// The one way into a project for a window: opens the file, or asks for one when the path is empty or leads nowhere.
  /// `Abgebrochen` becomes true when access was denied.
  void DialogOpenChangeNewDB(std::string_view Pfad, bool& Abgebrochen);
  /// Asks for a name and makes a project from the empty template. True when one was made and opened.
  bool NewProject_Click();
  /// Asks for a project and opens it.
  void OpenProject_Click();

  /// Opens a project and brings its schema up to date, without its settings. False, with a message, when it cannot be used.
  bool openProject(std::string_view path, Purpose purpose = Purpose::Working);
  /// Fills the fields from the open project. False, with message 37, when the export directory that was given does not exist.
  bool loadSettings(const ExportPath& exportPath = {});
  /// Makes a project from a database of an earlier version: in a file of its own, or without `target` in the place of the old
  /// one, as opening it does. False, with a message, when there is none.
  bool importProject(std::string_view jetFile, const std::optional<std::string>& target);
  /// Makes a project from the empty template. False, with message 5 or 6, when the file exists or the template is missing.
  bool createProject(std::string_view path);

  /// Puts the backup with this name in the place of the project. Returns the name under which the present state is kept, empty
  /// where there was none; nothing, with a message, when all is as it was. No project is open then.
  std::optional<std::string> restore(std::string_view path, std::string_view name);
  /// Tells that today's backup could not be made, as soon as that is known.
  void tellBackup();
  /// The same, and waits for it. To be called before anybody else in this process opens the project's file.
  void finishBackup();

  /// Closes and reopens the project database.
  void CheckDatabase();
  void close();

private:
  /// How the file came to be open. A refusal was told.
  enum class Opened { Refused, AsItWas, Converted };
  Opened open(std::string_view path, Purpose purpose);
  /// Begins the backup of the day and marks the project as open.
  void beginBackup(const project::Backups& backups);
  /// The path that the user chose, empty where nothing is asked; nothing when no project can be made.
  std::optional<std::string> chooseProject();
  void openWithWindow(const std::string& path);
  void tellRefusal(const base::Error& error, std::string_view name);
  bool tellFailure(const base::Error& error, bool& Abgebrochen);

  Program& program_;
  ProjectHooks hooks_;
  settings::Fields fields_;
  std::optional<dao::Database> db_;
  std::string DbName_;
  std::unique_ptr<files::FileLock> openMark_;
  std::unique_ptr<project::DailyBackup> backup_;
  /// Projects whose user has been told that they are not backed up.
  std::set<std::string> toldProjects_;
  int OpenMode_ = 0;
};

} // namespace mrd::mainform
