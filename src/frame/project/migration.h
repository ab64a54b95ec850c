#pragma once
// Bringing the schema of an older project up to the present version, step by step.

#include "platform/dao/database.h"
#include "platform/ui/ui.h"

#include <string>
#include <string_view>

namespace mrd::project {

class Migration {
public:
  Migration(dao::Database& db, ui::Ui& ui) : db_(db), ui_(ui) {}

  /// Runs the steps that the project lacks; each has the plain failure handler.
  void UpdDatabase();

  void UpdTblEinstellungenAddRec(std::string_view Schluessel, std::string_view Wert);
  std::string UpdTblEinstellungenReadRec(std::string_view Schluessel, bool Meldung);
  void UpdTblEinstellungenWriteRec(std::string_view Schluessel, std::string_view Wert);
  void UpdTblSeiteWriteRec(std::string_view AltID, std::string_view NeuID);
  /// 0 when the table has the column, else 1.
  int CheckColumnExistInTable(std::string_view Tabelle, std::string_view Spalte);
  void AddColumn(std::string_view Tabelle, std::string_view Spalte, std::string_view Typ);
  void addTableArtikel();

private:
  dao::Database& db_;
  ui::Ui& ui_;
};

} // namespace mrd::project
