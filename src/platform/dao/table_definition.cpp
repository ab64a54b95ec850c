#include "platform/dao/table_definition.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/expression.h"

#include <algorithm>
#include <array>

namespace mrd::dao {
namespace {

using base::format;

struct TypeName {
  std::string_view dialect;
  std::string_view engine;
};

constexpr std::string_view kCounter = "counter";
constexpr std::string_view kAutoIncrement = "autoincrement";

/// An added yes/no column reads as no in the rows that are there.
constexpr std::string_view kYesNo = "INTEGER DEFAULT 0";

constexpr std::array kTypes{
    TypeName{"text", "TEXT"},
    TypeName{"char", "TEXT"},
    TypeName{"varchar", "TEXT"},
    TypeName{"memo", "TEXT"},
    TypeName{"longtext", "TEXT"},
    TypeName{"date", "TEXT"},
    TypeName{"time", "TEXT"},
    TypeName{"datetime", "TEXT"},
    TypeName{"long", "INTEGER"},
    TypeName{"integer", "INTEGER"},
    TypeName{"int", "INTEGER"},
    TypeName{"short", "INTEGER"},
    TypeName{"byte", "INTEGER"},
    TypeName{"smallint", "INTEGER"},
    TypeName{"double", "REAL"},
    TypeName{"single", "REAL"},
    TypeName{"float", "REAL"},
    TypeName{"real", "REAL"},
    TypeName{"currency", "REAL"},
    TypeName{"bit", kYesNo},
    TypeName{"yesno", kYesNo},
    TypeName{"boolean", kYesNo},
    TypeName{"logical", kYesNo},
    TypeName{kCounter, "INTEGER"},
    TypeName{kAutoIncrement, "INTEGER"},
};

class DefinitionParser {
public:
  DefinitionParser(TokenReader& reader, const Schema* schema) : reader_(reader), schema_(schema) {}

  std::string createTable();
  std::string createIndex(bool unique);
  std::string alterTable();
  std::string dropTable();

private:
  const TableDescription* known(const std::string& table) const { return schema_ == nullptr ? nullptr : schema_->table(table); }
  /// The table's real name. Throws ItemNotFound for a table that the schema lacks.
  std::string existingTable();
  std::string newColumn(const TableDescription* table);
  std::string type(bool& counter);
  std::string constraints(bool counter);
  std::string tableConstraint();
  std::string columnList();

  TokenReader& reader_;
  const Schema* schema_;
  std::vector<std::string> columns_;
};

std::string DefinitionParser::existingTable()
{
  const std::string name = reader_.expectName();
  const TableDescription* table = known(name);
  if (schema_ != nullptr && table == nullptr)
    throw base::Error(base::ErrorNumber::ItemNotFound, format("Die Tabelle '{}' fehlt in der Datenbank.", name));
  return table == nullptr ? name : table->name;
}

std::string DefinitionParser::type(bool& counter)
{
  const Token token = reader_.take();
  const auto* const found =
      std::find_if(kTypes.begin(), kTypes.end(), [&token](const auto& t) { return t.dialect == token.keyword; });
  if (token.kind != TokenKind::Name || found == kTypes.end())
    failSyntax(token.text);
  // A length limits nothing here.
  if (reader_.acceptOperator("(")) {
    if (reader_.take().kind != TokenKind::Number)
      reader_.fail();
    reader_.expectOperator(")");
  }
  counter = found->dialect == kCounter || found->dialect == kAutoIncrement;
  return std::string(found->engine);
}

/// What follows a column's type. A counter is the key of its table, said or not: the engine counts no other column.
std::string DefinitionParser::constraints(bool counter)
{
  std::string out;
  bool key = false;
  while (true) {
    std::string name;
    if (reader_.acceptKeyword("constraint"))
      name = format(" CONSTRAINT {}", quotedName(reader_.expectName()));
    if (reader_.acceptKeyword("primary")) {
      reader_.expectKeyword("key");
      out += format("{} PRIMARY KEY{}", name, counter ? " AUTOINCREMENT" : "");
      key = true;
    } else if (reader_.acceptKeyword("unique")) {
      out += name + " UNIQUE";
    } else if (reader_.acceptKeyword("not")) {
      reader_.expectKeyword("null");
      out += name + " NOT NULL";
    } else if (name.empty()) {
      return counter && !key ? " PRIMARY KEY AUTOINCREMENT" + out : out;
    } else {
      reader_.fail();
    }
  }
}

std::string DefinitionParser::newColumn(const TableDescription* table)
{
  const std::string name = reader_.expectName();
  const bool taken = (table != nullptr && table->column(name) != nullptr) || findName(columns_, name) != columns_.size();
  if (taken)
    throw base::Error(base::ErrorNumber::EngineError, format("Die Spalte '{}' ist schon vorhanden.", name));
  columns_.push_back(name);
  bool counter = false;
  const std::string engineType = type(counter);
  return format("{} {}{}", quotedName(name), engineType, constraints(counter));
}

std::string DefinitionParser::columnList()
{
  std::string out;
  reader_.expectOperator("(");
  do {
    const std::string name = reader_.expectName();
    const auto at = findName(columns_, name);
    const bool isKnown = at != columns_.size();
    if (!isKnown && !columns_.empty())
      throw base::Error(base::ErrorNumber::ItemNotFound, format("Die Spalte '{}' fehlt in der Tabelle.", name));
    out.append(out.empty() ? "" : ", ").append(quotedName(isKnown ? columns_[at] : name));
  } while (reader_.acceptOperator(","));
  reader_.expectOperator(")");
  return out;
}

std::string DefinitionParser::tableConstraint()
{
  std::string out;
  if (reader_.acceptKeyword("constraint"))
    out = format("CONSTRAINT {} ", quotedName(reader_.expectName()));
  if (reader_.acceptKeyword("unique"))
    return format("{}UNIQUE ({})", out, columnList());
  reader_.expectKeyword("primary");
  reader_.expectKeyword("key");
  return format("{}PRIMARY KEY ({})", out, columnList());
}

std::string DefinitionParser::createTable()
{
  const std::string name = reader_.expectName();
  if (known(name) != nullptr)
    throw base::Error(base::ErrorNumber::EngineError, format("Die Tabelle '{}' ist schon vorhanden.", name));
  std::string parts;
  reader_.expectOperator("(");
  do {
    const bool forTable = reader_.isKeyword("constraint") || reader_.isKeyword("primary") || reader_.isKeyword("unique");
    parts.append(parts.empty() ? "" : ", ").append(forTable ? tableConstraint() : newColumn(nullptr));
  } while (reader_.acceptOperator(","));
  reader_.expectOperator(")");
  return format("CREATE TABLE {} ({})", quotedName(name), parts);
}

std::string DefinitionParser::createIndex(bool unique)
{
  const std::string name = reader_.expectName();
  reader_.expectKeyword("on");
  const std::string table = existingTable();
  if (const TableDescription* described = known(table))
    for (const auto& column : described->columns)
      columns_.push_back(column.name);
  return format("CREATE {}INDEX {} ON {} ({})", unique ? "UNIQUE " : "", quotedName(name), quotedName(table), columnList());
}

std::string DefinitionParser::alterTable()
{
  const std::string table = existingTable();
  reader_.expectKeyword("add");
  reader_.acceptKeyword("column");
  const std::string column = newColumn(known(table));
  return format("ALTER TABLE {} ADD COLUMN {}", quotedName(table), column);
}

std::string DefinitionParser::dropTable() { return format("DROP TABLE {}", quotedName(existingTable())); }

} // namespace

std::string definitionSql(TokenReader& reader, const Schema* schema)
{
  DefinitionParser parser(reader, schema);
  const std::string verb = reader.take().keyword;
  const bool unique = verb == "create" && reader.acceptKeyword("unique");
  const std::string object = reader.take().keyword;
  std::string sql;
  if (verb == "create" && object == "index")
    sql = parser.createIndex(unique);
  else if (verb == "create" && object == "table" && !unique)
    sql = parser.createTable();
  else if (verb == "alter" && object == "table")
    sql = parser.alterTable();
  else if (verb == "drop" && object == "table")
    sql = parser.dropTable();
  else
    failSyntax(verb + " " + object);
  reader.expectEnd();
  return sql;
}

} // namespace mrd::dao
