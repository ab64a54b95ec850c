#include "frame/messages/translations.h"

#include "base/text.h"

#include <map>
#include <optional>
#include <utility>

namespace mrd::messages {
namespace {

constexpr std::string_view kWindow = "Texte", kGerman = "GER", kPlace = "{}";

std::vector<std::string> cutAtPlaces(std::string_view pattern)
{
  std::vector<std::string> pieces;
  for (auto place = pattern.find(kPlace); place != std::string_view::npos; place = pattern.find(kPlace)) {
    pieces.emplace_back(pattern.substr(0, place));
    pattern.remove_prefix(place + kPlace.size());
  }
  pieces.emplace_back(pattern);
  return pieces;
}

/// What stands at the places of the pieces; nothing where the text is another one. A place reaches to the next piece, the last
/// one to the piece at the end.
std::optional<std::vector<std::string>> valuesIn(std::string_view text, const std::vector<std::string>& pieces)
{
  if (pieces.size() == 1)
    return text == pieces.front() ? std::optional(std::vector<std::string>()) : std::nullopt;
  if (!text.starts_with(pieces.front()))
    return std::nullopt;
  text.remove_prefix(pieces.front().size());
  std::vector<std::string> values;
  for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
    const auto next = text.find(pieces[i]);
    if (next == std::string_view::npos)
      return std::nullopt;
    values.emplace_back(text.substr(0, next));
    text.remove_prefix(next + pieces[i].size());
  }
  if (!text.ends_with(pieces.back()))
    return std::nullopt;
  values.emplace_back(text.substr(0, text.size() - pieces.back().size()));
  return values;
}

std::string filled(const std::vector<std::string>& pieces, const std::vector<std::string>& values)
{
  std::string out = pieces.front();
  for (std::size_t i = 1; i < pieces.size(); ++i)
    out.append(i <= values.size() ? values[i - 1] : "").append(pieces[i]);
  return out;
}

std::map<std::string, std::string> captions(dao::Database& dbLanguage, std::string_view Sprache)
{
  std::map<std::string, std::string> byName;
  auto rows = dbLanguage.openSnapshot("Select * from tbl_Language Where (FormName = ?) And (Language = ?)",
                                      {kWindow, base::trim(Sprache)});
  for (; !rows.eof(); rows.moveNext())
    byName[base::trim(rows.value("controlname").text())] = base::trim(rows.value("CaptionText").text());
  return byName;
}

} // namespace

Translations::Translations(dao::Database& dbLanguage, std::string_view Sprache) : Sprache_(Sprache)
{
  const auto translated = captions(dbLanguage, Sprache);
  for (const auto& [name, german] : captions(dbLanguage, kGerman))
    if (const auto found = translated.find(name); found != translated.end())
      rows_.push_back({cutAtPlaces(german), cutAtPlaces(found->second)});
}

std::string Translations::text(std::string_view german) const
{
  const std::string wanted = base::trim(base::replaceAll(german, base::kCrLf, "\n"));
  for (const auto& row : rows_)
    if (const auto values = valuesIn(wanted, row.german))
      return filled(row.translated, *values);
  return std::string(german);
}

} // namespace mrd::messages
