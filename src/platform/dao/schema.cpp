#include "platform/dao/schema.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::dao {

const ColumnDescription* TableDescription::column(std::string_view columnName) const
{
  const auto exact = std::find_if(columns.begin(), columns.end(), [&](const auto& c) { return c.name == columnName; });
  if (exact != columns.end())
    return &*exact;
  const auto alike = std::find_if(columns.begin(), columns.end(), [&](const auto& c) { return sameName(c.name, columnName); });
  return alike == columns.end() ? nullptr : &*alike;
}

ContentType contentTypeOf(std::string_view declaredType)
{
  const std::string type = base::lower(declaredType);
  const auto has = [&type](std::string_view piece) { return base::contains(type, piece); };
  if (has("int"))
    return ContentType::Number;
  if (has("char") || has("clob") || has("text"))
    return ContentType::Text;
  if (has("real") || has("floa") || has("doub"))
    return ContentType::Number;
  return ContentType::Unknown;
}

bool sameName(std::string_view a, std::string_view b) { return base::lower(a) == base::lower(b); }

std::size_t findName(const std::vector<std::string>& names, std::string_view wanted)
{
  const auto exact = std::find(names.begin(), names.end(), wanted);
  if (exact != names.end())
    return static_cast<std::size_t>(exact - names.begin());
  const std::string folded = base::lower(wanted);
  const auto alike = std::find_if(names.begin(), names.end(), [&](const auto& name) { return base::lower(name) == folded; });
  return static_cast<std::size_t>(alike - names.begin());
}

} // namespace mrd::dao
