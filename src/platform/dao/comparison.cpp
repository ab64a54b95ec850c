#include "platform/dao/comparison.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mrd::dao {
namespace {

using base::format;

constexpr std::string_view kDigits = "0123456789";

std::string trimmedRight(std::string_view text)
{
  const auto last = text.find_last_not_of(' ');
  return std::string(text.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

bool isDigitsOnly(std::string_view text) { return !text.empty() && text.find_first_not_of(kDigits) == std::string_view::npos; }

std::string_view mirrored(std::string_view op)
{
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kMirrored{
      {{"<", ">"}, {">", "<"}, {"<=", ">="}, {">=", "<="}}};
  const auto* const known = std::find_if(kMirrored.begin(), kMirrored.end(), [op](const auto& pair) { return pair.first == op; });
  return known == kMirrored.end() ? op : known->second;
}

/// A condition that the engine can look up in an index and that holds wherever `column op digits` does: digits have no case, so
/// that a text equal to them differs at most by blanks behind it, and "!" is the sign behind the blank. Empty where there is
/// none.
std::string indexableBound(const std::string& column, std::string_view op, const std::string& digits)
{
  const std::string from = quotedText(digits);
  const std::string behind = quotedText(digits + "!");
  if (op == "=")
    return format("{0} >= {1} AND {0} < {2} AND ", column, from, behind);
  if (op == "<")
    return format("{} < {} AND ", column, from);
  if (op == "<=")
    return format("{} < {} AND ", column, behind);
  if (op == ">" || op == ">=")
    return format("{} >= {} AND ", column, from);
  return {};
}

bool isTextColumn(const Expression& expression)
{
  return expression.role == Expression::Role::Column && expression.type == ContentType::Text;
}

std::string textComparison(const Expression& left, std::string_view op, const Expression& right)
{
  std::string bound;
  if (isTextColumn(left) && right.literal) {
    const std::string digits = trimmedRight(*right.literal);
    if (isDigitsOnly(digits))
      bound = indexableBound(left.sql, op, digits);
  }
  return format("({}{} {} {} COLLATE {})", bound, left.sql, op, right.sql, kTextCollation);
}

/// The number that a text beside a number stands for.
std::string asNumber(const Expression& expression)
{
  if (expression.type != ContentType::Text)
    return expression.sql;
  if (!expression.literal)
    return format("mrd_number({})", expression.sql);
  const std::string text = base::trim(*expression.literal);
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || text.find_first_of("in") != std::string::npos)
    throw base::Error(base::ErrorNumber::TypeMismatch,
                      format("Der Text '{}' wird mit einer Zahl verglichen.", *expression.literal));
  return format("mrd_number({})", expression.sql);
}

std::string truthComparison(const Expression& value, std::string_view op, bool truth)
{
  if (op != "=" && op != "<>")
    failSyntax(op);
  // A column of any type reads as yes exactly when its number is not 0, as it does where a field's value is read.
  const bool yes = truth == (op == "=");
  return format("(CAST({} AS REAL) {} 0)", value.sql, yes ? "<>" : "=");
}

/// The digits at the start of a pattern, and whether they are all of it.
struct PatternStart {
  std::string digits;
  bool whole;
};

PatternStart patternStart(std::string_view pattern)
{
  const std::string trimmed = trimmedRight(pattern);
  const auto end = trimmed.find_first_not_of(kDigits);
  return {trimmed.substr(0, end), end == std::string::npos};
}

} // namespace

std::string comparisonSql(const Expression& left, std::string_view op, const Expression& right)
{
  if (right.truth)
    return truthComparison(left, op, *right.truth);
  if (left.truth)
    return truthComparison(right, op, *left.truth);
  const bool number = left.type == ContentType::Number || right.type == ContentType::Number;
  const bool text = left.type == ContentType::Text || right.type == ContentType::Text;
  if (number && text)
    return format("({} {} {})", asNumber(left), op, asNumber(right));
  if (left.type == ContentType::Number && right.type == ContentType::Number)
    return format("({} {} {})", left.sql, op, right.sql);
  if (left.literal && !right.literal)
    return textComparison(right, mirrored(op), left);
  return textComparison(left, op, right);
}

std::string likeSql(const Expression& left, const Expression& pattern)
{
  std::string bound;
  if (isTextColumn(left) && pattern.literal) {
    const auto start = patternStart(*pattern.literal);
    std::string behind = start.digits;
    if (!behind.empty())
      ++behind.back();
    if (start.whole && !start.digits.empty())
      bound = indexableBound(left.sql, "=", start.digits);
    else if (!start.digits.empty())
      bound = format("{0} >= {1} AND {0} < {2} AND ", left.sql, quotedText(start.digits), quotedText(behind));
  }
  return format("({}mrd_like({}, {}))", bound, left.sql, pattern.sql);
}

std::string inTextOrder(const Expression& expression)
{
  return expression.type == ContentType::Number ? expression.sql : format("{} COLLATE {}", expression.sql, kTextCollation);
}

} // namespace mrd::dao
