#pragma once
// Tables of a Jet file, walked by the row tables of their pages. The library's own row reader takes stale copies of edited rows
// for rows and loses moved ones, hence the walk here; it keeps to what the file can hold wherever a damaged one would lead it.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::jetreader {

enum class Type { Yes, Integer, Double, Date, Text, Memo, Other };

struct Column {
  std::string name;
  Type type;
  /// As a statement writes it.
  std::string declared;
};

/// Bytes of a field; nothing for Null. A yes/no column has an empty text for yes.
using Field = std::optional<std::string>;

/// An open file.
class JetFile {
public:
  /// Throws std::runtime_error with words for the user.
  explicit JetFile(const char* path);
  ~JetFile();

  using Columns = std::function<void(const std::vector<Column>&)>;
  using Row = std::function<void(const std::vector<Column>&, std::vector<Field>&)>;
  /// Walks the table whose definition is on this page. False, with nothing called, when there is none.
  bool walk(unsigned long page, std::string_view name, const Columns& columns, const Row& row);

  /// UTF-8 of a text field's bytes.
  std::string text(const std::string& bytes);

private:
  struct State;
  class RowWalk;
  std::unique_ptr<State> state_;
};

} // namespace mrd::jetreader
