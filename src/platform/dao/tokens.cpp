#include "platform/dao/tokens.h"

#include "base/clock.h"
#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mrd::dao {
namespace {

using base::DateTime;

constexpr std::array<std::string_view, 16> kOperators{"<>", "<=", ">=", "=", "<", ">", "(", ")",
                                                      ",",  ".",  "+",  "-", "*", "/", "&", ";"};

/// Words that a bare name of a table or column cannot be; in brackets all are allowed.
constexpr std::array<std::string_view, 24> kReserved{
    "select", "distinct", "top", "from", "where", "order", "by",   "asc",   "desc", "and",    "or",     "not",
    "like",   "between",  "in",  "is",   "null",  "as",    "true", "false", "set",  "values", "delete", "update"};

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool beginsName(char c)
{
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool continuesName(char c) { return beginsName(c) || isDigit(c) || c == '$'; }

/// Numbers between separators; empty unless there are `count` of them, each of one to four digits.
std::vector<int> numbersBetween(std::string_view text, char separator, std::size_t count)
{
  std::vector<int> out;
  while (out.size() < count) {
    const auto piece = text.substr(0, text.find(separator));
    int number = 0;
    if (piece.empty() || piece.size() > 4 || !std::all_of(piece.begin(), piece.end(), isDigit))
      return {};
    std::from_chars(piece.data(), piece.data() + piece.size(), number);
    out.push_back(number);
    if (piece.size() == text.size())
      return out.size() == count ? out : std::vector<int>{};
    text.remove_prefix(piece.size() + 1);
  }
  return {};
}

/// "m/d/yyyy" with or without "h:mm:ss", as a date column holds it.
std::string isoOfDateLiteral(std::string_view literal)
{
  const std::string trimmed = base::trim(literal);
  const std::string_view text = trimmed;
  const auto gap = text.find(' ');
  const auto day = numbersBetween(text.substr(0, gap), '/', 3);
  if (day.empty() || day[2] < 100)
    failSyntax(literal);
  DateTime date{day[2], day[0], day[1]};
  if (gap != std::string_view::npos) {
    const auto time = numbersBetween(text.substr(gap + 1), ':', 3);
    if (time.empty())
      failSyntax(literal);
    date.hour = time[0], date.minute = time[1], date.second = time[2];
  }
  // The calendar decides: what it does not know is no date.
  if (base::parseDateTime(date.iso()) != date)
    failSyntax(literal);
  return date.iso();
}

class Scanner {
public:
  explicit Scanner(std::string_view text) : text_(text) {}

  std::vector<Token> tokens()
  {
    std::vector<Token> out;
    do
      out.push_back(next());
    while (out.back().kind != TokenKind::End);
    return out;
  }

private:
  char current() const { return at_ < text_.size() ? text_[at_] : '\0'; }

  Token next()
  {
    while (at_ < text_.size() && isBlank(text_[at_]))
      ++at_;
    if (at_ == text_.size())
      return {};
    const char c = current();
    if (c == '\'' || c == '"')
      return quoted(c);
    if (c == '[')
      return {TokenKind::BracketedName, std::string(upTo(']')), {}};
    if (c == '#')
      return {TokenKind::Date, isoOfDateLiteral(upTo('#')), {}};
    if (c == '?') {
      ++at_;
      return {TokenKind::Parameter, "?", {}};
    }
    if (isDigit(c) || (c == '.' && at_ + 1 < text_.size() && isDigit(text_[at_ + 1])))
      return number();
    if (beginsName(c))
      return name();
    return op();
  }

  /// A literal ends at its quote; a doubled quote inside stands for one.
  Token quoted(char quote)
  {
    std::string content;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == quote && (at_ + 1 == text_.size() || text_[at_ + 1] != quote)) {
        ++at_;
        return {TokenKind::Text, std::move(content), {}};
      }
      if (text_[at_] == quote)
        ++at_;
      content += text_[at_];
    }
    failSyntax(text_);
  }

  /// What stands between the sign here and the next `end`.
  std::string_view upTo(char end)
  {
    const auto from = at_ + 1;
    const auto to = text_.find(end, from);
    if (to == std::string_view::npos || to == from)
      failSyntax(text_.substr(at_));
    at_ = to + 1;
    return text_.substr(from, to - from);
  }

  void digits()
  {
    while (isDigit(current()))
      ++at_;
  }

  Token number()
  {
    const auto from = at_;
    digits();
    if (current() == '.') {
      ++at_;
      digits();
    }
    if (beginsName(current()))
      failSyntax(text_.substr(from));
    return {TokenKind::Number, std::string(text_.substr(from, at_ - from)), {}};
  }

  Token name()
  {
    const auto from = at_;
    while (at_ < text_.size() && continuesName(text_[at_]))
      ++at_;
    std::string text(text_.substr(from, at_ - from));
    std::string keyword = base::lower(text);
    return {TokenKind::Name, std::move(text), std::move(keyword)};
  }

  Token op()
  {
    for (const auto candidate : kOperators) {
      if (text_.substr(at_).starts_with(candidate)) {
        at_ += candidate.size();
        return {TokenKind::Operator, std::string(candidate), {}};
      }
    }
    failSyntax(text_.substr(at_));
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

} // namespace

void failSyntax(std::string_view found)
{
  constexpr std::size_t kShown = 80;
  throw base::Error(base::ErrorNumber::SyntaxError, base::format("Syntaxfehler im Ausdruck: {}", base::left(found, kShown)));
}

std::vector<Token> tokenize(std::string_view statement)
{
  // A zero byte would end the engine's statement early.
  if (statement.find('\0') != std::string_view::npos)
    failSyntax(statement.substr(0, statement.find('\0')));
  return Scanner(statement).tokens();
}

const Token& TokenReader::peek(std::size_t ahead) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }

Token TokenReader::take()
{
  Token token = peek();
  if (at_ + 1 < tokens_.size())
    ++at_;
  return token;
}

bool TokenReader::isKeyword(std::string_view keyword, std::size_t ahead) const
{
  return peek(ahead).kind == TokenKind::Name && peek(ahead).keyword == keyword;
}

bool TokenReader::isOperator(std::string_view op, std::size_t ahead) const
{
  return peek(ahead).kind == TokenKind::Operator && peek(ahead).text == op;
}

bool TokenReader::acceptKeyword(std::string_view keyword)
{
  const bool found = isKeyword(keyword);
  if (found)
    ++at_;
  return found;
}

bool TokenReader::acceptOperator(std::string_view op)
{
  const bool found = isOperator(op);
  if (found)
    ++at_;
  return found;
}

void TokenReader::expectKeyword(std::string_view keyword)
{
  if (!acceptKeyword(keyword))
    fail();
}

void TokenReader::expectOperator(std::string_view op)
{
  if (!acceptOperator(op))
    fail();
}

std::string TokenReader::expectName()
{
  const Token& token = peek();
  const bool reserved = std::find(kReserved.begin(), kReserved.end(), token.keyword) != kReserved.end();
  if (token.kind != TokenKind::BracketedName && (token.kind != TokenKind::Name || reserved))
    fail();
  return take().text;
}

void TokenReader::expectEnd()
{
  acceptOperator(";");
  if (peek().kind != TokenKind::End)
    fail();
}

void TokenReader::fail() const
{
  if (peek().kind == TokenKind::End)
    failSyntax("der Ausdruck ist unvollständig.");
  std::string rest;
  for (std::size_t ahead = 0; ahead < 8 && peek(ahead).kind != TokenKind::End; ++ahead)
    rest += (ahead == 0 ? "" : " ") + peek(ahead).text;
  failSyntax(rest);
}

} // namespace mrd::dao
