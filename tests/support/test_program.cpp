#include "support/test_program.h"

#include "tools/database_text.h"

namespace mrd::support {

TestProgram::TestProgram() : files(directory.path()), language(files, ui)
{
  makeLanguageDatabase(files.file("\\language.mdb"));
  language.Sprachstart();
}

void makeLanguageDatabase(std::string_view path)
{
  auto db = dao::Database::create(path);
  dao::Transaction transaction(db);
  tools::runStatements(db, resourceText("language/schema.sql"));
  tools::insertRows(db, "Messages", resourceText("language/messages.tsv"));
  tools::insertRows(db, "tbl_Language", resourceText("language/captions.tsv"));
  transaction.commit();
}

} // namespace mrd::support
