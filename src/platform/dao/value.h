#pragma once
// One field's content.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace mrd::dao {

struct Null {
  bool operator==(const Null&) const = default;
};

/// Null, an integer (also yes/no), a double or a text. Text is valid UTF-8: foreign bytes are repaired when they are read.
class Value {
public:
  Value() = default;
  Value(Null) {}
  Value(std::int64_t number) : content_(number) {}
  Value(int number) : content_(std::int64_t{number}) {}
  Value(double number) : content_(number) {}
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}
  /// Yes/no is stored as 1 and 0.
  static Value yesNo(bool yes) { return Value(std::int64_t{yes}); }

  bool isNull() const { return std::holds_alternative<Null>(content_); }
  /// The text form; the empty text for Null.
  std::string text() const;
  /// The number, cut towards zero; of a text the number at its start; 0 for Null.
  std::int64_t integer() const;
  double number() const;
  /// Any number but 0 is true.
  bool yes() const { return number() != 0; }

  const std::variant<Null, std::int64_t, double, std::string>& content() const { return content_; }
  bool operator==(const Value&) const = default;

private:
  std::variant<Null, std::int64_t, double, std::string> content_;
};

/// The text that bytes of a file stand for: the bytes themselves where they are UTF-8, else repaired.
std::string storedText(std::string_view bytes);
/// The same, into a buffer that is used again and again.
void assignStoredText(std::string& out, std::string_view bytes);

} // namespace mrd::dao
