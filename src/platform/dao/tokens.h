#pragma once
// The words of a statement in the system's SQL dialect.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

enum class TokenKind {
  End,
  /// A bare name or keyword; `keyword` holds it in lower case.
  Name,
  /// [A name in brackets]: never a keyword.
  BracketedName,
  /// 'Text' or "text"; `text` is its content.
  Text,
  /// Digits as written.
  Number,
  /// #Date#; `text` is "YYYY-MM-DD HH:MM:SS", as date columns hold it.
  Date,
  /// A bare `?`.
  Parameter,
  Operator,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;
  std::string keyword;
};

/// The tokens of a whole statement, an End behind them. Throws base::Error (SyntaxError) for an open literal or a character that
/// begins nothing.
std::vector<Token> tokenize(std::string_view statement);

/// Throws the error that a text is no statement of the dialect; `found` names the place.
[[noreturn]] void failSyntax(std::string_view found);

/// Walks tokens and takes what it expects.
class TokenReader {
public:
  explicit TokenReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  const Token& peek(std::size_t ahead = 0) const;
  Token take();
  bool isKeyword(std::string_view keyword, std::size_t ahead = 0) const;
  bool isOperator(std::string_view op, std::size_t ahead = 0) const;
  bool acceptKeyword(std::string_view keyword);
  bool acceptOperator(std::string_view op);
  void expectKeyword(std::string_view keyword);
  void expectOperator(std::string_view op);
  /// A name of a table or column, bare or in brackets.
  std::string expectName();
  /// The end, behind at most one `;`.
  void expectEnd();
  [[noreturn]] void fail() const;

private:
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
};

} // namespace mrd::dao
