// What leads back: backups, and the last change of the tree.

#include "mainform/mainform.h"

#include "editor/captions.h"
#include "frame/project/backups.h"
#include "mainform/backup_dialog.h"

namespace mrd::mainform {
namespace {

constexpr int kMessageNoBackups = 163, kMessageRestored = 170;

} // namespace

void Mainform::RestoreProject_Click()
{
  command("RestoreProject_Click", [&] {
    const auto path = projectToRestore();
    if (!path)
      return;
    FrmSicherung dialog(program_.language, *path);
    if (dialog.isEmpty()) {
      program_.language.GetMsg(kMessageNoBackups);
      return;
    }
    seams_.dialogs.showModal(dialog);
    // What is in the editor belongs to the state that is kept.
    if (dialog.answer && (!project_.isOpen() || leaveProject()))
      restoreProject(*path, *dialog.answer);
  });
}

std::optional<std::string> Mainform::projectToRestore()
{
  if (project_.isOpen())
    return project_.DbName();
  // What could not be opened is what has to be restored most.
  const auto last = paths::LeseIni("LastFile", "File1", program_.files.iniFile());
  if (!project::Backups(last).list().empty())
    return last;
  return program_.ui.openFileDialog({"Datenbank öffnen", "Mirandel-Datenbanken|*.mdb", program_.files.directory()});
}

void Mainform::restoreProject(const std::string& path, const std::string& name)
{
  std::optional<std::string> kept;
  const bool wasOpen = project_.isOpen();
  // Nothing may ask the project for anything while there is none.
  pages_.whileBusy([&] {
    pages_.projectClosed();
    kept = project_.restore(path, name);
    if (kept || wasOpen)
      openProject([&] {
        bool denied = false;
        project_.DialogOpenChangeNewDB(path, denied);
      });
  });
  if (kept && !kept->empty())
    program_.language.GetMsg(kMessageRestored, *kept, "R");
}

void Mainform::mnuSeitenZurueck_Click()
{
  command("mnuSeitenZurueck_Click", [&] {
    if (pages_.treeChange() != pagetree::TreeUndo::Change::None && tabs_.showTree() && pages_.leave())
      pages_.undoTreeChange();
  });
}

std::string Mainform::treeUndoCaption()
{
  const editor::Captions captions(program_.language, "Mainform.Texte");
  switch (pages_.treeChange()) {
  case pagetree::TreeUndo::Change::Deletion:
    return captions.text("UndoDeletion", "&Löschen der Seite(n) rückgängig");
  case pagetree::TreeUndo::Change::Move:
    return captions.text("UndoMove", "&Verschieben rückgängig");
  case pagetree::TreeUndo::Change::None:
    break;
  }
  return captions.text("UndoNothing", "&Löschen oder Verschieben rückgängig");
}

} // namespace mrd::mainform
