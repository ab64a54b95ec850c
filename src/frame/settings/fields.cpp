#include "frame/settings/fields.h"

#include "base/format.h"
#include "base/text.h"

namespace mrd::settings {
namespace {

/// "100 px", "110 px" ... with the unit behind a number.
void appendSteps(std::vector<std::string>& entries, int first, int last, int step, std::string_view unit)
{
  for (int value = first; value <= last; value += step)
    entries.push_back(base::format("{}{}", value, unit));
}

std::vector<std::string> menuWidths()
{
  std::vector<std::string> entries{"auto"};
  appendSteps(entries, 100, 200, 10, " px");
  return entries;
}

std::vector<std::string> contentWidths()
{
  std::vector<std::string> entries;
  appendSteps(entries, 50, 100, 10, "%");
  appendSteps(entries, 600, 1200, 40, " px");
  return entries;
}

constexpr std::size_t kColourDigits = 6;

/// Six digits: the last ones of a longer text, zeros in front of a shorter one.
std::string sixDigits(std::string_view text)
{
  const auto digits = base::right(text, kColourDigits);
  return std::string(kColourDigits - base::length(digits), '0').append(digits);
}

/// Colour numbers hold blue, green, red where texts hold red, green, blue.
std::string exchangeOuterPairs(const std::string& digits) { return digits.substr(4) + digits.substr(2, 2) + digits.substr(0, 2); }

} // namespace

void ComboBox::selectIndex(int index)
{
  ListIndex = index;
  if (index >= 0 && static_cast<std::size_t>(index) < entries.size())
    Text = entries[static_cast<std::size_t>(index)];
}

void ComboBox::selectText(std::string_view text)
{
  Text = text;
  ListIndex = -1;
  for (std::size_t index = 0; index < entries.size() && ListIndex < 0; ++index)
    if (entries[index] == text)
      ListIndex = static_cast<int>(index);
}

Fields::Fields()
{
  ComboMenüspalte.entries = menuWidths();
  ComboMenüspalte.selectText("140 px");
  ComboInhalt.entries = contentWidths();
  ComboInhalt.selectText("90%");
  ComboGrundlayout.entries = {"Navigation linke Seite", "Navigation in Laschen oben", "ohne alles", "einfache Tabelle"};
  ComboGrundlayout.selectIndex(0);
  ComboBlättern.entries = {"Seitenüberschriften immer sichtbar", "Seitenüberschriften fest", "Symbole immer sichtbar",
                           "Symbole fest", "keine Blätternnavigation"};
  ComboBlättern.selectIndex(0);
}

std::string farbe_zu_html(long long Wert)
{
  const auto colour = static_cast<unsigned long long>(Wert) & 0xFFFFFFFFu;
  return exchangeOuterPairs(sixDigits(base::format("{:X}", colour)));
}

std::string html_zu_farbe(std::string_view Text)
{
  if (Text.starts_with('#'))
    Text.remove_prefix(1);
  return "&H" + exchangeOuterPairs(sixDigits(Text));
}

std::string cssColour(std::string_view text) { return text.starts_with('#') ? std::string(text) : "#" + std::string(text); }

} // namespace mrd::settings
