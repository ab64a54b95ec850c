#include "mainform/project_frame.h"

#include "base/errors.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/paths/paths.h"
#include "frame/project/migration.h"
#include "frame/project/project.h"
#include "frame/project/restoration.h"
#include "frame/settings/export_path.h"
#include "frame/settings/settings.h"
#include "generator/templates/xml_layout.h"
#include "mainform/old_projects.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <utility>

namespace mrd::mainform {
namespace {

constexpr std::string_view kOpening = "DialogOpenChangeNewDB", kImporting = "ImportProject";
constexpr int kMessageExists = 5, kMessageNoTemplate = 6, kMessageNoEmptyFile = 13, kMessageRetry = 14, kMessageNoProject = 15,
              kMessageAccessDenied = 16, kMessageNothingOpen = 24, kMessageNoExportDirectory = 37, kMessageNoFile = 109,
              kMessageNoBackup = 161, kMessageDamaged = 162, kMessageOpenElsewhere = 165, kMessageNoSuchBackup = 166,
              kMessageBackupDamaged = 167, kMessageNotRestored = 169;
/// Ways of asking for a project. Only the first is ever set; the other two are kept for callers to come.
constexpr int kOpenExisting = 111, kOpenNew = 222, kOpenOther = 333;

} // namespace

ProjectFrame::ProjectFrame(Program& program, ProjectHooks hooks) : program_(program), hooks_(std::move(hooks)) {}

void ProjectFrame::ladebenutzerlayouts()
{
  const std::string directory = program_.files.file("\\xml");
  const auto folder = templates::readLayoutFolder(directory);
  auto& entries = fields_.ComboGrundlayout.entries;
  if (folder.hasFiles)
    entries.emplace_back("-- benutzerdefinierte Layouts --");
  for (const auto& [name, file] : folder.layouts)
    entries.push_back(name + " (" + file + ")");
  for (const auto& file : folder.malformed)
    program_.ui.remark("Das Layout ist nicht wohlgeformt: " + files::nativePath(directory + "\\" + file).string());
}

ProjectFrame::Opened ProjectFrame::open(std::string_view path, Purpose purpose)
{
  // It may be of this project, whose file is opened and closed now: that would give up the lock under which it is read.
  finishBackup();
  const bool isOld = dao::isJetFile(path);
  if (isOld && !OldProjects(program_).convertInPlace(path))
    return Opened::Refused;
  const project::Backups backups(path);
  // Marked first: a project that is just being replaced would be opened under its old file.
  auto mark = purpose == Purpose::Working ? backups.markOpen() : nullptr;
  // The project that is open stays so where the next one cannot be opened.
  db_ = project::openProject(path);
  DbName_ = path;
  openMark_ = std::move(mark);
  if (purpose == Purpose::Working)
    beginBackup(backups);
  return isOld ? Opened::Converted : Opened::AsItWas;
}

void ProjectFrame::beginBackup(const project::Backups& backups)
{
  backup_ = std::make_unique<project::DailyBackup>(backups, program_.clock.now());
  if (!openMark_)
    openMark_ = backups.markOpen();
}

void ProjectFrame::finishBackup()
{
  if (!backup_)
    return;
  backup_->wait();
  tellBackup();
}

void ProjectFrame::tellBackup()
{
  if (!backup_ || !backup_->isDone())
    return;
  const auto backup = std::exchange(backup_, nullptr);
  const auto& failure = backup->failure();
  // Once a day's work is enough: whoever opens the project again and again knows.
  if (!failure || !toldProjects_.insert(DbName_).second)
    return;
  program_.ui.hideSplash();
  if (failure->kind() == base::ErrorNumber::NotADatabase)
    program_.language.GetMsg(kMessageDamaged);
  else
    program_.language.GetMsg(kMessageNoBackup, failure->description(), "R");
}

std::optional<std::string> ProjectFrame::restore(std::string_view path, std::string_view name)
{
  const project::Backups backups(path);
  const auto backup = backups.find(name);
  if (!backup) {
    program_.language.GetMsg(kMessageNoSuchBackup, name, "R");
    return std::nullopt;
  }
  close();
  const ui::WaitPointer wait(program_.ui);
  try {
    return project::restore(backups, *backup, program_.clock);
  } catch (const base::Error& error) {
    tellRefusal(error, name);
  }
  return std::nullopt;
}

void ProjectFrame::tellRefusal(const base::Error& error, std::string_view name)
{
  switch (error.kind()) {
  case base::ErrorNumber::DatabaseLocked:
    program_.language.GetMsg(kMessageOpenElsewhere);
    break;
  case base::ErrorNumber::NotADatabase:
    program_.language.GetMsg(kMessageBackupDamaged, name, "R");
    break;
  default:
    program_.language.GetMsg(kMessageNotRestored, error.description(), "R");
  }
}

bool ProjectFrame::importProject(std::string_view jetFile, const std::optional<std::string>& target)
{
  if (!paths::datei_vorhanden(jetFile)) {
    program_.language.GetMsg(kMessageNoFile, files::nativePath(jetFile).string(), "R");
    return false;
  }
  if (target && paths::datei_vorhanden(*target)) {
    program_.language.GetMsg(kMessageExists);
    return false;
  }
  bool done = false;
  failures::withStandardHandler(program_.language, kImporting, [&] {
    OldProjects old(program_);
    const bool isThere = target ? old.convertTo(jetFile, *target) : !dao::isJetFile(jetFile) || old.convertInPlace(jetFile);
    if (!isThere)
      return;
    const std::string path = target ? *target : std::string(jetFile);
    if (target) {
      db_ = project::openProject(path);
      DbName_ = path;
    } else {
      open(path, Purpose::Working);
      finishBackup();
    }
    done = true;
  });
  return done;
}

bool ProjectFrame::openProject(std::string_view path, Purpose purpose)
{
  bool done = false;
  failures::withStandardHandler(program_.language, kOpening, [&] {
    if (!paths::datei_vorhanden(path) && !files::directoryExists(path))
      throw base::Error(base::ErrorNumber::FileNotFound, "Datei nicht gefunden: " + std::string(path));
    if (open(path, purpose) == Opened::Refused)
      return;
    // What runs without a window is over soon, and would have to wait at its end.
    finishBackup();
    project::Migration(*db_, program_.ui).UpdDatabase();
    done = true;
  });
  return done;
}

bool ProjectFrame::loadSettings(const ExportPath& exportPath)
{
  if (!exportPath.given) {
    settings::einstellungenladen(*db_, fields_, program_.files, program_.ui);
    return true;
  }
  const auto directory = settings::existingExportPath(*exportPath.given, program_.files);
  if (!directory) {
    program_.language.GetMsg(kMessageNoExportDirectory);
    return false;
  }
  fields_.tbpfadexport = *directory;
  settings::einstellungenladen(*db_, fields_, program_.files, program_.ui, "Exportpfad");
  return true;
}

bool ProjectFrame::createProject(std::string_view path)
{
  if (paths::datei_vorhanden(path)) {
    program_.language.GetMsg(kMessageExists);
    return false;
  }
  const std::string emptyProject = program_.files.file(kEmptyProject);
  if (!paths::datei_vorhanden(emptyProject)) {
    program_.language.GetMsg(kMessageNoTemplate);
    return false;
  }
  project::copyTemplate(emptyProject, path);
  return true;
}

void ProjectFrame::DialogOpenChangeNewDB(std::string_view Pfad, bool& Abgebrochen)
{
  Abgebrochen = false;
  hooks_.opseitentyp_Click();
  std::string path;
  if (!Pfad.empty() && paths::datei_vorhanden(Pfad))
    path = Pfad;
  else if (!Pfad.empty())
    OpenMode_ = kOpenExisting;
  for (bool again = true; again;) {
    try {
      if (const auto chosen = path.empty() ? chooseProject() : std::optional(path))
        openWithWindow(*chosen);
      return;
    } catch (const base::Error& error) {
      program_.ui.hideSplash();
      again = tellFailure(error, Abgebrochen);
    }
  }
}

bool ProjectFrame::tellFailure(const base::Error& error, bool& Abgebrochen)
{
  switch (error.kind()) {
  case base::ErrorNumber::Cancelled:
    if (program_.language.GetMsg(kMessageRetry) == ui::Button::Retry)
      return true;
    program_.language.GetMsg(kMessageNoProject);
    return false;
  case base::ErrorNumber::AccessDenied:
    program_.language.GetMsg(kMessageAccessDenied);
    Abgebrochen = true;
    return false;
  default:
    failures::showStandardFailure(program_.language, error, kOpening);
    return false;
  }
}

std::optional<std::string> ProjectFrame::chooseProject()
{
  ui::Ui& ui = program_.ui;
  const std::string& directory = program_.files.directory();
  std::optional<std::string> chosen;
  switch (OpenMode_) {
  case kOpenExisting:
    ui.hideSplash();
    chosen = ui.openFileDialog({"Datenbank öffnen", "Mirandel-Datenbanken|*.mdb", directory});
    break;
  case kOpenNew: {
    const std::string emptyFile = base::trim(paths::LeseIni("EmptyFile", "File", program_.files.iniFile()));
    if (!paths::datei_vorhanden(emptyFile)) {
      ui.hideSplash();
      program_.language.GetMsg(kMessageNoEmptyFile);
      return std::nullopt;
    }
    chosen = ui.saveFileDialog({"Neue Datenbank anlegen", "Access-Db's|*.mdb"});
    if (chosen)
      project::copyTemplate(emptyFile, *chosen);
    ui.hideSplash();
    break;
  }
  case kOpenOther:
    chosen = ui.openFileDialog({"Datenbank wechseln", "Mirandel Datenbanken|*.mdb", directory});
    break;
  default:
    return "";
  }
  if (!chosen)
    throw base::Error(base::ErrorNumber::Cancelled, "Abbrechen wurde gewählt.");
  return chosen;
}

void ProjectFrame::openWithWindow(const std::string& path)
{
  paths::SchreibeIni("LastFile", "File1", path, program_.files.iniFile());
  if (path.empty()) {
    program_.ui.hideSplash();
    program_.language.GetMsg(kMessageNothingOpen);
    hooks_.unload();
    return;
  }
  const auto opened = open(path, Purpose::Working);
  if (opened == Opened::Refused)
    return;
  if (opened == Opened::Converted)
    OldProjects(program_).askForPictures(*db_);
  hooks_.emptyEditor();
  loadSettings();
  hooks_.farbenaktualisieren();
  project::Migration(*db_, program_.ui).UpdDatabase();
  hooks_.ZeigeStruktur();
  hooks_.loadLastActivePage();
}

bool ProjectFrame::NewProject_Click()
{
  const auto chosen =
      program_.ui.openFileDialog({"Datenbank anlegen", "Mirandel-Datenbanken|*.mdb", program_.files.directory(), "mrdneu.mdb"});
  if (!chosen || paths::teile_dateipfad(*chosen).name.empty() || !createProject(*chosen))
    return false;
  bool denied = false;
  DialogOpenChangeNewDB(*chosen, denied);
  return !denied && isOpen();
}

void ProjectFrame::OpenProject_Click()
{
  OpenMode_ = kOpenExisting;
  bool denied = false;
  DialogOpenChangeNewDB("", denied);
}

bool ProjectFrame::requireOpen()
{
  if (!isOpen())
    program_.language.GetMsg(kMessageNothingOpen);
  return isOpen();
}

void ProjectFrame::CheckDatabase()
{
  const ui::WaitPointer wait(program_.ui);
  finishBackup();
  // Opened first and closed then: a file that has become unreadable leaves the program what it has.
  db_ = project::openProject(base::trim(DbName_));
}

void ProjectFrame::close()
{
  db_.reset();
  openMark_.reset();
  finishBackup();
}

} // namespace mrd::mainform
