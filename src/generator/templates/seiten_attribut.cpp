#include "generator/templates/seiten_attribut.h"

#include "base/errors.h"
#include "base/text.h"

namespace mrd::templates {
namespace {

[[noreturn]] void noSuchRecord(const std::string& which)
{
  throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Element nicht gefunden: " + which);
}

constexpr std::string_view kStart = "[mrd:";

/// From the first placeholder of a text to the last: a page is long, and its placeholders stand close together in its head.
std::string_view stretchOfPlaceholders(std::string_view text)
{
  const auto first = text.find(kStart);
  if (first == std::string_view::npos)
    return {};
  const auto end = text.find(']', text.rfind(kStart));
  return text.substr(first, end == std::string_view::npos ? end : end + 1 - first);
}

} // namespace

const SeitenAttribut& SeitenAttribute::Add(std::string_view Platzhalter, std::string_view Wert, std::string_view sKey)
{
  records_.push_back({std::string(Platzhalter), std::string(Wert)});
  if (!sKey.empty())
    keys_.insert_or_assign(std::string(sKey), records_.size());
  return records_.back();
}

const SeitenAttribut& SeitenAttribute::Item(std::size_t position) const
{
  if (position < 1 || position > records_.size())
    noSuchRecord(std::to_string(position));
  return records_[position - 1];
}

const SeitenAttribut& SeitenAttribute::Item(std::string_view sKey) const { return Item(positionOf(sKey)); }

std::size_t SeitenAttribute::positionOf(std::string_view sKey) const
{
  const auto found = keys_.find(sKey);
  if (found == keys_.end())
    noSuchRecord(std::string(sKey));
  return found->second;
}

void SeitenAttribute::Remove(std::size_t position)
{
  Item(position);
  records_.erase(records_.begin() + static_cast<std::ptrdiff_t>(position) - 1);
  std::erase_if(keys_, [position](const auto& key) { return key.second == position; });
  for (auto& [key, at] : keys_)
    if (at > position)
      --at;
}

void SeitenAttribute::Remove(std::string_view sKey) { Remove(positionOf(sKey)); }

void replaceAttributes(std::string& text, const SeitenAttribute& attributes, std::string_view except)
{
  std::string_view stretch = stretchOfPlaceholders(text);
  for (const auto& [placeholder, value] : attributes) {
    const std::string_view place = placeholder.starts_with(kStart) ? stretch : std::string_view(text);
    if (placeholder == except || !base::contains(place, placeholder))
      continue;
    text = base::replaceAll(text, placeholder, value);
    stretch = stretchOfPlaceholders(text);
  }
}

} // namespace mrd::templates
