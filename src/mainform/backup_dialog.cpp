#include "mainform/backup_dialog.h"

#include "base/format.h"
#include "editor/captions.h"

namespace mrd::mainform {
namespace {

constexpr int kMessageSure = 164;

std::string date(const project::Backup& backup, std::string_view Sprache)
{
  const std::string text = Sprache == "ENG" ? backup.moment.iso() : backup.moment.german();
  return backup.isOfDay ? text.substr(0, text.find(' ')) : text;
}

/// "17.04.2003 09:05:06: 5 Seiten (vor einem Zurückholen)"
std::string line(const project::Backup& backup, std::string_view Sprache, const editor::Captions& captions)
{
  std::string text = date(backup, Sprache) + ": ";
  if (const auto pages = project::Backups::pagesOf(backup); !pages)
    text += captions.text("Unreadable", "nicht lesbar");
  else if (*pages == 1)
    text += captions.text("OnePage", "1 Seite");
  else
    text += base::format("{} {}", *pages, captions.text("Pages", "Seiten"));
  if (!backup.isOfDay)
    text += base::format(" ({})", captions.text("Replaced", "vor einem Zurückholen"));
  return text;
}

} // namespace

FrmSicherung::FrmSicherung(messages::Language& language, std::string_view DbName)
    : language_(language), backups_(project::Backups(DbName).list())
{
  const editor::Captions captions(language, "FrmSicherung.Texte");
  for (const auto& backup : backups_)
    Listsicherungen.push_back(line(backup, language.Sprache(), captions));
}

void FrmSicherung::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void FrmSicherung::Listsicherungen_Click(int index)
{
  if (index < 0 || static_cast<std::size_t>(index) >= backups_.size())
    return;
  listIndex = index;
  window.refresh();
}

void FrmSicherung::cbzurueckholen_Click()
{
  if (isEmpty())
    return;
  const auto chosen = static_cast<std::size_t>(listIndex);
  if (language_.GetMsg(kMessageSure, Listsicherungen[chosen], "Z") != ui::Button::Yes)
    return;
  answer = backups_[chosen].name;
  window.unload();
}

} // namespace mrd::mainform
