#pragma once
// Results in the form that other programs read: https://www.rfc-editor.org/rfc/rfc8259

#include "platform/dao/value.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::cli {

/// A quoted JSON string.
std::string jsonText(std::string_view text);
/// null, a number or a quoted string.
std::string jsonValue(const dao::Value& value);
/// An object of fields in their order.
std::string jsonObject(const std::vector<std::pair<std::string, dao::Value>>& fields);
/// An array of what is JSON already, an element a line.
std::string jsonArray(const std::vector<std::string>& elements);

} // namespace mrd::cli
