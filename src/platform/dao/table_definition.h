#pragma once
// CREATE TABLE, CREATE INDEX, ALTER TABLE .. ADD COLUMN and DROP TABLE.

#include "platform/dao/schema.h"
#include "platform/dao/tokens.h"

#include <string>

namespace mrd::dao {

/// The engine's form of a defining statement. What it writes into a file's schema any tool of the engine understands. Throws
/// base::Error: SyntaxError, ItemNotFound for a table that is missing, EngineError for a name that is taken.
std::string definitionSql(TokenReader& reader, const Schema* schema);

} // namespace mrd::dao
