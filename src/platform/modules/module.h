#pragma once
// Parts of the program that are loaded when they are needed for the first time.

#include "base/errors.h"

namespace mrd::modules {

/// The function that a module exports under a name. `module` is a file name, looked for along the search path of the programs.
/// Loads the module, which stays for the rest of the process. Throws base::Error with the number `missing` and the loader's words
/// when there is no such module or function.
void* functionOf(const char* module, const char* name, base::ErrorNumber missing);

} // namespace mrd::modules
