#pragma once
// The functions that expressions may call, as data.

#include "platform/dao/expression.h"

#include <cstddef>
#include <string_view>

namespace mrd::dao {

struct Function {
  std::string_view name;
  std::size_t arguments;
  ContentType type;
  Expression::Role role;
  /// The engine's form; {0}, {1}, {2} are the arguments.
  std::string_view form;
};

struct Aggregate {
  std::string_view name;
  /// What it gives; Unknown: what its argument holds.
  ContentType type;
};

/// The function of this name, in lower case, with so many arguments; null for none.
const Function* findFunction(std::string_view name, std::size_t arguments);

/// The aggregate of this name, in lower case; null for none.
const Aggregate* findAggregate(std::string_view name);

} // namespace mrd::dao
