#include "desktop/editing/block_format_names.h"

#include "base/text.h"

#include <array>

namespace mrd::desktop {
namespace {

struct BlockFormat {
  std::string_view english;
  std::string_view german;
};

constexpr std::array kBlockFormats{
    BlockFormat{"Normal", "Normal"},
    BlockFormat{"Formatted", "Formatiert"},
    BlockFormat{"Address", "Adresse"},
    BlockFormat{"Heading 1", "Überschrift 1"},
    BlockFormat{"Heading 2", "Überschrift 2"},
    BlockFormat{"Heading 3", "Überschrift 3"},
    BlockFormat{"Heading 4", "Überschrift 4"},
    BlockFormat{"Heading 5", "Überschrift 5"},
    BlockFormat{"Heading 6", "Überschrift 6"},
    BlockFormat{"Numbered List", "Nummerierung"},
    BlockFormat{"Bulleted List", "Aufzählung"},
    BlockFormat{"Directory List", "Verzeichnisliste"},
    BlockFormat{"Menu List", "Menüliste"},
    BlockFormat{"Definition Term", "Definierter Begriff"},
    BlockFormat{"Definition", "Definition"},
    BlockFormat{"Paragraph", "Absatz"},
};

} // namespace

std::vector<std::string> blockFormatNames(std::string_view language)
{
  std::vector<std::string> names;
  names.reserve(kBlockFormats.size());
  for (const auto& format : kBlockFormats)
    names.emplace_back(language == "ENG" ? format.english : format.german);
  return names;
}

std::optional<int> blockFormatIndex(std::string_view name)
{
  const std::string wanted = base::lower(name);
  for (std::size_t i = 0; i < kBlockFormats.size(); ++i)
    if (wanted == base::lower(kBlockFormats[i].english) || wanted == base::lower(kBlockFormats[i].german))
      return static_cast<int>(i);
  return std::nullopt;
}

} // namespace mrd::desktop
