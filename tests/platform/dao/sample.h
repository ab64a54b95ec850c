#pragma once
// Small databases for the tests of this folder.

#include "base/errors.h"
#include "platform/dao/database.h"
#include "support/temporary.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// An empty database with the tables of a project, in a directory of its own.
class Sample {
public:
  Sample();

  Database& db() { return database_; }
  const support::TemporaryDirectory& directory() const { return directory_; }
  std::string path() const { return directory_.file("projekt.mdb"); }

  /// A row of `Seite` with these fields.
  void page(std::string_view id, Value heading = {}, Value type = 1);
  /// A column of a statement's rows, each as text; Null is "NULL".
  std::vector<std::string> column(std::string_view statement, std::string_view name, const Parameters& parameters = {});
  /// Ids of a statement's rows.
  std::vector<std::string> ids(std::string_view statement) { return column(statement, "id"); }

private:
  support::TemporaryDirectory directory_;
  Database database_;
};

/// Runs SQL of the engine on a file, past everything of ours.
void runPlainSql(const support::TemporaryDirectory& directory, const std::string& name, const std::string& sql);

/// Number of the base::Error that `action` throws; 0 when it throws none.
int errorOf(const std::function<void()>& action);
/// Its description.
std::string descriptionOf(const std::function<void()>& action);

constexpr int number(base::ErrorNumber error) { return static_cast<int>(error); }

} // namespace mrd::dao
