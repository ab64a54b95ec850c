#include "editor/cls_tag.h"

#include "base/text.h"

#include <algorithm>

namespace mrd::editor {

namespace {

char lowered(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

} // namespace

void clsTagAttribut::getValueFromElement(const ui::PageElement& element)
{
  const auto value = element.getAttribute(AttName);
  Value = value.value_or("");
  if (value) {
    // Names of attributes are plain letters: nothing else need be lowered, and places stay places.
    const std::string html = element.outerHTML();
    const auto found = std::ranges::search(html, AttName, [](char a, char b) { return lowered(a) == lowered(b); });
    if (!found.empty())
      AttName.assign(found.begin(), found.end());
  }
  if (Feld)
    *Feld = Value;
}

clsTagAttribut& ColAttribute::Add(std::string AttName, std::string* Feld)
{
  return members_.emplace_back(std::move(AttName), Feld);
}

clsTagAttribut* ColAttribute::Item(std::string_view AttName)
{
  const auto found = std::ranges::find(members_, base::lower(AttName), [](const auto& one) { return base::lower(one.AttName); });
  return found == members_.end() ? nullptr : &*found;
}

void ColAttribute::Remove(std::string_view AttName)
{
  std::erase_if(members_, [&](const auto& one) { return base::lower(one.AttName) == base::lower(AttName); });
}

void clsTag::AttributeErmitteln(const ui::PageElement& element)
{
  Element_ = element;
  ColAttribute.clear();
  for (const auto& [attribute, field] : boxes_)
    ColAttribute.Add(std::string(attribute), field).getValueFromElement(element);
}

void clsTag::AttributeSetzen()
{
  if (!Element_)
    return;
  for (auto& attribute : ColAttribute) {
    Element_->removeAttribute(attribute.AttName);
    if (attribute.Feld && !attribute.Feld->empty())
      Element_->setAttribute(attribute.AttName, *attribute.Feld);
  }
}

} // namespace mrd::editor
