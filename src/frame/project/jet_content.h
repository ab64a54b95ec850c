#pragma once
// The tables of an old database on their way into a new project.

#include "platform/dao/database.h"
#include "platform/dao/jet_file.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::project {

/// Makes each table that comes, with its columns and rows as they are. The reading library does not notice all damage: what
/// cannot be what it claims to be is left out and noted, so that a project never holds a page that nothing can reach, or two of
/// one number.
class JetContent : public dao::JetSink {
public:
  /// Of a new database with a transaction open.
  explicit JetContent(dao::Database& db) : db_(db) {}

  void table(dao::JetTable table) override;
  void row(std::vector<dao::Value> values) override;
  void leftOut(std::string what) override;

  /// Brings what every project has and the file lacks, and checks the rest. `name` is how the user knows the file. Throws
  /// base::Error (NotADatabase) where it holds no project.
  void finish(std::string_view name);

  /// What was left out, in words for the user.
  const std::vector<std::string>& notes() const { return notes_; }

private:
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  void note(std::string_view what);
  void rememberPlace(std::string_view column, std::size_t place);
  bool acceptPage(const std::vector<dao::Value>& values);
  bool acceptCounter(const std::vector<dao::Value>& values);
  void noteEmptyColumns();
  void completeTables();
  void completeRoot();
  void noteMissingParents();
  void lowerDamagedVersion();

  dao::Database& db_;
  std::vector<std::string> notes_;

  // The table at hand.
  std::string name_;
  /// Empty where the table cannot be made.
  std::string insert_;
  /// Places of the columns that are taken over.
  std::vector<std::size_t> taken_;
  /// Places of columns with a meaning for the checks.
  std::size_t id_ = kNowhere, heading_ = kNowhere, counter_ = kNowhere;
  std::set<std::int64_t> counters_;

  std::set<std::string> pages_;
};

} // namespace mrd::project
