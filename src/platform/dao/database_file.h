#pragma once
// Files before and behind the engine: what can be said of them without it, and what makes one fit for use. For the sources of
// this folder only.

#include "platform/dao/engine.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace mrd::dao {

/// Opens a file that is there. Throws as Database::open does.
std::unique_ptr<Connection> openFile(const std::filesystem::path& native, std::string_view path, bool readOnly);

/// Makes a new file. Throws PathFileAccess.
std::unique_ptr<Connection> createFile(const std::filesystem::path& native, std::string_view path);

} // namespace mrd::dao
