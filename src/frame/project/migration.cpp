#include "frame/project/migration.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"

#include <array>

namespace mrd::project {
namespace {

using failures::withPlainHandler;

/// What `UpdTblEinstellungenReadRec` says where there is no row, and what in the table itself stops all steps.
constexpr std::string_view kUnreadable = "9999";

/// A column that came with a version.
struct ColumnStep {
  std::string_view version, column, type;
};

constexpr std::array kColumnSteps{
    ColumnStep{"2", "expanded", "BIT"},
    ColumnStep{"3", "script", "MEMO"},
    ColumnStep{"4", "changingdate", "DATE"},
};
constexpr std::string_view kArtikelVersion = "5";

} // namespace

void Migration::UpdDatabase()
{
  withPlainHandler(ui_, "UpdDatabase", [&] {
    UpdTblEinstellungenAddRec("LastActivePage", "00");
    UpdTblEinstellungenAddRec("dbVersion", "0");
    UpdTblSeiteWriteRec("index", "00");
    const auto version = UpdTblEinstellungenReadRec("dbVersion", true);
    // Versions are compared as text: all of them have one digit.
    const auto isDue = [&](std::string_view step) { return version < step && version != kUnreadable; };
    for (const auto& step : kColumnSteps) {
      if (!isDue(step.version))
        continue;
      if (CheckColumnExistInTable("Seite", step.column) == 1)
        AddColumn("Seite", step.column, step.type);
      UpdTblEinstellungenWriteRec("dbVersion", step.version);
    }
    if (isDue(kArtikelVersion)) {
      if (!db_.hasTable("Artikel"))
        addTableArtikel();
      UpdTblEinstellungenWriteRec("dbVersion", kArtikelVersion);
    }
  });
}

void Migration::UpdTblEinstellungenAddRec(std::string_view Schluessel, std::string_view Wert)
{
  withPlainHandler(ui_, "UpdTblEinstellungenAddRec", [&] {
    settings::StoredSettings stored(db_);
    if (!stored.value(Schluessel))
      stored.set(base::trim(Schluessel), base::trim(Wert));
  });
}

std::string Migration::UpdTblEinstellungenReadRec(std::string_view Schluessel, bool Meldung)
{
  std::string Wert;
  withPlainHandler(ui_, "UpdTblEinstellungenReadRec", [&] {
    const auto stored = settings::StoredSettings(db_).value(Schluessel);
    Wert = stored ? base::trim(*stored) : std::string(kUnreadable);
    if (!stored && Meldung)
      ui_.messageBox({base::format("{}  konnte nicht gelesen werden.  Wert: ", Schluessel), "", ui::box::kOk});
  });
  return Wert;
}

void Migration::UpdTblEinstellungenWriteRec(std::string_view Schluessel, std::string_view Wert)
{
  withPlainHandler(ui_, "UpdTblEinstellungenWriteRec", [&] {
    settings::StoredSettings stored(db_);
    if (stored.value(Schluessel))
      stored.edit(Schluessel, base::trim(Wert));
    else
      ui_.messageBox({base::format("{}  konnte nicht aktualisiert werden.  Wert: {}", Schluessel, Wert), "", ui::box::kOk});
  });
}

void Migration::UpdTblSeiteWriteRec(std::string_view AltID, std::string_view NeuID)
{
  withPlainHandler(ui_, "UpdTblSeiteWriteRec", [&] {
    auto rows = db_.openRecordset("Select * from Seite");
    rows.findFirst("id = ?", {NeuID});
    if (!rows.noMatch())
      return; // two pages of one id would never be told apart again
    rows.findFirst("id = ?", {AltID});
    if (rows.noMatch())
      return;
    rows.edit();
    rows.set("id", base::trim(NeuID));
    rows.update();
  });
}

int Migration::CheckColumnExistInTable(std::string_view Tabelle, std::string_view Spalte)
{
  for (const auto& column : db_.columns(Tabelle))
    if (base::compareText(column, Spalte) == 0)
      return 0;
  return 1;
}

void Migration::AddColumn(std::string_view Tabelle, std::string_view Spalte, std::string_view Typ)
{
  withPlainHandler(ui_, "AddColumn",
                   [&] { db_.execute(base::format("ALTER TABLE {} ADD COLUMN {} {};", Tabelle, Spalte, Typ)); });
}

void Migration::addTableArtikel()
{
  db_.execute("CREATE TABLE Artikel (Artikel_deutsch TEXT, Artikel_englisch TEXT, Preis_Euro DOUBLE, Preis_Dollar DOUBLE, "
              "Artikelnummer COUNTER CONSTRAINT Artikelnummer PRIMARY KEY);");
}

} // namespace mrd::project
