#include "frame/settings/stored_settings.h"

#include "base/errors.h"
#include "base/format.h"

namespace mrd::settings {

dao::Recordset StoredSettings::find(std::string_view key) const
{
  auto rows = db_.openRecordset("select * from Einstellungen");
  rows.findFirst("Einstellung = ?", {key});
  return rows;
}

std::optional<std::string> StoredSettings::value(std::string_view key) const
{
  const auto row = find(key);
  if (row.noMatch())
    return std::nullopt;
  return row.value("Wert").text();
}

void StoredSettings::set(std::string_view key, std::string_view value)
{
  auto row = find(key);
  if (row.noMatch()) {
    row.addNew();
    row.set("Einstellung", key);
  } else {
    row.edit();
  }
  row.set("Wert", value);
  row.update();
}

void StoredSettings::edit(std::string_view key, std::string_view value)
{
  auto row = find(key);
  if (row.noMatch())
    throw base::Error(base::ErrorNumber::NoCurrentRecord,
                      base::format("Kein aktueller Datensatz: In \"Einstellungen\" fehlt \"{}\"", key));
  row.edit();
  row.set("Wert", value);
  row.update();
}

std::vector<StoredSettings::Row> StoredSettings::rows() const
{
  std::vector<Row> out;
  for (auto rows = db_.openRecordset("select * from Einstellungen"); !rows.eof(); rows.moveNext())
    out.push_back({rows.value("Einstellung").text(), rows.value("Wert").text()});
  return out;
}

} // namespace mrd::settings
