#pragma once
// Comparisons as the dialect means them: text without regard to case and trailing blanks, text beside a number as a number, TRUE
// as any number but 0.

#include "platform/dao/expression.h"

#include <string>
#include <string_view>

namespace mrd::dao {

/// SQL of `left op right`. Throws TypeMismatch for a literal text that is no number beside a number.
std::string comparisonSql(const Expression& left, std::string_view op, const Expression& right);

/// SQL of `left LIKE pattern`.
std::string likeSql(const Expression& left, const Expression& pattern);

/// `sql` with the dialect's text order, where it can be text.
std::string inTextOrder(const Expression& expression);

} // namespace mrd::dao
