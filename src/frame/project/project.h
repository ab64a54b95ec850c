#pragma once
// An open project database, and how a new one comes to be.

#include "platform/dao/database.h"

#include <string>
#include <string_view>

namespace mrd::project {

/// Opens a project database and checks that it is one: what is no database, or has no table `Seite` or `Einstellungen`, throws
/// base::Error (NotADatabase) with words for the user.
dao::Database openProject(std::string_view DbName);

/// Throws base::Error (NotADatabase) where a table or column is missing that even the oldest projects have. `DbName` is how the
/// user knows the file.
void checkTables(dao::Database& db, std::string_view DbName);

/// "C:\haus.mdb" to "C:\haus".
std::string withoutEnding(std::string_view DbName);

/// Copies the empty template over a new file. Throws base::Error.
void copyTemplate(std::string_view templateFile, std::string_view target);

} // namespace mrd::project
