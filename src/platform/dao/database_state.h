#pragma once
// What a database holds. For the sources of this folder only.

#include "platform/dao/database.h"
#include "platform/dao/engine.h"
#include "platform/dao/file_schema.h"

#include <memory>
#include <utility>

namespace mrd::dao {

struct Database::State {
  explicit State(std::unique_ptr<Connection> opened) : connection(std::move(opened)), schema(*connection) {}

  std::unique_ptr<Connection> connection;
  FileSchema schema;
};

} // namespace mrd::dao
