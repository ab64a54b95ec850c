#include "tools/database_text.h"

#include "base/errors.h"
#include "base/format.h"

#include <string>
#include <vector>

namespace mrd::tools {
namespace {

std::vector<std::string_view> split(std::string_view text, char separator)
{
  std::vector<std::string_view> pieces;
  for (;;) {
    const auto end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos)
      return pieces;
    text.remove_prefix(end + 1);
  }
}

/// Lines without the blank ones and those that begin with `comment`.
std::vector<std::string_view> contentLines(std::string_view text, std::string_view comment)
{
  std::vector<std::string_view> lines;
  for (const auto line : split(text, '\n'))
    if (line.find_first_not_of(" \r") != std::string_view::npos && !line.starts_with(comment))
      lines.push_back(line);
  return lines;
}

dao::Value cellValue(std::string_view cell)
{
  if (cell == "\\N")
    return dao::Null{};
  std::string out;
  for (std::size_t at = 0; at < cell.size(); ++at) {
    if (cell[at] != '\\' || at + 1 == cell.size()) {
      out += cell[at];
      continue;
    }
    const char escaped = cell[++at];
    out += escaped == 't' ? '\t' : escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
  }
  return out;
}

} // namespace

void runStatements(dao::Database& db, std::string_view text)
{
  std::string statement;
  for (const auto line : contentLines(text, "--")) {
    statement += line;
    if (!line.ends_with(';')) {
      statement += ' ';
      continue;
    }
    db.execute(statement);
    statement.clear();
  }
}

void insertRows(dao::Database& db, std::string_view table, std::string_view text)
{
  const auto lines = contentLines(text, "#");
  if (lines.empty())
    return;
  const auto columns = split(lines.front(), '\t');
  auto rows = db.openRecordset(table);
  for (std::size_t line = 1; line < lines.size(); ++line) {
    const auto cells = split(lines[line], '\t');
    if (cells.size() != columns.size())
      throw base::Error(base::ErrorNumber::SyntaxError,
                        base::format("{}: {} cells instead of {} in \"{}\"", table, cells.size(), columns.size(), lines[line]));
    rows.addNew();
    for (std::size_t column = 0; column < columns.size(); ++column)
      rows.set(columns[column], cellValue(cells[column]));
    rows.update();
  }
}

} // namespace mrd::tools
