#pragma once
// The last deletion or move of pages, and how it is taken back.

#include "frame/messages/messages.h"
#include "platform/dao/database.h"
#include "platform/dao/kept_rows.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pagetree {

class IdTable;

/// Remembers pages by the engine's numbers of their rows, which stay the same whatever becomes of an id. So what was saved since
/// then stays saved, under the old id again; and pages that were made since then follow their parents, behind their other
/// children.
class TreeUndo {
public:
  enum class Change { None, Deletion, Move };

  TreeUndo(dao::Database& db, messages::Language& language) : db_(db), language_(language) {}

  /// Runs a deletion of the page and all below it, or a move; `run` says whether it took place. One that changed pages is
  /// remembered in the place of the one before.
  void deletion(std::string_view id, const std::function<bool()>& run);
  void move(const std::function<bool()>& run);

  /// What undo() would take back.
  Change change() const { return last_ ? last_->change : Change::None; }
  /// Takes it back, once, in one transaction: all ids and all deleted rows are what they were. Returns the id of the page that
  /// was open then; nothing, with message 168, where the pages have changed in such a way that it cannot be. Nothing is changed
  /// then.
  std::optional<std::string> undo();

private:
  /// Ids by the numbers of their rows.
  using Ids = std::map<std::int64_t, std::string>;
  struct Last {
    Change change = Change::None;
    Ids before, after;
    dao::KeptRows deleted;
    std::string LastActivePage;
  };

  void remember(Change change, std::string_view deletedId, const std::function<bool()>& run);
  bool takeBack();
  /// Gives the rows of pages that came later their new ids; `places` leads from the present ids of the others to those of then.
  bool placeNewcomers(IdTable& pages, std::vector<std::size_t> rows, std::map<std::string, std::string> places) const;

  dao::Database& db_;
  messages::Language& language_;
  std::optional<Last> last_;
};

} // namespace mrd::pagetree
