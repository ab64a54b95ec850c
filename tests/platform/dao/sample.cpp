#include "platform/dao/sample.h"

#include <sqlite3.h>

#include <stdexcept>

namespace mrd::dao {
namespace {

constexpr std::string_view kTables[] = {
    "CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG, script MEMO, changingdate "
    "DATE, "
    "expanded BIT)",
    "CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)",
    "CREATE TABLE Dateien (pfad TEXT, dateiname TEXT, erweiterung TEXT, [dateityp-id] LONG, übertragen BIT, dateidatum DATE, "
    "pfadLokal TEXT)",
    "CREATE TABLE Messages (MsgNo LONG, MsgLang TEXT, MsgActive BIT, MsgPrompt1 MEMO)",
    "CREATE TABLE tbl_Language (FormName TEXT, ControlType TEXT, controlname TEXT, [Index] TEXT, [Language] TEXT)",
};

} // namespace

Sample::Sample() : database_(Database::create(path()))
{
  for (const auto table : kTables)
    database_.execute(table);
}

void Sample::page(std::string_view id, Value heading, Value type)
{
  database_.execute("INSERT INTO Seite (id, Überschrift, [seitentyp-id]) VALUES (?, ?, ?)",
                    {id, std::move(heading), std::move(type)});
}

std::vector<std::string> Sample::column(std::string_view statement, std::string_view name, const Parameters& parameters)
{
  std::vector<std::string> out;
  for (auto rows = database_.openRecordset(statement, parameters); !rows.eof(); rows.moveNext())
    out.push_back(rows.value(name).isNull() ? "NULL" : rows.value(name).text());
  return out;
}

void runPlainSql(const support::TemporaryDirectory& directory, const std::string& name, const std::string& sql)
{
  sqlite3* connection = nullptr;
  const std::string file = (directory.native() / name).string();
  const bool done = sqlite3_open(file.c_str(), &connection) == SQLITE_OK &&
                    sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  const std::string reason = sqlite3_errmsg(connection);
  sqlite3_close(connection);
  if (!done)
    throw std::runtime_error(reason);
}

int errorOf(const std::function<void()>& action)
{
  try {
    action();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

std::string descriptionOf(const std::function<void()>& action)
{
  try {
    action();
  } catch (const base::Error& error) {
    return error.description();
  }
  return {};
}

} // namespace mrd::dao
