#pragma once
// The schema of an open file. For the sources of this folder only.

#include "platform/dao/engine.h"
#include "platform/dao/schema.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// Reads what it is asked for and keeps it until the file's schema changes.
class FileSchema : public Schema {
public:
  explicit FileSchema(const Connection& connection) : connection_(connection) {}

  /// Forgets what another change of the schema made stale. To be called before a statement is translated.
  void refresh();
  const TableDescription* table(std::string_view name) const override;

private:
  struct Entry {
    std::string name;
    /// A view or a virtual table.
    bool isView;
  };

  TableDescription describe(const Entry& entry) const;
  bool hasRowKey(const TableDescription& table, const char* key) const;

  const Connection& connection_;
  std::int64_t version_ = -1;
  std::vector<Entry> entries_;
  mutable std::map<std::string, TableDescription, std::less<>> described_;
};

} // namespace mrd::dao
