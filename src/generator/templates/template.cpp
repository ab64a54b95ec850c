#include "generator/templates/template.h"

#include "base/errors.h"
#include "base/text.h"
#include "frame/paths/page_file.h"

#include <algorithm>

namespace mrd::templates {
namespace {

constexpr std::string_view kDateiname = "[mrd:Dateiname]";
constexpr std::string_view kStrip = "[mrd:BlätternNavigation]";
constexpr std::string_view kLink = "[mrd:ID]";
constexpr std::string_view kBase = "[mrd:Kompletterlink]";
constexpr std::string_view kHomepageId = "00";
constexpr std::string_view kRootName = "root";
/// What placeholders that headings bring in may add to a level's rows, in bytes. Two of them in each heading double the rows with
/// each row.
constexpr std::size_t kMostGrowth = 1'000'000;

/// What a node below a row is given.
TemplatePage pageOfRow(std::string_view Seitenid, const PageRow& row, PageSource& pages)
{
  auto [html, script] = pages.text(row.id);
  return {std::string(Seitenid), row.Überschrift, std::move(html), row.seitentyp, row.dateiname, std::move(script)};
}

/// Whether a row's text still holds what a later row's values would fill.
bool holdsPagePlaceholder(std::string_view text)
{
  return base::contains(text, "[mrd:Überschrift]") || base::contains(text, kStrip) || base::contains(text, kLink) ||
         base::contains(text, kBase);
}

} // namespace

HTMLTemplates::HTMLTemplates() = default;
HTMLTemplates::~HTMLTemplates() = default;

Template& HTMLTemplates::Add(std::unique_ptr<Template> neuestemplate, std::string_view sKey)
{
  nodes_.push_back(std::move(neuestemplate));
  if (!sKey.empty())
    keys_.insert_or_assign(std::string(sKey), nodes_.back().get());
  return *nodes_.back();
}

Template& HTMLTemplates::AddNew(bool isMenuitem, std::string_view Code, std::string_view CodeActive,
                                std::string_view TemplateName, std::string_view sKey)
{
  auto node = std::make_unique<Template>();
  node->isMenuitem = isMenuitem;
  node->Code = Code;
  node->CodeActive = CodeActive;
  node->TemplateName = TemplateName;
  return Add(std::move(node), sKey);
}

Template& HTMLTemplates::Item(std::size_t position) const
{
  if (position < 1 || position > nodes_.size())
    throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Element nicht gefunden: " + std::to_string(position));
  return *nodes_[position - 1];
}

Template& HTMLTemplates::Item(std::string_view sKey) const
{
  const auto found = keys_.find(sKey);
  const auto isNode = [&](const auto& node) { return found != keys_.end() && node.get() == found->second; };
  const auto node = std::ranges::find_if(nodes_, isNode);
  if (node == nodes_.end())
    throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Element nicht gefunden: " + std::string(sKey));
  return **node;
}

void HTMLTemplates::Remove(std::size_t position)
{
  const Template* const removed = &Item(position);
  std::erase_if(keys_, [removed](const auto& key) { return key.second == removed; });
  nodes_.erase(nodes_.begin() + static_cast<std::ptrdiff_t>(position) - 1);
}

bool Template::closesText() const
{
  return TemplateName == kRootName || std::ranges::any_of(Children, [](const auto& child) { return child->closesText(); });
}

Template& Template::spare()
{
  if (!spare_)
    spare_ = std::make_unique<Template>();
  return *spare_;
}

std::string Template::getHtmlZeile(const TemplatePage& page, std::string_view parent, int seitentyp, const TemplateSite& site)
{
  std::string result;
  if (isMenuitem) {
    result = menuRows(page, parent, seitentyp, site);
  } else {
    result.append(Code).append(base::kCrLf);
    for (const auto& child : Children)
      result += child->getHtmlZeile(page, parent, seitentyp, site);
  }
  if (TemplateName == kRootName)
    closePage(result, page, seitentyp, site);
  return result.append(base::kCrLf).append(base::kCrLf);
}

std::string Template::menuRows(const TemplatePage& page, std::string_view parent, int seitentyp, const TemplateSite& site)
{
  MenuRows rows;
  for (const PageRow* const row : site.pages.level(parent)) {
    const bool hit = page.Seitenid.starts_with(row->id);
    appendRow(rows, *row, row->id == page.Seitenid || (hit && isActiveMenuitem), seitentyp, site);
    if ((hit || isShowChildren) && hasChildren())
      rows.leftover |= appendRowChildren(rows.text, page, *row, site);
  }
  return std::move(rows.text);
}

void Template::appendRow(MenuRows& rows, const PageRow& row, bool active, int seitentyp, const TemplateSite& site)
{
  mrd::templates::SeitenAttribute list;
  list.Add("[mrd:Überschrift]", row.Überschrift);
  list.Add(kDateiname, base::lower(row.dateiname));
  std::string text = active ? CodeActive : Code;
  text += base::kCrLf;
  // A row's values reach all that stands before it too; as a rule nothing is left there for them.
  if (rows.leftover && rows.growth < kMostGrowth) {
    rows.text += text;
    const std::size_t before = rows.text.size();
    HTMSetzeInhalte(rows.text, row.id, seitentyp, list, site);
    rows.growth += rows.text.size() - std::min(before, rows.text.size());
    rows.leftover = holdsPagePlaceholder(rows.text);
  } else {
    HTMSetzeInhalte(text, row.id, seitentyp, list, site);
    rows.leftover |= holdsPagePlaceholder(text);
    rows.text += text;
  }
}

bool Template::appendRowChildren(std::string& result, const TemplatePage& page, const PageRow& row, const TemplateSite& site)
{
  bool leftover = false;
  for (const auto& child : Children) {
    if (row.id == kHomepageId && child->isMenuitem)
      continue;
    const std::string text = child->closesText()
                                 ? child->getHtmlZeile(pageOfRow(page.Seitenid, row, site.pages), row.id, row.seitentyp, site)
                                 : child->getHtmlZeile(page, row.id, row.seitentyp, site);
    leftover |= holdsPagePlaceholder(text);
    result += text;
  }
  return leftover;
}

void Template::closePage(std::string& result, const TemplatePage& page, int seitentyp, const TemplateSite& site)
{
  HTMSetzeAttribute(result);
  mrd::templates::SeitenAttribute list;
  list.Add("[mrd:Überschrift]", page.Überschrift);
  list.Add("[mrd:SeitenID]", page.Seitenid);
  list.Add(kDateiname, page.dateiname);
  list.Add("[mrd:Inhalt]", page.html);
  list.Add("[mrd:script]", page.script);
  HTMSetzeInhalte(result, page.Seitenid, seitentyp, list, site);
  result = site.HTMBilderAnpassen(result, basislink_);
  HTMSetzeAttribute(result);
}

void Template::HTMSetzeInhalte(std::string& html, std::string_view Seitenid, int aktuelleSeitentypid,
                               const mrd::templates::SeitenAttribute& InhaltsAttribute, const TemplateSite& site)
{
  const std::string_view id = Seitenid == kHomepageId ? "index" : Seitenid;
  if (base::contains(html, kStrip)) {
    NavInfo.AktuelleSeitenId(id, aktuelleSeitentypid, site.pages, site.tbbasisurl);
    html = base::replaceAll(html, kStrip, NavInfo.getBlätternNavigation(Blätterntyp));
  }
  replaceAttributes(html, InhaltsAttribute, kDateiname);
  for (const auto& [placeholder, pattern] : InhaltsAttribute) {
    if (placeholder != kDateiname)
      continue;
    const std::string file = paths::fileOfPattern(pattern, id);
    basislink_ = basislinkFor(aktuelleSeitentypid, site.tbbasisurl);
    html = base::replaceAll(html, kBase, basislink_);
    const bool isAddress = base::lower(base::left(file, 7)) == "http://";
    html = base::replaceAll(html, kLink, isAddress ? file : basislink_ + file);
  }
}

} // namespace mrd::templates
