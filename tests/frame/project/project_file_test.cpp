#include "base/errors.h"
#include "frame/project/project.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace mrd::project {
namespace {

using base::Error;
using base::ErrorNumber;
using testing::HasSubstr;

struct ProjectFileTest : testing::Test {
  support::TemporaryDirectory directory;

  /// What opening the file is refused with.
  Error refusal(std::string_view name)
  {
    try {
      openProject(directory.file(name));
    } catch (const Error& error) {
      return error;
    }
    ADD_FAILURE() << name << " was opened";
    return {ErrorNumber::EngineError, ""};
  }
};

TEST_F(ProjectFileTest, opens_with_its_tables)
{
  support::TemporaryProject project{{"00", "Start"}};

  auto db = openProject(project.file());

  EXPECT_EQ(db.openRecordset("Seite").recordCount(), 1u);
}

TEST_F(ProjectFileTest, of_an_old_version_opens_without_the_columns_that_came_later)
{
  {
    auto db = dao::Database::create(directory.file("alt.mdb"));
    db.execute("CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG)");
    db.execute("CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)");
  }

  EXPECT_NO_THROW(openProject(directory.file("alt.mdb")));
}

TEST_F(ProjectFileTest, that_lacks_a_table_is_refused_with_the_tables_name)
{
  {
    auto db = dao::Database::create(directory.file("fremd.mdb"));
    db.execute("CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)");
  }

  const auto error = refusal("fremd.mdb");

  EXPECT_EQ(error.kind(), ErrorNumber::NotADatabase);
  EXPECT_THAT(error.description(), HasSubstr("Die Tabelle \"Seite\" fehlt."));
}

TEST_F(ProjectFileTest, that_lacks_a_column_is_refused_with_the_columns_name)
{
  {
    auto db = dao::Database::create(directory.file("fremd.mdb"));
    db.execute("CREATE TABLE Seite (id TEXT, html MEMO)");
    db.execute("CREATE TABLE Einstellungen (Einstellung TEXT, Wert MEMO)");
  }

  EXPECT_THAT(refusal("fremd.mdb").description(), HasSubstr("In der Tabelle \"Seite\" fehlt die Spalte \"Überschrift\"."));
}

TEST_F(ProjectFileTest, that_is_no_database_or_not_there_is_refused)
{
  directory.write("brief.mdb", "Liebe Oma, das hier ist keine Datenbank, sondern ein Brief.");
  directory.write("leer.mdb", "");

  EXPECT_EQ(refusal("brief.mdb").kind(), ErrorNumber::NotADatabase);
  EXPECT_EQ(refusal("leer.mdb").kind(), ErrorNumber::NotADatabase);
  EXPECT_EQ(refusal("fehlt.mdb").kind(), ErrorNumber::FileNotFound);
}

TEST_F(ProjectFileTest, is_new_as_a_byte_copy_of_the_template)
{
  const std::string templateFile = std::string(MRD_PROGRAM_DIR) + "/mrdleer.mdb";
  std::string systemForm = templateFile;
  std::replace(systemForm.begin(), systemForm.end(), '/', '\\');

  copyTemplate(systemForm, directory.file("neu.mdb"));

  auto db = openProject(directory.file("neu.mdb"));
  auto pages = db.openRecordset("Select * from Seite");
  EXPECT_EQ(pages.recordCount(), 1u);
  EXPECT_EQ(pages.value("id").text(), "00");
  EXPECT_EQ(pages.value("Überschrift").text(), "Homepage");
  EXPECT_EQ(db.openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = 'dbVersion'").value("Wert").text(), "5");
  EXPECT_TRUE(db.hasTable("Dateien"));
  EXPECT_TRUE(db.hasTable("Artikel"));
}

TEST_F(ProjectFileTest, cannot_be_new_without_the_template)
{
  EXPECT_THROW(copyTemplate(directory.file("fehlt.mdb"), directory.file("neu.mdb")), Error);
}

} // namespace
} // namespace mrd::project
