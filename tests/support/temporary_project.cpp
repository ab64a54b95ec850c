#include "support/temporary.h"

#include "tools/database_text.h"

namespace mrd::support {
namespace {

dao::Value orNull(const std::optional<std::string>& text) { return text ? dao::Value(*text) : dao::Value(dao::Null{}); }

} // namespace

TemporaryProject::TemporaryProject(std::initializer_list<Page> pages)
{
  db_ = dao::Database::create(file());
  dao::Transaction transaction(*db_);
  tools::runStatements(*db_, resourceText("project/schema.sql"));
  tools::insertRows(*db_, "Einstellungen", resourceText("project/settings.tsv"));
  for (const auto& page : pages)
    addPage(page);
  transaction.commit();
}

void TemporaryProject::addPage(const Page& page)
{
  db_->execute("INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id], script, changingdate, expanded) "
               "VALUES (?, ?, ?, ?, ?, ?, ?, FALSE)",
               {page.id, orNull(page.heading), orNull(page.html), orNull(page.dateiname),
                page.type ? dao::Value(*page.type) : dao::Value(dao::Null{}), orNull(page.script), orNull(page.changingdate)});
}

void TemporaryProject::setSetting(std::string_view key, std::string_view value)
{
  auto rows = db_->openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = ?", {key});
  if (rows.eof()) {
    rows.addNew();
    rows.set("Einstellung", key);
  } else {
    rows.edit();
  }
  rows.set("Wert", value);
  rows.update();
}

std::optional<std::string> TemporaryProject::setting(std::string_view key)
{
  auto rows = db_->openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = ?", {key});
  if (rows.eof())
    return std::nullopt;
  return rows.value("Wert").text();
}

std::vector<std::string> TemporaryProject::ids()
{
  std::vector<std::string> out;
  for (auto rows = db_->openRecordset("SELECT id FROM Seite ORDER BY ID"); !rows.eof(); rows.moveNext())
    out.push_back(rows.value("id").text());
  return out;
}

dao::Value TemporaryProject::column(std::string_view id, std::string_view column)
{
  return db_->openRecordset("SELECT * FROM Seite WHERE ID = ?", {id}).value(column);
}

} // namespace mrd::support
