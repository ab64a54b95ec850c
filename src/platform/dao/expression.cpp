#include "platform/dao/expression.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/dao/comparison.h"
#include "platform/dao/functions.h"

#include <algorithm>
#include <array>

namespace mrd::dao {
namespace {

using base::format;
using Role = Expression::Role;

/// Far more than any statement needs, and far less than the stack or the engine's own limit of 1000 levels.
constexpr int kMaxNesting = 60;
constexpr int kMaxOperations = 900;
constexpr std::size_t kMaxOperationSize = 1'000'000;

constexpr std::array<std::string_view, 6> kComparisons{"=", "<>", "<", ">", "<=", ">="};
constexpr std::array<std::string_view, 3> kTrue{"true", "yes", "on"};
constexpr std::array<std::string_view, 3> kFalse{"false", "no", "off"};

template <class Words>
bool isOneOf(const Words& words, std::string_view word)
{
  return std::find(words.begin(), words.end(), word) != words.end();
}

Expression condition(std::string sql, bool constant)
{
  Expression out{std::move(sql), ContentType::Number, Role::Condition};
  out.constant = constant;
  return out;
}

Expression literalText(const Token& token)
{
  Expression out{quotedText(token.text), ContentType::Text};
  out.constant = true;
  out.literal = token.text;
  return out;
}

Expression literalNumber(const Token& token)
{
  // A leading zero means nothing: page numbers stand bare in some statements.
  const auto first = token.text.find_first_not_of('0');
  std::string digits = first == std::string::npos ? "0" : token.text.substr(first);
  if (digits.front() == '.')
    digits.insert(0, "0");
  Expression out{std::move(digits), ContentType::Number};
  out.constant = true;
  return out;
}

Expression literalTruth(bool truth)
{
  Expression out{truth ? "1" : "0", ContentType::Number, Role::Condition};
  out.constant = true;
  out.truth = truth;
  return out;
}

std::string doubled(std::string_view text, char quote)
{
  std::string out(1, quote);
  for (const char c : text)
    out.append(c == quote ? 2 : 1, c);
  return out += quote;
}

bool allConstant(const std::vector<Expression>& expressions)
{
  return std::all_of(expressions.begin(), expressions.end(), [](const auto& e) { return e.constant; });
}

} // namespace

/// Bounds the depth of expressions: one level for as long as it lives.
class ExpressionParser::Nesting {
public:
  explicit Nesting(ExpressionParser& parser) : parser_(parser)
  {
    if (++parser_.depth_ > kMaxNesting)
      failSyntax("der Ausdruck ist zu tief geschachtelt.");
  }
  ~Nesting() { --parser_.depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

private:
  ExpressionParser& parser_;
};

std::string quotedName(std::string_view name) { return doubled(name, '"'); }
std::string quotedText(std::string_view text) { return doubled(text, '\''); }

Expression ExpressionParser::condition()
{
  Expression out = disjunction();
  requireCondition(out);
  if (scope_.guarded && out.role != Role::Condition && out.role != Role::Column)
    reader_.fail();
  return out;
}

Expression ExpressionParser::disjunction()
{
  const Nesting nesting(*this);
  Expression left = conjunction();
  while (reader_.acceptKeyword("or")) {
    Expression right = conjunction();
    requireCondition(left);
    requireCondition(right);
    if (scope_.guarded && !(left.parenthesised && right.parenthesised))
      reader_.fail();
    countOperation(right.sql.size());
    const bool parenthesised = left.parenthesised;
    left = dao::condition(std::move(left.sql.append(" OR ").append(right.sql)), left.constant && right.constant);
    // A third side joins a chain whose sides all stand in parentheses.
    left.parenthesised = scope_.guarded && parenthesised;
  }
  return left;
}

Expression ExpressionParser::conjunction()
{
  Expression left = negation();
  while (reader_.acceptKeyword("and")) {
    Expression right = negation();
    requireCondition(left);
    requireCondition(right);
    countOperation(right.sql.size());
    left = dao::condition(std::move(left.sql.append(" AND ").append(right.sql)), left.constant && right.constant);
  }
  return left;
}

Expression ExpressionParser::negation()
{
  if (!reader_.acceptKeyword("not"))
    return comparison();
  const Nesting nesting(*this);
  const Expression inner = negation();
  requireCondition(inner);
  return dao::condition(format("NOT ({})", inner.sql), inner.constant);
}

Expression ExpressionParser::comparison()
{
  Expression left = concatenation();
  if (reader_.peek().kind == TokenKind::Operator && isOneOf(kComparisons, reader_.peek().text)) {
    const std::string op = reader_.take().text;
    return compare(left, op, concatenation());
  }
  if (reader_.acceptKeyword("is"))
    return isNull(left);
  const bool negated = reader_.acceptKeyword("not");
  const auto maybeNegated = [negated](Expression found) {
    return negated ? dao::condition(format("(NOT {})", found.sql), found.constant) : found;
  };
  if (reader_.acceptKeyword("like"))
    return maybeNegated(like(left));
  if (reader_.acceptKeyword("between"))
    return maybeNegated(between(left));
  if (reader_.acceptKeyword("in"))
    return maybeNegated(in(left));
  if (negated)
    reader_.fail();
  return left;
}

Expression ExpressionParser::isNull(const Expression& left)
{
  const bool negated = reader_.acceptKeyword("not");
  reader_.expectKeyword("null");
  refuseConstants(left, left);
  return dao::condition(format("({} IS {}NULL)", left.sql, negated ? "NOT " : ""), left.constant);
}

Expression ExpressionParser::like(const Expression& left)
{
  const Expression pattern = concatenation();
  refuseConstants(left, pattern);
  countOperation(left.sql.size() + pattern.sql.size());
  return dao::condition(likeSql(left, pattern), left.constant && pattern.constant);
}

Expression ExpressionParser::between(const Expression& left)
{
  const Expression from = concatenation();
  reader_.expectKeyword("and");
  const Expression to = concatenation();
  const Expression low = compare(left, ">=", from);
  const Expression high = compare(left, "<=", to);
  return dao::condition(format("({} AND {})", low.sql, high.sql), low.constant && high.constant);
}

Expression ExpressionParser::in(const Expression& left)
{
  std::string sql;
  reader_.expectOperator("(");
  do {
    const Expression match = compare(left, "=", concatenation());
    countOperation(sql.size() + match.sql.size());
    sql.append(sql.empty() ? "" : " OR ").append(match.sql);
  } while (reader_.acceptOperator(","));
  reader_.expectOperator(")");
  return dao::condition(format("({})", sql), false);
}

Expression ExpressionParser::concatenation()
{
  Expression left = sum();
  while (reader_.acceptOperator("&"))
    left = arithmetic(left, "&", sum());
  return left;
}

Expression ExpressionParser::sum()
{
  Expression left = product();
  while (reader_.isOperator("+") || reader_.isOperator("-")) {
    const std::string op = reader_.take().text;
    left = arithmetic(left, op, product());
  }
  return left;
}

Expression ExpressionParser::product()
{
  Expression left = sign();
  while (reader_.isOperator("*") || reader_.isOperator("/") || reader_.isKeyword("mod")) {
    const Token op = reader_.take();
    left = arithmetic(left, op.keyword.empty() ? op.text : op.keyword, sign());
  }
  return left;
}

Expression ExpressionParser::sign()
{
  if (reader_.acceptOperator("+"))
    return sign();
  if (!reader_.acceptOperator("-"))
    return primary();
  const Nesting nesting(*this);
  const Expression inner = sign();
  Expression out{format("(- {})", inner.sql), ContentType::Number};
  out.constant = inner.constant;
  return out;
}

Expression ExpressionParser::primary()
{
  switch (reader_.peek().kind) {
  case TokenKind::Text:
  case TokenKind::Date:
    return literalText(reader_.take());
  case TokenKind::Number:
    return literalNumber(reader_.take());
  case TokenKind::Parameter:
    reader_.take();
    return {format("?{}", ++parameters_)};
  case TokenKind::BracketedName:
    return column();
  case TokenKind::Name:
    return name();
  default:
    break;
  }
  reader_.expectOperator("(");
  Expression inner = disjunction();
  reader_.expectOperator(")");
  inner.sql = format("({})", inner.sql);
  inner.parenthesised = true;
  return inner;
}

Expression ExpressionParser::name()
{
  const std::string& keyword = reader_.peek().keyword;
  if (reader_.isOperator("(", 1))
    return call();
  const bool isColumn = reader_.isOperator(".", 1) || (scope_.table != nullptr && scope_.table->column(keyword) != nullptr);
  if (!isColumn && keyword == "null") {
    reader_.take();
    Expression out{"NULL"};
    out.constant = true;
    return out;
  }
  if (!isColumn && (isOneOf(kTrue, keyword) || isOneOf(kFalse, keyword)))
    return literalTruth(isOneOf(kTrue, reader_.take().keyword));
  return column();
}

Expression ExpressionParser::column()
{
  std::string name = reader_.expectName();
  if (reader_.acceptOperator(".")) {
    if (!scope_.tableName.empty() && !sameName(name, scope_.tableName))
      throw base::Error(base::ErrorNumber::ItemNotFound, format("Die Tabelle '{}' kommt in der Abfrage nicht vor.", name));
    name = reader_.expectName();
  }
  if (scope_.table == nullptr)
    return {quotedName(name), ContentType::Unknown, Role::Column, false, false, {}, {}, name};
  const ColumnDescription* known = scope_.table->column(name);
  if (known == nullptr)
    throw base::Error(base::ErrorNumber::ItemNotFound,
                      format("Die Spalte '{}' fehlt in der Tabelle '{}'.", name, scope_.table->name));
  return {quotedName(known->name), known->type, Role::Column, false, false, {}, {}, known->name};
}

std::vector<Expression> ExpressionParser::arguments()
{
  const Nesting nesting(*this);
  std::vector<Expression> out;
  reader_.expectOperator("(");
  do
    out.push_back(disjunction());
  while (reader_.acceptOperator(","));
  reader_.expectOperator(")");
  return out;
}

Expression ExpressionParser::call()
{
  std::string function = reader_.take().keyword;
  // The text forms of the functions, with a dollar sign, mean the same.
  if (function.ends_with('$'))
    function.pop_back();
  const auto given = arguments();
  if (function == "iif" && given.size() == 3) {
    requireCondition(given[0]);
    const ContentType type = given[1].type == given[2].type ? given[1].type : ContentType::Unknown;
    Expression out{format("(CASE WHEN {} THEN {} ELSE {} END)", given[0].sql, given[1].sql, given[2].sql), type};
    out.constant = allConstant(given);
    return out;
  }
  if (const Function* known = findFunction(function, given.size())) {
    const auto argument = [&given](std::size_t at) { return at < given.size() ? std::string_view(given[at].sql) : ""; };
    Expression out{format(fmt::runtime(known->form), argument(0), argument(1), argument(2)), known->type, known->role};
    out.constant = allConstant(given);
    return out;
  }
  failSyntax(function + "(");
}

Expression ExpressionParser::selected()
{
  const Aggregate* known = findAggregate(reader_.peek().keyword);
  if (known == nullptr || !reader_.isOperator("(", 1))
    return expression();
  reader_.take();
  reader_.expectOperator("(");
  if (known->name == "count" && reader_.acceptOperator("*")) {
    reader_.expectOperator(")");
    return {"count(*)", ContentType::Number, Role::Aggregate};
  }
  const Expression argument = expression();
  reader_.expectOperator(")");
  const bool ordered = known->type == ContentType::Unknown;
  return {format("{}({})", known->name, ordered ? inTextOrder(argument) : argument.sql), ordered ? argument.type : known->type,
          Role::Aggregate};
}

Expression ExpressionParser::compare(const Expression& left, std::string_view op, const Expression& right)
{
  refuseConstants(left, right);
  countOperation(left.sql.size() + right.sql.size());
  return dao::condition(comparisonSql(left, op, right), left.constant && right.constant);
}

Expression ExpressionParser::arithmetic(const Expression& left, std::string_view op, const Expression& right)
{
  refuseConstants(left, right);
  countOperation(left.sql.size() + right.sql.size());
  const bool texts = left.type == ContentType::Text && right.type == ContentType::Text;
  Expression out{{}, op == "&" || (op == "+" && texts) ? ContentType::Text : ContentType::Number};
  out.constant = left.constant && right.constant;
  if (op == "&")
    out.sql = format("(coalesce({}, '') || coalesce({}, ''))", left.sql, right.sql);
  else if (op == "/")
    out.sql = format("(CAST({} AS REAL) / {})", left.sql, right.sql);
  else
    out.sql = format("({} {} {})", left.sql, op == "+" && texts ? "||" : op == "mod" ? "%" : op, right.sql);
  return out;
}

void ExpressionParser::requireCondition(const Expression& expression) const
{
  const bool refused = expression.type == ContentType::Text || (scope_.guarded && expression.constant);
  if (refused)
    failSyntax(expression.sql);
}

void ExpressionParser::refuseConstants(const Expression& left, const Expression& right) const
{
  if (scope_.guarded && left.constant && right.constant)
    failSyntax(left.sql);
}

void ExpressionParser::countOperation(std::size_t size)
{
  if (++operations_ > kMaxOperations || size > kMaxOperationSize)
    failSyntax("der Ausdruck ist zu lang.");
}

} // namespace mrd::dao
