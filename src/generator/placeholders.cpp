#include "generator/placeholders.h"

#include "base/text.h"

#include <array>

namespace mrd::generator {
namespace {

struct ColourPlaceholder {
  std::string_view placeholder;
  std::string settings::Fields::*field;
};

constexpr std::array kColours{
    ColourPlaceholder{"[mrd:Hintergrundfarbe]", &settings::Fields::tbhintergrund},
    ColourPlaceholder{"[mrd:Hintergrundfarbeaussen]", &settings::Fields::tbhintergrundaussen},
    ColourPlaceholder{"[mrd:Textfarbe]", &settings::Fields::tbText},
    ColourPlaceholder{"[mrd:Menütextfarbe]", &settings::Fields::tbmenütext},
    ColourPlaceholder{"[mrd:Tabellenfarbe]", &settings::Fields::Tbtabelle},
    ColourPlaceholder{"[mrd:Menüaktivfarbe]", &settings::Fields::tbmenü},
};

} // namespace

std::string_view colourDigits(std::string_view colour)
{
  if (colour.starts_with('#'))
    colour.remove_prefix(1);
  return colour;
}

std::string farbzuweisung(std::string_view text, const settings::Fields& fields)
{
  std::string out(text);
  for (const auto& [placeholder, field] : kColours)
    if (base::contains(out, placeholder))
      out = base::replaceAll(out, placeholder, "#" + std::string(colourDigits(fields.*field)));
  return base::replaceAll(out, "[mrd:Schriftart]", fields.tbschriftart);
}

std::string menüzeile(std::string_view row, std::string_view Überschrift, std::string_view id, const settings::Fields& fields)
{
  const std::string named = base::replaceAll(row, "[mrd:Überschrift]", Überschrift);
  return farbzuweisung(base::replaceAll(named, "[mrd:ID]", id), fields);
}

std::string mitbasis(std::string_view text, std::string_view basislink)
{
  if (basislink.empty())
    return std::string(text);
  const std::string base(basislink);
  return base::replaceAll(base::replaceAll(text, "src='pix", "src='" + base + "pix"), "src=\"pix", "src=\"" + base + "pix");
}

} // namespace mrd::generator
