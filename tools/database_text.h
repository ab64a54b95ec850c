#pragma once
// Databases kept as reviewable text: a file of statements for the tables, a tab-separated file for the rows of one table.

#include "platform/dao/database.h"

#include <string_view>

namespace mrd::tools {

/// Runs the statements of a text, each ended by a semicolon; lines that begin with "--" are comments.
void runStatements(dao::Database& db, std::string_view text);

/// Adds the rows of a text to a table: the first line names the columns, each further line is a row of as many cells. In a cell
/// `\t`, `\r`, `\n` and `\\` stand for a tab, the two characters of a line end and a backslash; a cell `\N` is Null. Lines that
/// begin with "#" are comments.
void insertRows(dao::Database& db, std::string_view table, std::string_view text);

} // namespace mrd::tools
