#include "editor/table_properties.h"

#include "base/text.h"
#include "frame/settings/fields.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace mrd::editor {
namespace {

/// Colour number of a colour text; white for one that is none.
int colourOf(const std::string& text)
{
  constexpr int kWhite = 0xFFFFFF, kHexadecimal = 16;
  constexpr std::size_t kPrefix = 2;
  const std::string number = settings::html_zu_farbe(text);
  char* end = nullptr;
  const long colour = number.size() > kPrefix ? std::strtol(number.c_str() + kPrefix, &end, kHexadecimal) : kWhite;
  return end && *end == '\0' ? static_cast<int>(colour & kWhite) : kWhite;
}

} // namespace

FrmTabelleneigenschaften::FrmTabelleneigenschaften(messages::Language& language, ui::EditingSurface& DHTMLEdit1,
                                                   std::function<void()> pageChanged)
    : language_(language), surface_(DHTMLEdit1), pageChanged_(std::move(pageChanged)),
      cell_("td", {{"align", &tb_td_align}, {"width", &tb_td_width}, {"bgcolor", &tb_td_bgcolor}, {"colspan", &tb_td_colspan}}),
      row_("tr", {{"valign", &tb_tr_valign}, {"bgcolor", &tb_tr_bgcolor}}),
      table_("table", {{"width", &tb_table_width},
                       {"bgcolor", &tb_table_bgcolor},
                       {"border", &tb_table_border},
                       {"cellPadding", &tb_table_cellpadding},
                       {"cellSpacing", &tb_table_cellspacing}})
{
}

void FrmTabelleneigenschaften::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void FrmTabelleneigenschaften::EigenschaftenErmitteln(const ui::PageElement& element)
{
  std::vector<clsTag*> wanted{&cell_, &row_, &table_};
  for (std::optional<ui::PageElement> at = element; at; at = at->parentElement()) {
    const std::string name = base::lower(at->tagName());
    // "hmtl" is no element at all: the walk ends at the body.
    if (name == "body" || name == "hmtl")
      break;
    const auto found = std::ranges::find(wanted, name, &clsTag::TagName);
    if (found == wanted.end())
      continue;
    (*found)->AttributeErmitteln(*at);
    wanted.erase(found);
  }
}

void FrmTabelleneigenschaften::write(std::initializer_list<clsTag*> tags)
{
  if (std::ranges::none_of(tags, [](const clsTag* tag) { return tag->Element().has_value(); }))
    return;
  const ui::UndoStep step(surface_);
  for (clsTag* const tag : tags)
    tag->AttributeSetzen();
  pageChanged_();
}

void FrmTabelleneigenschaften::cbok_Click()
{
  write({&cell_, &row_, &table_});
  window.unload();
}

void FrmTabelleneigenschaften::cbfarbe_Click(int index)
{
  const std::array boxes{&tb_td_bgcolor, &tb_tr_bgcolor, &tb_table_bgcolor, &tb_tr_bgcolor2};
  if (index < 0 || static_cast<std::size_t>(index) >= boxes.size())
    return;
  auto& box = *boxes[static_cast<std::size_t>(index)];
  if (const auto colour = language_.ui().colourDialog(colourOf(box))) {
    box = settings::farbe_zu_html(*colour);
    window.refresh();
  }
}

void FrmTabelleneigenschaften::cb_tr_Farbwechsel_Click()
{
  const auto parent = row_.Element() ? row_.Element()->parentElement() : std::nullopt;
  if (!parent)
    return;
  const ui::UndoStep step(surface_);
  int counter = 1;
  for (auto& child : parent->children()) {
    if (base::lower(child.tagName()) != "tr")
      continue;
    child.setAttribute("bgColor", counter % 2 == 1 ? tb_tr_bgcolor : tb_tr_bgcolor2);
    ++counter;
  }
  pageChanged_();
}

} // namespace mrd::editor
