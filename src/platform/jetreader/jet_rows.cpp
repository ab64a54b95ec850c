#include "platform/jetreader/jet_rows.h"

#include "platform/jetreader/jet_text.h"
#include "platform/jetreader/output.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <mdbtools.h>
#include <set>
#include <stdexcept>
#include <utility>

namespace mrd::jetreader {
namespace {

constexpr int kDeleted = 0x8000, kMoved = 0x4000, kPlace = 0x1fff;
constexpr std::size_t kMemoHeader = 12, kPointer = 4;
constexpr std::uint32_t kMemoInRow = 0x80000000, kMemoOnOnePage = 0x40000000, kMemoLength = 0x3fffffff;
constexpr const char* kUnreadable = "Die Datei ist beschädigt und kann nicht gelesen werden.";
constexpr std::size_t kLongestMemo = std::size_t{32} << 20;

Column describe(const MdbColumn& column)
{
  const std::string name(column.name, strnlen(column.name, sizeof column.name));
  switch (column.col_type) {
  case MDB_BOOL:
    return {name, Type::Yes, "BIT"};
  case MDB_BYTE:
  case MDB_INT:
    return {name, Type::Integer, "LONG"};
  case MDB_LONGINT:
    return {name, Type::Integer, column.is_long_auto ? "COUNTER" : "LONG"};
  case MDB_FLOAT:
  case MDB_DOUBLE:
  case MDB_MONEY:
    return {name, Type::Double, "DOUBLE"};
  case MDB_DATETIME:
    return {name, Type::Date, "DATE"};
  case MDB_TEXT:
    return {name, Type::Text, "TEXT"};
  case MDB_MEMO:
    return {name, Type::Memo, "MEMO"};
  default:
    return {name, Type::Other, ""};
  }
}

std::uint32_t number32(std::string_view bytes, std::size_t at)
{
  std::uint32_t out = 0;
  for (std::size_t i = 4; i-- > 0;)
    out = out << 8 | static_cast<unsigned char>(bytes[at + i]);
  return out;
}

/// Number fields as eight bytes, whatever width the file has them in.
template <typename T>
std::string widened(T value)
{
  std::string out(8, '\0');
  std::memcpy(out.data(), &value, sizeof value);
  return out;
}

std::string numberField(int type, unsigned char* page, int start)
{
  switch (type) {
  case MDB_BYTE:
    return widened<std::int64_t>(page[start]);
  case MDB_INT:
    return widened<std::int64_t>(static_cast<std::int16_t>(mdb_get_int16(page, start)));
  case MDB_LONGINT:
    return widened<std::int64_t>(static_cast<std::int32_t>(mdb_get_int32(page, start)));
  case MDB_FLOAT:
    return widened<double>(mdb_get_single(page, start));
  case MDB_MONEY: {
    std::int64_t hundredthsOfCents = 0;
    std::memcpy(&hundredthsOfCents, page + start, sizeof hundredthsOfCents);
    return widened<double>(static_cast<double>(hundredthsOfCents) / 10000);
  }
  default:
    return widened<double>(mdb_get_double(page, start));
  }
}

int width(int type)
{
  switch (type) {
  case MDB_BYTE:
    return 1;
  case MDB_INT:
    return 2;
  case MDB_LONGINT:
  case MDB_FLOAT:
    return 4;
  default:
    return 8;
  }
}

bool isZero(const unsigned char* bytes, std::size_t count)
{
  return std::all_of(bytes, bytes + count, [](unsigned char byte) { return byte == 0; });
}

/// The header holds the password, veiled; the library has lifted the first veil, and in version 4 the day on which the file was
/// made is the second.
bool hasPassword(MdbHandle& mdb)
{
  constexpr std::size_t kPassword = 0x42, kDay = 0x72, kLength3 = 14, kLength4 = 40;
  unsigned char* const header = mdb.pg_buf;
  if (IS_JET3((&mdb)))
    return !isZero(header + kPassword, kLength3);
  const auto day = mdb_get_double(header, kDay);
  const auto veil = day > -1e6 && day < 1e7 ? static_cast<std::uint32_t>(static_cast<std::int32_t>(day)) : 0;
  std::array<unsigned char, kLength4> password{};
  for (std::size_t i = 0; i < kLength4; ++i)
    password[i] = header[kPassword + i] ^ static_cast<unsigned char>(veil >> 8 * (i % 4));
  return !isZero(password.data(), password.size());
}

} // namespace

struct JetFile::State {
  MdbHandle* mdb = nullptr;

  ~State()
  {
    if (mdb != nullptr)
      mdb_close(mdb);
  }

  std::size_t pageSize() const { return static_cast<std::size_t>(mdb->fmt->pg_size); }

  /// A piece of a memo on a page for such.
  std::optional<std::string> piece(std::uint32_t pointer)
  {
    void* page = nullptr;
    int start = 0;
    std::size_t length = 0;
    if (mdb_find_pg_row(mdb, static_cast<int>(pointer), &page, &start, &length) != 0)
      return std::nullopt;
    start &= kPlace;
    const auto* const bytes = static_cast<const char*>(page);
    if (bytes[0] != MDB_PAGE_DATA || std::memcmp(bytes + 4, "LVAL", 4) != 0 || start + length > pageSize())
      return std::nullopt;
    return std::string(bytes + start, length);
  }

  /// False when it is incomplete; `out` has what was found.
  bool memo(std::string_view field, std::string& out)
  {
    if (field.size() < kMemoHeader)
      return field.empty();
    const auto header = number32(field, 0);
    const std::size_t length = std::min<std::size_t>(header & kMemoLength, kLongestMemo);
    if (header & kMemoInRow) {
      out = field.substr(kMemoHeader, length);
    } else if (header & kMemoOnOnePage) {
      out = piece(number32(field, 4)).value_or("").substr(0, length);
    } else {
      // A piece that brings nothing ends the chain, so that a ring comes to an end with the length at the latest.
      for (auto next = number32(field, 4); next != 0 && out.size() < length;) {
        const auto part = piece(next);
        if (!part || part->size() <= kPointer)
          break;
        out += part->substr(kPointer, length - out.size());
        next = number32(*part, 0);
      }
    }
    return out.size() == (header & kMemoLength);
  }

  /// A field's bytes from the page that is current.
  Field field(const MdbColumn& column, const MdbField& cracked, bool& complete)
  {
    if (cracked.is_null || describe(column).type == Type::Other)
      return std::nullopt;
    if (column.col_type == MDB_BOOL)
      return "";
    const auto start = static_cast<std::size_t>(cracked.start), size = static_cast<std::size_t>(cracked.siz);
    if (cracked.start < 0 || cracked.siz < 0 || start + size > pageSize()) {
      complete = false;
      return std::nullopt;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(mdb->pg_buf) + start, size);
    if (column.col_type == MDB_TEXT)
      return std::string(bytes);
    if (column.col_type == MDB_MEMO) {
      std::string text;
      complete = memo(bytes, text) && complete;
      return text;
    }
    if (cracked.siz < width(column.col_type)) {
      complete = false;
      return std::nullopt;
    }
    return numberField(column.col_type, mdb->pg_buf, cracked.start);
  }
};

namespace {

/// One table's definition and the walk over its rows.
class Walk {
public:
  Walk(MdbHandle* mdb, unsigned long page)
  {
    entry_.mdb = mdb;
    entry_.object_type = MDB_TABLE;
    entry_.table_pg = page;
    table_ = mdb_read_table(&entry_);
    if (table_ != nullptr && mdb_read_columns(table_) == nullptr)
      close();
    if (table_ != nullptr && !hasSoundMap())
      close();
  }
  ~Walk() { close(); }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;

  explicit operator bool() const { return table_ != nullptr; }
  MdbTableDef* table() { return table_; }
  std::size_t columns() const { return table_->columns->len; }
  const MdbColumn& column(std::size_t i) const { return *static_cast<MdbColumn*>(g_ptr_array_index(table_->columns, i)); }

private:
  /// The library walks the map of a table's pages unseen.
  bool hasSoundMap() const
  {
    return table_->usage_map != nullptr && table_->map_sz >= 5 && table_->usage_map[0] <= 1 && table_->num_cols <= 255 &&
           table_->columns->len == table_->num_cols;
  }
  void close()
  {
    if (table_ != nullptr)
      mdb_free_tabledef(std::exchange(table_, nullptr));
  }

  MdbCatalogEntry entry_{};
  MdbTableDef* table_ = nullptr;
};

/// Where a row lies: the page that is current and its place there.
struct Place {
  int start = 0;
  std::size_t length = 0;
  int flags = 0;
};

/// A row's entry in the row table of the page that is current.
std::optional<int> entryOf(MdbHandle* mdb, int row)
{
  const int table = mdb->fmt->row_count_offset;
  if (row >= mdb_get_int16(mdb->pg_buf, table) || table + 4 + 2 * row > mdb->fmt->pg_size)
    return std::nullopt;
  return mdb_get_int16(mdb->pg_buf, table + 2 + 2 * row);
}

std::optional<Place> placeOf(MdbHandle* mdb, int row)
{
  Place out;
  const auto entry = entryOf(mdb, row);
  if (!entry || mdb_find_row(mdb, row, &out.start, &out.length) != 0)
    return std::nullopt;
  out.flags = *entry;
  out.start &= kPlace;
  if (out.start + out.length > static_cast<std::size_t>(mdb->fmt->pg_size))
    return std::nullopt;
  return out;
}

/// Makes the page current that a moved row went to.
std::optional<Place> follow(MdbHandle* mdb, Place place, unsigned long table)
{
  constexpr int kMostMoves = 16;
  for (int moves = 0; moves < kMostMoves && (place.flags & kMoved); ++moves) {
    if (place.length < kPointer)
      return std::nullopt;
    const auto pointer = static_cast<std::uint32_t>(mdb_get_int32(mdb->pg_buf, place.start));
    if (mdb_read_pg(mdb, pointer >> 8) != mdb->fmt->pg_size || mdb->pg_buf[0] != MDB_PAGE_DATA ||
        static_cast<std::uint32_t>(mdb_get_int32(mdb->pg_buf, 4)) != table)
      return std::nullopt;
    const auto next = placeOf(mdb, static_cast<int>(pointer & 0xff));
    if (!next)
      return std::nullopt;
    place = *next;
  }
  return place.flags & kMoved ? std::nullopt : std::optional(place);
}

} // namespace

/// The rows of a table, in the order of its pages.
class JetFile::RowWalk {
public:
  RowWalk(State& state, Walk& walk, unsigned long page, std::string_view name, const Row& row)
      : state_(state), mdb_(state.mdb), walk_(walk), page_(page), name_(name), row_(row), cracked_(256 + walk.columns()),
        fields_(walk.columns())
  {
    for (std::size_t i = 0; i < walk_.columns(); ++i)
      columns_.push_back(describe(walk_.column(i)));
  }

  const std::vector<Column>& columns() const { return columns_; }

  void run()
  {
    std::set<guint32> seen;
    while (mdb_read_next_dpg(walk_.table())) {
      const auto current = walk_.table()->cur_phys_pg;
      if (!seen.insert(current).second)
        break;
      const int most = static_cast<int>(mdb_->fmt->pg_size / 2);
      const int count = std::min<int>(mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset), most);
      for (int i = 0; i < count; ++i)
        visit(current, i);
    }
    // Whole pages of rows can be gone without a trace but this.
    const auto said = walk_.table()->num_rows;
    if (read_ + lost_ != said)
      note("Die Datei nennt " + std::to_string(said) + " Zeilen, gelesen wurden " + std::to_string(read_) + ".");
  }

private:
  void visit(guint32 current, int number)
  {
    // Whether the place of a deleted row makes sense does not matter any more.
    if (entryOf(mdb_, number).value_or(0) & kDeleted)
      return;
    auto place = placeOf(mdb_, number);
    const bool moved = place && (place->flags & kMoved);
    if (moved)
      place = follow(mdb_, *place, page_);
    if (place && place->length > 0 && mdb_crack_row(walk_.table(), place->start, place->length, cracked_.data()) >= 0) {
      take();
    } else {
      note("Eine Zeile ist beschädigt und fehlt.");
      ++lost_;
    }
    if (moved && mdb_read_pg(mdb_, current) != mdb_->fmt->pg_size)
      throw std::runtime_error(kUnreadable);
  }

  void take()
  {
    bool complete = true;
    for (std::size_t i = 0; i < fields_.size(); ++i)
      fields_[i] = state_.field(walk_.column(i), cracked_[i], complete);
    if (!complete)
      note("Eine Zeile ist unvollständig.");
    row_(columns_, fields_);
    ++read_;
  }

  void note(std::string_view what) const { leaveOut("Tabelle " + std::string(name_) + ": " + std::string(what)); }

  State& state_;
  MdbHandle* mdb_;
  Walk& walk_;
  unsigned long page_;
  std::string_view name_;
  const Row& row_;
  std::vector<Column> columns_;
  std::vector<MdbField> cracked_;
  std::vector<Field> fields_;
  std::size_t read_ = 0, lost_ = 0;
};

JetFile::JetFile(const char* path) : state_(std::make_unique<State>())
{
  state_->mdb = mdb_open(path, MDB_NOFLAGS);
  if (state_->mdb == nullptr)
    throw std::runtime_error(kUnreadable);
  if (hasPassword(*state_->mdb))
    throw std::runtime_error(
        "Die Datenbank ist mit einem Kennwort geschützt. Bitte entfernen Sie es zuerst mit dem alten Programm.");
}

JetFile::~JetFile() = default;

bool JetFile::walk(unsigned long page, std::string_view name, const Columns& columns, const Row& row)
{
  Walk walk(state_->mdb, page);
  if (!walk)
    return false;
  RowWalk rows(*state_, walk, page, name, row);
  columns(rows.columns());
  rows.run();
  return true;
}

std::string JetFile::text(const std::string& bytes)
{
  MdbHandle* const mdb = state_->mdb;
  if (!IS_JET3(mdb))
    return textOfVersion4(bytes);
  std::string out(bytes.size() * 4 + 16, '\0');
  const int length = mdb_unicode2ascii(mdb, bytes.data(), bytes.size(), out.data(), out.size());
  out.resize(static_cast<std::size_t>(std::max(length, 0)));
  return out;
}

} // namespace mrd::jetreader
