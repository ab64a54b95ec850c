#include "frame/project/file_register.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/paths/paths.h"
#include "platform/files/files.h"

#include <unordered_set>

namespace mrd::project {
namespace {

/// Two files with the same key are one for the database's text comparison.
std::string keyOf(std::string_view pfad, std::string_view dateiname, std::string_view erweiterung)
{
  auto key = base::comparisonKey(pfad);
  key += '\0';
  key += base::comparisonKey(dateiname);
  key += '\0';
  key += base::comparisonKey(erweiterung);
  return key;
}

} // namespace

struct FileRegister::State {
  dao::Database& db;
  messages::Language& language;
  std::unordered_set<std::string> entered;

  /// Rows without a directory come from a server's listing and are no entries of a local file. A missing extension counts as an
  /// empty one, so that a file without extension is entered once.
  void readEntered()
  {
    entered.clear();
    auto rows = db.openRecordset("SELECT pfad, dateiname, erweiterung FROM Dateien WHERE pfad IS NOT NULL");
    for (; !rows.eof(); rows.moveNext())
      entered.insert(keyOf(rows.value("pfad").text(), rows.value("dateiname").text(), rows.value("erweiterung").text()));
  }

  void enter(std::string_view pfad, Dateityp dateityp)
  {
    if (!paths::datei_vorhanden(pfad)) {
      language.ui().messageBox({base::format("Die Datei {} wurde nicht gefunden!", pfad), "", ui::box::kOk});
      return;
    }
    const auto parts = paths::teile_dateipfad(pfad);
    auto key = keyOf(parts.verzeichnis, parts.name, parts.erweiterung);
    if (entered.contains(key))
      return;
    const auto erweiterung = base::lower(parts.erweiterung);
    db.execute(
        "INSERT INTO Dateien (pfad, dateiname, erweiterung, übertragen, [dateityp-id], dateidatum) VALUES (?, ?, ?, TRUE, ?, ?)",
        {base::lower(parts.verzeichnis), base::lower(parts.name),
         erweiterung.empty() ? dao::Value(dao::Null{}) : dao::Value(erweiterung), static_cast<int>(dateityp),
         files::modificationTime(pfad).iso()});
    entered.insert(std::move(key));
  }
};

FileRegister::FileRegister(dao::Database& db, messages::Language& language)
    : state_(std::make_unique<State>(State{db, language, {}}))
{
  state_->readEntered();
}

FileRegister::~FileRegister() = default;

void FileRegister::clearRunFiles()
{
  state_->db.execute("DELETE * FROM Dateien WHERE ([Dateityp-id] = 1) OR ([Dateityp-id] = 2)");
  state_->readEntered();
}

void FileRegister::dateiindatenbank(std::string_view pfad, Dateityp dateityp)
{
  failures::withStandardHandler(state_->language, "dateiindatenbank", [&] { state_->enter(pfad, dateityp); });
}

} // namespace mrd::project
