#pragma once
// The data control `Data1`: the articles of a project one after the other, the boxes that are bound to their columns, and what
// happens to changes when the user goes on to another article.

#include "base/errors.h"
#include "platform/dao/database.h"
#include "shop/decimals.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::shop {

inline constexpr std::size_t kArticleColumns = 5;
/// The texts of the bound boxes, in the order of ArticleData::columns().
using ArticleTexts = std::array<std::string, kArticleColumns>;
/// Their places.
inline constexpr std::size_t kNumber = 0, kGerman = 1, kEnglish = 2, kEuro = 3, kDollar = 4;

/// What is about to happen to the current record.
enum class DataAction : int { MoveFirst = 1, MovePrevious, MoveNext, MoveLast, AddNew, Update, Delete, Find, Bookmark, Close };

struct ArticleDataEvents {
  /// Something failed; nothing else shows it.
  std::function<void(const base::Error&)> Error = [](const base::Error&) {};
  /// Another record, or none, has become the current one.
  std::function<void()> Reposition = [] {};
  std::function<void(DataAction)> Validate = [](DataAction) {};
};

/// Leaving a record stores what was changed in the boxes. No operation throws base::Error: a failure is told by the event, the
/// boxes stay as they are then, and the answer is false.
class ArticleData {
public:
  ArticleData(dao::Database& db, ArticleTexts& txtFields, Decimals decimals, ArticleDataEvents events);

  /// Columns behind the boxes.
  static std::span<const std::string_view, kArticleColumns> columns();

  std::string caption;
  /// Place of the current record from 0, -1 without one.
  int AbsolutePosition() const { return position_; }
  std::size_t recordCount() const { return keys_.size(); }
  /// A new record is being filled in.
  bool isAdding() const { return adding_; }
  /// The boxes differ from the record.
  bool isDirty() const { return txtFields_ != shown_; }

  /// Reads the articles anew and shows the first; what is not stored is lost.
  bool Refresh();
  /// Goes to another record by one of the four moves. At an end it stays there.
  bool move(DataAction action);
  /// Empties the boxes for a new record.
  bool AddNew();
  /// Removes the record and goes to the next one, from the last to the one before; a new record is given up.
  bool Delete();
  /// Stores the boxes, also those of a record that is not there yet, and shows the record again.
  bool UpdateRecord();
  /// Shows the article with this number. False too when there is none; the current record then stays.
  bool findFirst(std::int64_t number);
  /// Stores what was changed, before the record is left for good.
  bool leave();

private:
  bool guarded(const std::function<void()>& work);
  void validate(DataAction action) { events_.Validate(action); }
  void saveChanges();
  void write();
  void show(int position);
  void bind(const ArticleTexts& texts);
  ArticleTexts textsOf(std::int64_t key);
  dao::Value valueOf(std::size_t column) const;

  dao::Database& db_;
  ArticleTexts& txtFields_;
  const Decimals decimals_;
  const ArticleDataEvents events_;
  /// Numbers of the articles, in their order.
  std::vector<std::int64_t> keys_;
  int position_ = -1;
  bool adding_ = false;
  /// The boxes as the record filled them.
  ArticleTexts shown_;
};

} // namespace mrd::shop
