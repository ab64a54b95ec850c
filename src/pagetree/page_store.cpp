#include "pagetree/page_store.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/paths/page_file.h"
#include "frame/settings/stored_settings.h"
#include "pagetree/page_id.h"

namespace mrd::pagetree {
namespace {

constexpr std::string_view kHeadingId = "ueberschrift";
constexpr std::string_view kNoHeading = "- - -";
constexpr std::size_t kHeadingLength = 255;
constexpr int kMessageDuplicatePage = 17, kMessageTooDeep = 19, kMessageTooMany = 20;
constexpr int kPageImage = 1;
constexpr int kLastPageType = 4;

std::string centredHeading(std::string_view label)
{
  return base::format("<h3 align=center style=\"font-size:16pt;\" id=\"ueberschrift\">{}</h3>\r\n<div align=center>&nbsp;</div>",
                      label);
}

bool hasServerCode(std::string_view fileName) { return base::contains(fileName, ".php") || base::contains(fileName, ".asp"); }

dao::Recordset rowsOf(dao::Database& db, std::string_view id)
{
  return db.openRecordset("SELECT * FROM Seite Where Seite.ID = ? ORDER BY ID;", {dao::Value(id)});
}

std::string textOr(const dao::Value& value, std::string_view fallback)
{
  return value.isNull() ? std::string(fallback) : value.text();
}

} // namespace

std::string withHeading(std::string_view html, std::string_view label)
{
  if (base::contains(html, kHeadingId))
    return std::string(html);
  return base::format("<h3 style=\"font-size:16pt;\" id=\"ueberschrift\">{}</h3>\r\n<div></div>{}", label, html);
}

void PageStore::LoadPage(std::string_view node, std::string_view Schluessel)
{
  const std::string key = Schluessel.empty() ? std::string(node) : keyOf(Schluessel);
  const std::string label = parts_.TreeView1.label(node);
  // Read before anything changes: what cannot be read must not leave the next page's key on the last page's text.
  auto row = rowsOf(parts_.db, idOf(key));
  parts_.active.DragErlaubt = false;
  parts_.active.LastActivePage = key;
  parts_.active.WriteLastActivePage();
  fields_.TBEbayArtikelnummer.clear();
  if (row.eof())
    showNewPage(label);
  else
    showStoredPage(row, label);
  fields_.statusPanel = "ID:" + std::string(node);
  parts_.language.ui().status(ui::StatusPlace::Panel1, fields_.statusPanel);
  parts_.active.PageDirty = false;
  parts_.active.ActiveNodeText = label;
  parts_.active.SetLastActivePage();
  keepActive(key);
  parts_.active.DragErlaubt = true;
}

void PageStore::keepActive(const std::string& key)
{
  // A project that could not be written remembers another page; the editor's text still belongs to this one.
  if (parts_.active.LastActivePage == key)
    return;
  parts_.active.LastActivePage = key;
  if (parts_.TreeView1.hasNode(key))
    parts_.TreeView1.select(key);
}

void PageStore::showStoredPage(dao::Recordset& row, std::string_view label)
{
  fields_.caption = "Mirandel: " + base::trim(row.value("Überschrift").text());
  const dao::Value type = row.value("seitentyp-id");
  fields_.opseitentyp = type.isNull() ? 1 : static_cast<int>(type.integer());
  if (row.value("html").isNull()) {
    hooks_.farbenaktualisieren();
    startDocument(centredHeading(label));
    hooks_.farbenaktualisieren();
    fields_.tbhtml = parts_.DHTMLEdit1.bodyInnerHtml();
  } else {
    const std::string html = withHeading(row.value("html").text(), label);
    parts_.DHTMLEdit1.setDocumentHtml(html);
    hooks_.farbenaktualisieren();
    fields_.tbhtml = html;
  }
  waitForDocument();
  fields_.tbdateiname = textOr(row.value("dateiname"), paths::kDefaultPattern);
  fields_.tbScript = textOr(row.value("script"), " ");
}

void PageStore::showNewPage(std::string_view label)
{
  fields_.caption = "Mirandel: Neue Seite";
  startDocument("<base fontsize=2>" + centredHeading(label));
  hooks_.farbenaktualisieren();
  fields_.tbhtml = parts_.DHTMLEdit1.bodyInnerHtml();
  fields_.tbdateiname = paths::kDefaultPattern;
}

void PageStore::startDocument(std::string_view labelledStart)
{
  auto& surface = parts_.DHTMLEdit1;
  surface.newDocument();
  waitForDocument();
  const std::string body = surface.bodyInnerHtml();
  if (!base::contains(body, kHeadingId))
    surface.setBodyInnerHtml(std::string(labelledStart) + body);
}

void PageStore::waitForDocument()
{
  while (parts_.DHTMLEdit1.busy())
    parts_.language.ui().pumpEvents();
}

bool PageStore::SavePage(std::string_view Schluessel)
{
  if (Schluessel.empty())
    return true;
  return failures::withStandardHandler(parts_.language, "SavePage", [&] {
    if (fields_.headOnTop)
      saveHead();
    else
      save(idOf(Schluessel));
  });
}

void PageStore::saveHead()
{
  settings::StoredSettings(parts_.db).set("KopfHTML", fields_.sourceOnTop ? fields_.tbhtml : parts_.DHTMLEdit1.bodyInnerHtml());
  parts_.active.PageDirty = false;
}

void PageStore::save(std::string_view id)
{
  auto row = rowsOf(parts_.db, id);
  if (row.recordCount() > 1) {
    parts_.language.GetMsg(kMessageDuplicatePage);
    return;
  }
  if (row.eof()) {
    row.addNew();
    row.set("id", id);
  } else {
    row.edit();
  }
  row.set("Überschrift", heading());
  if (fields_.sourceOnTop)
    parts_.DHTMLEdit1.setBodyInnerHtml(fields_.tbhtml);
  row.set("html", hasServerCode(fields_.tbdateiname) ? fields_.tbhtml : parts_.DHTMLEdit1.bodyInnerHtml());
  const bool isKnownType = fields_.opseitentyp >= 1 && fields_.opseitentyp <= kLastPageType;
  row.set("seitentyp-id", isKnownType ? fields_.opseitentyp : kLastPageType);
  row.set("dateiname", fields_.tbdateiname);
  row.set("script", fields_.tbScript);
  row.set("changingdate", parts_.clock.now().iso());
  row.update();
  const std::string active = parts_.active.LastActivePage;
  parts_.active.WriteLastActivePage();
  hooks_.WriteExpandedNodes();
  hooks_.ZeigeStruktur();
  if (!active.empty())
    keepActive(active);
  parts_.active.PageDirty = false;
}

std::string PageStore::heading() const
{
  auto& surface = parts_.DHTMLEdit1;
  surface.clearSelection();
  auto found = surface.textAroundCursor(kHeadingId);
  if (!found && base::contains(surface.bodyInnerHtml(), kHeadingId))
    found = surface.textOfElement(kHeadingId);
  const std::string text = base::trim(found.value_or(""));
  return std::string(base::left(text.empty() ? kNoHeading : std::string_view(text), kHeadingLength));
}

bool PageStore::AddNewPage()
{
  const std::string parentKey = parts_.active.LastActivePage;
  if (parentKey.empty())
    return false;
  if (idOf(parentKey).size() == kMaxIdLength) {
    parts_.language.GetMsg(kMessageTooDeep);
    return false;
  }
  auto& tree = parts_.TreeView1;
  if (!tree.expanded(parentKey))
    tree.setExpanded(parentKey, true);
  const std::string key = nextChildKey(parentKey);
  if (key.empty()) {
    parts_.language.GetMsg(kMessageTooMany);
    return false;
  }
  tree.addNode(parentKey, key, "neuer Eintrag: " + key, kPageImage);
  tree.setLabel(key, "neue Seite:" + key);
  tree.select(key);
  LoadPage(key);
  parts_.active.PageDirty = true;
  parts_.DHTMLEdit1.setFocus();
  return true;
}

std::string PageStore::nextChildKey(std::string_view parentKey)
{
  const auto& tree = parts_.TreeView1;
  const auto count = static_cast<int>(tree.childCount(parentKey));
  // The count plus one is free in a dense tree; one with gaps may have that number already.
  for (int number = count + 1; number <= kMaxChildren; ++number)
    if (std::string key = keyOf(childPrefix(parentKey) + formatNumber(number)); !tree.hasNode(key))
      return key;
  return {};
}

} // namespace mrd::pagetree
