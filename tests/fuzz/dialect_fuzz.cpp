// Fuzz target of the SQL dialect: any bytes as a statement and as criteria. What the translation accepts is run on a database
// with the tables of a project; whatever comes of it, an error of ours is the only exception, and the engine understands what was
// written.
//
// Built with clang and -fsanitize=fuzzer,address,undefined over mrd_dao; started with the folder dialect/ beside it as its
// corpus. Another compiler links a driver that calls LLVMFuzzerTestOneInput for each file named on its command line.

#include "base/errors.h"
#include "platform/dao/database.h"
#include "platform/dao/dialect.h"
#include "platform/files/path.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

using mrd::dao::Database;
using mrd::dao::Parameters;
using mrd::dao::Value;

constexpr std::string_view kTables[] = {
    "CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG, script MEMO, changingdate "
    "DATE, "
    "expanded BIT)",
    "CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)",
    "CREATE TABLE Dateien (pfad TEXT, dateiname TEXT, erweiterung TEXT, [dateityp-id] LONG, übertragen BIT, dateidatum DATE, "
    "pfadLokal TEXT)",
    "CREATE TABLE Messages (MsgNo LONG, MsgLang TEXT, MsgActive BIT)",
    "CREATE TABLE tbl_Language (FormName TEXT, ControlType TEXT, controlname TEXT, Index TEXT, [Language] TEXT)",
};

/// The project that statements run on, undone after each input.
class Playground {
public:
  Playground()
      : file_(std::filesystem::temp_directory_path() / ("mrd-dialect-" + std::to_string(::getpid()) + ".mdb")),
        database_((std::filesystem::remove(file_), Database::create(mrd::files::systemPath(file_))))
  {
    for (const auto table : kTables)
      database_.execute(table);
    for (const char* id : {"00", "01", "0101", "02 ", "M03"})
      database_.execute("INSERT INTO Seite (id, Überschrift, [seitentyp-id]) VALUES (?, 'Äpfel', 1)", {id});
    database_.execute("INSERT INTO Einstellungen VALUES ('Titel', NULL)");
  }
  ~Playground()
  {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;

  void run(std::string_view statement)
  {
    mrd::dao::Transaction undone(database_);
    const auto translation = mrd::dao::translateStatement(statement);
    const Parameters parameters(translation.parameters, Value("x"));
    if (translation.kind != mrd::dao::Translation::Kind::Select) {
      database_.execute(statement, parameters);
      return;
    }
    auto rows = database_.openRecordset(statement, parameters);
    for (; !rows.eof(); rows.moveNext())
      for (std::size_t column = 0; column < rows.columns().size(); ++column)
        rows.value(column);
  }

  void find(std::string_view criteria)
  {
    const auto condition = mrd::dao::translateCriteria(criteria);
    const Parameters parameters(condition.parameters, Value("x"));
    for (const char* source : {"Seite", "SELECT DISTINCT Einstellung, Wert FROM Einstellungen"}) {
      try {
        auto rows = database_.openRecordset(source);
        rows.findFirst(criteria, parameters);
      } catch (const mrd::base::Error& error) {
        refuseBadTranslation(error);
      }
    }
  }

  /// What was translated is the engine's language: anything that it cannot read is a fault of the translation.
  static void refuseBadTranslation(const mrd::base::Error& error)
  {
    const std::string description = error.description();
    const auto marker = description.find("nicht ausführbar: ");
    if (!description.starts_with("Die Abfrage") || marker == std::string::npos)
      return;
    const std::string reason = description.substr(description.find(": ", marker) + 2);
    const bool fault = reason.ends_with("syntax error") || reason.starts_with("unrecognized token") ||
                       reason.starts_with("incomplete") || reason.starts_with("no such");
    if (fault) {
      std::cerr << description << '\n';
      std::abort();
    }
  }

private:
  std::filesystem::path file_;
  Database database_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static const auto playground = std::make_unique<Playground>();
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const auto attempt : {&Playground::run, &Playground::find}) {
    try {
      (*playground.*attempt)(text);
    } catch (const mrd::base::Error& error) {
      Playground::refuseBadTranslation(error);
    }
  }
  return 0;
}
