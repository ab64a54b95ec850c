#include "pictures/file_names.h"

#include "base/text.h"

namespace mrd::pictures {
namespace {

struct Substitution {
  std::string_view from, to;
};

constexpr Substitution kSubstitutions[] = {
    {"ä", "ae"}, {"Ä", "ae"}, {"ö", "oe"}, {"Ö", "oe"}, {"ü", "ue"}, {"Ü", "ue"},
    {"ß", "ss"}, {" ", "_"},  {"&", "_"},  {"'", "_"},  {"\"", "_"},
};

} // namespace

std::string bereinige_dateiname(std::string_view name)
{
  std::string clean(name);
  for (const auto& [from, to] : kSubstitutions)
    clean = base::replaceAll(clean, from, to);
  return clean;
}

} // namespace mrd::pictures
