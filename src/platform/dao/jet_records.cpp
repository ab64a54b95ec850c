#include "platform/dao/jet_records.h"

#include "base/errors.h"
#include "platform/dao/jet_wire.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace mrd::dao {
namespace {

using wire::Field;
using wire::Record;

[[noreturn]] void fail(const std::string& reason) { throw base::Error(base::ErrorNumber::NotADatabase, reason); }

[[noreturn]] void failGarbled() { fail("Die Datei ist beschädigt und kann nicht gelesen werden."); }

/// Numbers and texts out of the stream of bytes.
class Words {
public:
  explicit Words(JetBytes& bytes) : bytes_(bytes) {}

  std::uint64_t number(std::size_t width)
  {
    std::array<unsigned char, 8> raw{};
    take(reinterpret_cast<char*>(raw.data()), width);
    std::uint64_t out = 0;
    for (std::size_t i = width; i-- > 0;)
      out = out << 8 | raw[i];
    return out;
  }

  std::string text()
  {
    const auto length = number(4);
    if (length > wire::kLongestText)
      fail("Die Datei ist beschädigt: Ein Text ist zu lang.");
    // Grows with what really comes.
    std::string out;
    while (out.size() < length) {
      const auto old = out.size();
      out.resize(std::min<std::size_t>(length, old + buffer_.size()));
      take(out.data() + old, out.size() - old);
    }
    return storedText(out);
  }

  void greeting()
  {
    std::string start(wire::kGreeting.size(), '\0');
    take(start.data(), start.size());
    if (start != wire::kGreeting)
      fail("Das Leseprogramm für alte Datenbanken gehört zu einer anderen Version.");
  }

private:
  void take(char* target, std::size_t count)
  {
    while (count > 0) {
      if (begin_ == end_) {
        begin_ = 0;
        end_ = bytes_.read(buffer_.data(), buffer_.size());
      }
      const auto part = std::min(count, end_ - begin_);
      std::memcpy(target, buffer_.data() + begin_, part);
      begin_ += part;
      target += part;
      count -= part;
    }
  }

  JetBytes& bytes_;
  std::array<char, 65536> buffer_{};
  std::size_t begin_ = 0, end_ = 0;
};

JetTable readTable(Words& words)
{
  JetTable table{words.text(), {}};
  const auto count = words.number(2);
  if (count > wire::kMostColumns)
    failGarbled();
  for (std::uint64_t i = 0; i < count; ++i) {
    auto name = words.text();
    table.columns.push_back({std::move(name), words.text()});
  }
  return table;
}

Value readField(Words& words)
{
  switch (static_cast<Field>(words.number(1))) {
  case Field::Null:
    return Null{};
  case Field::Integer:
    return static_cast<std::int64_t>(words.number(8));
  case Field::Double:
    return std::bit_cast<double>(words.number(8));
  case Field::Text:
    return words.text();
  }
  failGarbled();
}

std::vector<Value> readRow(Words& words, std::size_t columns)
{
  std::vector<Value> values;
  values.reserve(columns);
  for (std::size_t i = 0; i < columns; ++i)
    values.push_back(readField(words));
  return values;
}

} // namespace

void readJetRecords(JetBytes& bytes, JetSink& sink)
{
  Words words(bytes);
  words.greeting();
  std::size_t columns = 0;
  for (;;) {
    switch (static_cast<Record>(words.number(1))) {
    case Record::Table: {
      auto table = readTable(words);
      columns = table.columns.size();
      sink.table(std::move(table));
      break;
    }
    case Record::Row:
      if (columns == 0)
        failGarbled();
      sink.row(readRow(words, columns));
      break;
    case Record::LeftOut:
      sink.leftOut(words.text());
      break;
    case Record::Failure:
      fail(words.text());
    case Record::End:
      return;
    default:
      failGarbled();
    }
  }
}

} // namespace mrd::dao
