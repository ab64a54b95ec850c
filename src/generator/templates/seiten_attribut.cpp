#include "generator/templates/seiten_attribut.h"

#include "base/errors.h"
#include "base/text.h"

namespace mrd::templates {
namespace {

[[noreturn]] void noSuchRecord(const std::string& which)
{
  throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Element nicht gefunden: " + which);
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
  for (const auto& [placeholder, value] : attributes)
    if (placeholder != except && base::contains(text, placeholder))
      text = base::replaceAll(text, placeholder, value);
}

} // namespace mrd::templates
