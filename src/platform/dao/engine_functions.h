#pragma once
// What the dialect needs beyond the engine's own functions. For the sources of this folder only.

struct sqlite3;

namespace mrd::dao {

/// Registers the collation and the mrd_ functions on a connection. Throws std::bad_alloc.
void registerFunctions(sqlite3* connection);

} // namespace mrd::dao
