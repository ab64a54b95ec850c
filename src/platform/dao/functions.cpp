#include "platform/dao/functions.h"

#include <algorithm>
#include <array>

namespace mrd::dao {
namespace {

using Role = Expression::Role;

constexpr std::array kFunctions{
    Function{"len", 1, ContentType::Number, Role::Value, "length({0})"},
    Function{"mid", 2, ContentType::Text, Role::Value, "substr({0}, max(1, {1}))"},
    Function{"mid", 3, ContentType::Text, Role::Value, "substr({0}, max(1, {1}), max(0, {2}))"},
    Function{"left", 2, ContentType::Text, Role::Value, "substr({0}, 1, max(0, {1}))"},
    Function{"right", 2, ContentType::Text, Role::Value, "mrd_right({0}, {1})"},
    Function{"ucase", 1, ContentType::Text, Role::Value, "mrd_upper({0})"},
    Function{"lcase", 1, ContentType::Text, Role::Value, "mrd_lower({0})"},
    Function{"trim", 1, ContentType::Text, Role::Value, "trim({0})"},
    Function{"ltrim", 1, ContentType::Text, Role::Value, "ltrim({0})"},
    Function{"rtrim", 1, ContentType::Text, Role::Value, "rtrim({0})"},
    Function{"val", 1, ContentType::Number, Role::Value, "mrd_val({0})"},
    Function{"isnull", 1, ContentType::Number, Role::Condition, "({0} IS NULL)"},
};

constexpr std::array kAggregates{
    Aggregate{"count", ContentType::Number}, Aggregate{"max", ContentType::Unknown}, Aggregate{"min", ContentType::Unknown},
    Aggregate{"sum", ContentType::Number},   Aggregate{"avg", ContentType::Number},
};

} // namespace

const Function* findFunction(std::string_view name, std::size_t arguments)
{
  const auto* const found = std::find_if(kFunctions.begin(), kFunctions.end(),
                                         [=](const auto& known) { return known.name == name && known.arguments == arguments; });
  return found == kFunctions.end() ? nullptr : found;
}

const Aggregate* findAggregate(std::string_view name)
{
  const auto* const found =
      std::find_if(kAggregates.begin(), kAggregates.end(), [name](const auto& known) { return known.name == name; });
  return found == kAggregates.end() ? nullptr : found;
}

} // namespace mrd::dao
