#include "shop/article_data.h"

#include "base/format.h"
#include "base/text.h"

#include <algorithm>

namespace mrd::shop {
namespace {

constexpr std::array<std::string_view, kArticleColumns> kColumns{"Artikelnummer", "Artikel_deutsch", "Artikel_englisch",
                                                                 "Preis_Euro", "Preis_Dollar"};
constexpr std::string_view kRecordSource = "SELECT * FROM Artikel Order By Artikelnummer";
constexpr std::string_view kOneRecord = "SELECT * FROM Artikel WHERE Artikelnummer = ?";

bool isPrice(std::size_t column) { return column == kEuro || column == kDollar; }

} // namespace

ArticleData::ArticleData(dao::Database& db, ArticleTexts& txtFields, Decimals decimals, ArticleDataEvents events)
    : db_(db), txtFields_(txtFields), decimals_(decimals), events_(std::move(events))
{
}

std::span<const std::string_view, kArticleColumns> ArticleData::columns() { return kColumns; }

bool ArticleData::guarded(const std::function<void()>& work)
{
  try {
    work();
    return true;
  } catch (const base::Error& error) {
    events_.Error(error);
    return false;
  }
}

bool ArticleData::Refresh()
{
  return guarded([&] {
    keys_.clear();
    for (auto rows = db_.openSnapshot(kRecordSource); !rows.eof(); rows.moveNext())
      keys_.push_back(rows.value(kColumns[kNumber]).integer());
    show(0);
  });
}

bool ArticleData::move(DataAction action)
{
  return guarded([&] {
    const int last = static_cast<int>(keys_.size()) - 1;
    const auto target = [&](int from) {
      switch (action) {
      case DataAction::MoveFirst:
        return 0;
      case DataAction::MovePrevious:
        return from - 1;
      case DataAction::MoveNext:
        return from + 1;
      default:
        return last;
      }
    };
    validate(action);
    const int from = position_;
    saveChanges();
    show(std::max(0, target(from)));
  });
}

bool ArticleData::AddNew()
{
  return guarded([&] {
    validate(DataAction::AddNew);
    saveChanges();
    adding_ = true;
    bind({});
  });
}

bool ArticleData::Delete()
{
  return guarded([&] {
    validate(DataAction::Delete);
    if (!adding_) {
      if (position_ < 0)
        throw base::Error(base::ErrorNumber::NoCurrentRecord, "Kein aktueller Datensatz.");
      const auto place = keys_.begin() + position_;
      db_.execute("DELETE * FROM Artikel WHERE Artikelnummer = ?", {dao::Value(*place)});
      keys_.erase(place);
    }
    show(position_);
  });
}

bool ArticleData::UpdateRecord()
{
  return guarded([&] {
    write();
    validate(DataAction::Bookmark);
    show(position_);
  });
}

bool ArticleData::findFirst(std::int64_t number)
{
  bool found = false;
  return guarded([&] {
           validate(DataAction::Find);
           saveChanges();
           const auto place = std::ranges::find(keys_, number);
           found = place != keys_.end();
           show(found ? static_cast<int>(place - keys_.begin()) : position_);
         }) &&
         found;
}

bool ArticleData::leave()
{
  return guarded([&] {
    const bool stores = isDirty();
    saveChanges();
    if (stores)
      show(position_);
  });
}

void ArticleData::saveChanges()
{
  if (isDirty())
    write();
  adding_ = false;
}

void ArticleData::write()
{
  // Boxes that were filled in where there is no record make one.
  const bool isNew = adding_ || position_ < 0;
  auto rows = isNew ? db_.openRecordset("Artikel")
                    : db_.openRecordset(kOneRecord, {dao::Value(keys_[static_cast<std::size_t>(position_)])});
  isNew ? rows.addNew() : rows.edit();
  for (std::size_t column = kGerman; column < kArticleColumns; ++column)
    if (txtFields_[column] != shown_[column])
      rows.set(kColumns[column], valueOf(column));
  rows.update();
  if (isNew) {
    rows.moveLast();
    keys_.push_back(rows.value(kColumns[kNumber]).integer());
    position_ = static_cast<int>(keys_.size()) - 1;
  }
  adding_ = false;
  shown_ = txtFields_;
}

dao::Value ArticleData::valueOf(std::size_t column) const
{
  const std::string& text = txtFields_[column];
  if (base::trim(text).empty())
    return dao::Null{};
  if (!isPrice(column))
    return text;
  const auto price = decimals_.read(text);
  if (!price)
    throw base::Error(base::ErrorNumber::TypeMismatch, base::format("Das ist keine Zahl: {}", text));
  return *price;
}

void ArticleData::show(int position)
{
  adding_ = false;
  position_ = std::min(position, static_cast<int>(keys_.size()) - 1);
  bind(position_ < 0 ? ArticleTexts{} : textsOf(keys_[static_cast<std::size_t>(position_)]));
  caption = base::format("Datensatz: {}", position_ + 1);
  events_.Reposition();
}

ArticleTexts ArticleData::textsOf(std::int64_t key)
{
  const auto rows = db_.openSnapshot(kOneRecord, {dao::Value(key)});
  ArticleTexts texts;
  for (std::size_t column = 0; column < kArticleColumns && !rows.eof(); ++column) {
    const auto value = rows.value(kColumns[column]);
    const bool isNumber = isPrice(column) && !value.isNull() && !std::holds_alternative<std::string>(value.content());
    texts[column] = isNumber ? decimals_.text(value.number()) : value.text();
  }
  return texts;
}

void ArticleData::bind(const ArticleTexts& texts) { txtFields_ = shown_ = texts; }

} // namespace mrd::shop
