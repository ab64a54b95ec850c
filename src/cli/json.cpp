#include "cli/json.h"

#include "base/format.h"

#include <cmath>

namespace mrd::cli {

std::string jsonText(std::string_view text)
{
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\')
      out.append(1, '\\').append(1, c);
    else if (c == '\n')
      out += "\\n";
    else if (c == '\r')
      out += "\\r";
    else if (c == '\t')
      out += "\\t";
    else if (static_cast<unsigned char>(c) < 0x20)
      out += base::format("\\u{:04x}", static_cast<unsigned>(c));
    else
      out += c;
  }
  return out + "\"";
}

std::string jsonValue(const dao::Value& value)
{
  if (value.isNull())
    return "null";
  if (std::holds_alternative<std::string>(value.content()))
    return jsonText(value.text());
  // The form knows no number beyond all bounds.
  return std::isfinite(value.number()) ? value.text() : "null";
}

std::string jsonObject(const std::vector<std::pair<std::string, dao::Value>>& fields)
{
  std::string out = "{";
  for (const auto& [name, value] : fields)
    out += (out.size() > 1 ? ", " : "") + jsonText(name) + ": " + jsonValue(value);
  return out + "}";
}

std::string jsonArray(const std::vector<std::string>& elements)
{
  std::string out = "[";
  for (const auto& element : elements)
    out += (out.size() > 1 ? ",\n " : "") + element;
  return out + "]";
}

} // namespace mrd::cli
