#pragma once
// The rows of the settings table.

#include "platform/dao/database.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::settings {

/// `Einstellungen` as keys with values. Keys ignore case; of several rows with a key only the first counts.
class StoredSettings {
public:
  struct Row {
    std::string key, value;
  };

  explicit StoredSettings(dao::Database& db) : db_(db) {}

  /// The value as it stands, Null as the empty text; nothing where there is no row.
  std::optional<std::string> value(std::string_view key) const;
  /// Writes the key's row and adds it where it is missing.
  void set(std::string_view key, std::string_view value);
  /// Writes a row that must be there; throws base::Error (NoCurrentRecord).
  void edit(std::string_view key, std::string_view value);
  /// All rows in the table's order.
  std::vector<Row> rows() const;

private:
  dao::Recordset find(std::string_view key) const;
  dao::Database& db_;
};

} // namespace mrd::settings
