#include "pictures/thumbnails.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/paths/page_file.h"
#include "frame/settings/export_path.h"
#include "pagetree/page_id.h"
#include "pictures/corners.h"
#include "pictures/gif.h"
#include "pictures/page_pictures.h"
#include "pictures/sizes.h"
#include "platform/html/document.h"
#include "platform/ui/progress.h"

namespace mrd::pictures {
namespace {

using image::Image;

constexpr int kQualityFactor = 40;
constexpr int kTelephonePx = 120;
constexpr int kExternal = 2, kAuction = 4;

constexpr std::string_view kNote = "Hinweis: Änderungen an den untergeordneten Seiten werden NICHT in die Thumbnails übernommen. "
                                   "Erstellen Sie bitte ggf. die Tumbnails neu.";
constexpr std::string_view kQuestion = "Sollen jetzte alle Vorschaubilder aktualisiert werden?";

Image small(std::string_view pfad, double longerSidePx, image::Colour background)
{
  return Image::loadResized(pfad, fitted(Image::sizeOf(pfad), longerSidePx), background);
}

std::string heading(const dao::Recordset& page) { return base::trim(page.value("Überschrift").text()); }

std::string linkTarget(const dao::Recordset& page)
{
  return paths::fileOfPattern(page.value("dateiname").text(), page.value("id").text());
}

bool isThumbs(const html::Element& element) { return element.attribute("id") == "thumbs"; }

bool liesInThumbs(const html::Element& element)
{
  for (auto above = element.parent(); above; above = above->parent())
    if (isThumbs(*above))
      return true;
  return false;
}

/// One that lies in another goes with its content.
std::vector<html::Element> outermostThumbs(html::Document& page)
{
  auto elements = page.elementsByTag("*");
  std::erase_if(elements, [](const html::Element& e) { return !isThumbs(e) || liesInThumbs(e); });
  return elements;
}

/// As it stands in a value within single quotes.
std::string inSingleQuotes(std::string_view text) { return base::replaceAll(inPage(text), "'", "&#39;"); }

} // namespace

std::string vorschaubild_jpg(std::string_view pfad, const settings::Fields& fields)
{
  const auto parts = paths::teile_dateipfad(pfad);
  auto vorschauname = parts.name + "_xs.jpg";
  if (!fields.CheckVorschauBilderNeu && paths::datei_vorhanden(parts.verzeichnis + vorschauname))
    return vorschauname;
  const double maximum = base::numericValue(fields.tbVorschauBreite);
  if (fits(Image::sizeOf(pfad), maximum))
    return parts.name + "." + parts.erweiterung;
  if (maximum < 1)
    throw base::Error(base::ErrorNumber::InvalidCall,
                      base::format("\"{}\" ist keine Größe für Vorschaubilder.", fields.tbVorschauBreite));
  small(pfad, maximum, colourOf(fields.tbhintergrund)).saveJpeg(parts.verzeichnis + vorschauname, kQualityFactor);
  return vorschauname;
}

std::string telephoneName(std::string_view pfad) { return paths::teile_dateipfad(pfad).name + "_xs.gif"; }

std::string vorschaubild_gif(std::string_view pfad, const settings::Fields& fields)
{
  const auto parts = paths::teile_dateipfad(pfad);
  auto vorschauname = telephoneName(pfad);
  const auto target = settings::withClosingSeparator(fields.tbpfadexport) + "imode\\pix\\" + base::lower(vorschauname);
  if (paths::datei_vorhanden(target))
    return vorschauname;
  if (fits(Image::sizeOf(pfad), kTelephonePx))
    return parts.name + "." + parts.erweiterung;
  writeSmallGif(pfad, target, colourOf(fields.tbhintergrund));
  return vorschauname;
}

bool writeSmallGif(std::string_view pfad, std::string_view target, image::Colour background)
{
  const bool isSmall = fits(Image::sizeOf(pfad), kTelephonePx);
  return GIF::SaveGIF(isSmall ? Image::loadWithPalette(pfad, background) : small(pfad, kTelephonePx, background), target);
}

bool Thumbnails::MakeThumbs(std::string_view seite)
{
  bool isDone = false;
  const bool isMade = failures::withStandardHandler(parts_.language, "MakeThumbs", [&] { isDone = makeThumbs(seite); });
  // Of one page among all they are told with those of the others.
  if (seite.empty())
    parts_.language.ui().tellWarnings();
  return isMade && isDone;
}

bool Thumbnails::makeThumbs(std::string_view seite)
{
  auto& ui = parts_.language.ui();
  bool isDone = false;
  {
    const WorkOnPictures work(parts_.frmBildkonvertierer);
    const ui::WaitPointer wait(ui);
    ui.status(ui::StatusPlace::Run, "Vorschaubilder werden generiert ... ");
    const auto id = seite.empty() ? pagetree::idOf(parts_.TreeView1.selected().value_or("")) : std::string(seite);
    if (const auto table = tableOf(id == pagetree::kRootId ? "" : id)) {
      putIntoPage(*table);
      parts_.active.PageDirty = true;
      isDone = true;
    }
  }
  if (!seite.empty())
    return isDone;
  ui.status(ui::StatusPlace::Run, "");
  if (isDone && parts_.fields.CheckVorschauMeldung)
    ui.messageBox({std::string(kNote), ""});
  return isDone;
}

std::optional<std::string> Thumbnails::tableOf(const std::string& id)
{
  auto pages =
      parts_.db.openRecordset("SELECT * FROM Seite WHERE (ID like ?) and (ID<>'00') ORDER BY ID", {dao::Value(id + "??")});
  const double perRow = base::numericValue(parts_.fields.tbVorschauAnzahl);
  std::string table = "<table border=\"0\">";
  int n = 1;
  for (; !pages.eof(); pages.moveNext()) {
    if (n == 1)
      table += "<tr>";
    table += cellOf(pages);
    if (n == perRow) {
      table += "</tr>";
      n = 1;
    } else {
      ++n;
    }
    if (parts_.language.ui().pumpEvents() || parts_.frmBildkonvertierer.isStopped())
      return std::nullopt;
  }
  if (!table.ends_with("</tr>"))
    table += "</tr>";
  return table + "</table>";
}

/// A heading that contains HTML stays HTML, as in the rows of generated pages.
std::string Thumbnails::cellOf(const dao::Recordset& page)
{
  const auto target = linkPrefix() + linkTarget(page), title = heading(page);
  const auto thumbnail = thumbnailOf(page);
  if (!thumbnail)
    return base::format("<td align='center'><a href='{}'>{}</a></td>", inSingleQuotes(target), title);
  return base::format(R"(<td align="center"><a href="{}" title="{}"><img src="{}" border="0"><br>{}</a></td>)", inPage(target),
                      title, inPage(*thumbnail), parts_.fields.OptionVorschauMitTitel ? title : "");
}

/// Path of the small picture for the first picture of the page; nothing where there is no such file.
std::optional<std::string> Thumbnails::thumbnailOf(const dao::Recordset& page)
{
  auto document = html::Document::fromText(page.value("html").text());
  const auto images = document.images();
  if (images.empty())
    return std::nullopt;
  const auto parts = localParts(images.front().attribute("src").value_or(""));
  parts_.language.ui().status(ui::StatusPlace::Run,
                              base::format("{}: {}.{}", page.value("Überschrift").text(), parts.name, parts.erweiterung));
  if (!paths::datei_vorhanden(pathOf(parts)))
    return std::nullopt;
  try {
    return parts.verzeichnis + vorschaubild_jpg(pathOf(parts), parts_.fields);
  } catch (const base::Error& error) {
    // One damaged picture does not take the others their table; its place in it stays empty.
    ++damaged_;
    parts_.language.ui().warning(error.description());
    return parts.verzeichnis + parts.name + "_xs.jpg";
  }
}

/// Pages of these types are shown from outside of the site, so their links name it in full.
std::string Thumbnails::linkPrefix()
{
  if (parts_.page.opseitentyp != kExternal && parts_.page.opseitentyp != kAuction)
    return {};
  auto& address = parts_.fields.tbbasisurl;
  if (!address.ends_with('/'))
    address += '/';
  return paths::basislinkOf(address);
}

void Thumbnails::putIntoPage(const std::string& table)
{
  auto& surface = parts_.DHTMLEdit1;
  const auto present = surface.bodyInnerHtml();
  auto page = html::Document::fromText(present);
  bool found = false;
  for (auto& element : outermostThumbs(page)) {
    element.setInnerHtml(table);
    found = true;
  }
  surface.setBodyInnerHtml(found ? page.body().innerHtml()
                                 : present + std::string(base::kCrLf) + "<div align=center id=thumbs>" + table + "</div>");
}

bool Thumbnails::isRenewalWanted()
{
  const ui::MessageBox question{std::string(kQuestion), "Vorschaubilder", ui::box::kYesNo + ui::box::kQuestion};
  return parts_.language.ui().messageBox(question) == ui::Button::Yes;
}

bool Thumbnails::renewAll(pagetree::PageStore& store)
{
  auto& ui = parts_.language.ui();
  try {
    const bool allDone = renewEach(store);
    ui.tellWarnings();
    return allDone;
  } catch (...) {
    // They belong to this work, not to the next.
    ui.tellWarnings();
    throw;
  }
}

bool Thumbnails::renewEach(pagetree::PageStore& store)
{
  auto& ui = parts_.language.ui();
  if (parts_.active.PageDirty && !store.SavePage(parts_.active.LastActivePage))
    return false;
  std::vector<std::string> ids;
  for (auto pages = parts_.db.openRecordset("SELECT * FROM Seite"); !pages.eof(); pages.moveNext())
    if (base::contains(pages.value("html").text(), "thumbs"))
      ids.push_back(pages.value("id").text());
  const WorkOnPictures work(parts_.frmBildkonvertierer, ids.size());
  const ui::Progress progress(ui);
  bool allDone = true;
  for (std::size_t done = 0; done < ids.size() && !parts_.frmBildkonvertierer.isStopped(); ++done) {
    ui.progress(done, ids.size());
    parts_.frmBildkonvertierer.progress(done);
    const auto key = pagetree::keyOf(ids[done]);
    parts_.bringIn(key);
    // Where a page above is missing, nobody can reach the page, and nothing generates it.
    if (!parts_.TreeView1.hasNode(key))
      continue;
    store.LoadPage(key, ids[done]);
    // A page whose table could not be made stays as it is stored.
    allDone = MakeThumbs(ids[done]) && store.SavePage(key) && allDone;
  }
  return allDone;
}

} // namespace mrd::pictures
