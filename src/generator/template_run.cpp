#include "generator/template_run.h"

#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "frame/paths/page_file.h"
#include "generator/head_tags.h"
#include "generator/placeholders.h"
#include "generator/templates/built_in_trees.h"
#include "generator/templates/xml_layout.h"
#include "platform/files/path.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mrd::generator {
namespace {

using base::kCrLf;
using templates::Template;

constexpr RunDifferences kDifferences{"ID", false, "Fertig! Es wurden # Seiten generiert!", true};
constexpr std::array<std::string_view, 4> kBuiltInLayouts{"", "tabnavigation", "sparta", "einfachetabelle"};
constexpr std::array<std::string_view, 7> kPictures{"mrdbanner.gif",  "pixel.gif",    "nav_home.gif", "nav_links.gif",
                                                    "nav_rechts.gif", "nav_oben.gif", "nav_top.gif"};

struct UmlautEntity {
  std::string_view umlaut, entity;
};
/// Umlauts begin with this byte in UTF-8.
constexpr char kUmlautLead = '\xC3';
constexpr UmlautEntity kEntities[] = {{"ä", "&auml;"}, {"Ä", "&Auml;"}, {"ö", "&ouml;"}, {"Ö", "&Ouml;"},
                                      {"ü", "&uuml;"}, {"Ü", "&Uuml;"}, {"ß", "&szlig;"}};

void addNode(std::vector<Template*>& path, const templates::TreeNode& row, const templates::SeitenAttribute& site)
{
  path.resize(static_cast<std::size_t>(row.depth));
  auto& node = path.back()->Children.AddNew((row.flags & templates::M) != 0, row.Code, row.CodeActive, row.TemplateName);
  node.isActiveMenuitem = (row.flags & templates::A) != 0;
  node.isShowChildren = (row.flags & templates::S) != 0;
  node.SeitenAttribute = site;
  path.push_back(&node);
}

} // namespace

std::string layoutName(const settings::ComboBox& ComboGrundlayout)
{
  const auto index = static_cast<std::size_t>(ComboGrundlayout.ListIndex);
  if (index < kBuiltInLayouts.size())
    return std::string(kBuiltInLayouts[index]);
  const std::string_view text = ComboGrundlayout.Text;
  // An entry without a file in brackets, such as the heading of the users' layouts, names no layout that exists.
  const auto bracket = text.find(" (");
  const std::size_t start = bracket == std::string_view::npos ? 1 : bracket + 2;
  return text.size() <= start ? std::string() : std::string(text.substr(start, text.size() - start - 1));
}

std::string wandelUmlaute(std::string_view text)
{
  std::string out;
  out.reserve(text.size());
  std::size_t copied = 0;
  for (auto at = text.find(kUmlautLead); at != std::string_view::npos; at = text.find(kUmlautLead, at)) {
    const auto* const known =
        std::ranges::find_if(kEntities, [&](const auto& row) { return text.substr(at).starts_with(row.umlaut); });
    if (known == std::end(kEntities)) {
      ++at;
      continue;
    }
    out.append(text.substr(copied, at - copied)).append(known->entity);
    copied = at += known->umlaut.size();
  }
  return out.append(text.substr(copied));
}

TemplateRun::TemplateRun(const RunJob& job)
    : GenerationRun(job, kDifferences), pages_(index_, job.db),
      pictures_(job.environment.program, job.exportpfad, register_, job.environment.fields.tbbasisurl)
{
  ui_.status(ui::StatusPlace::Panel1, "Generator wird gestartet ");
}

void TemplateRun::bringSiteFiles()
{
  root_ = LadeTemplate(layoutName(fields_.ComboGrundlayout));
  for (const auto picture : kPictures)
    if (!siteFiles_.bringPicture(picture))
      ui_.messageBox({base::format("Datei {} nicht gefunden.", picture), std::string(base::kProductName)});
  siteFiles_.bringScripts();
  siteFiles_.bringPictureTransferScript();
}

std::unique_ptr<Template> TemplateRun::LadeTemplate(std::string_view Grundlayout)
{
  auto root = std::make_unique<Template>();
  root->SeitenAttribute = siteList();
  erzeugeStylesheet(root->SeitenAttribute);
  root->TemplateName = "root";
  root->Blätterntyp = fields_.ComboBlättern.ListIndex;
  root->NavInfo.Homepage.setDateiname(paths::kDefaultPattern);
  root->NavInfo.Homepage.Seitenid = kHomepageId;
  root->NavInfo.Homepage.Überschrift = kHomepageName;
  if (templates::builtInTree(Grundlayout).empty())
    addUserLayout(*root, Grundlayout);
  else
    addTree(*root, Grundlayout);
  return root;
}

void TemplateRun::addTree(Template& root, std::string_view Grundlayout) const
{
  std::vector<Template*> path{&root};
  for (const auto& row : templates::builtInTree(Grundlayout))
    if (row.TemplateName != templates::kStartnavName || templates::isAfloat(root.Blätterntyp))
      addNode(path, row, root.SeitenAttribute);
}

void TemplateRun::addUserLayout(Template& root, std::string_view file) const
{
  const std::string path = environment_.program.file("\\xml\\" + std::string(file));
  if (!paths::datei_vorhanden(path)) {
    ui_.messageBox({base::format("Folgende Layoutdatei wurde nicht gefunden:\r\n{}", path), std::string(base::kProductName)});
    return;
  }
  if (!templates::LadeAusDatei(root, path))
    ui_.warning("Das Layout ist nicht wohlgeformt: " + files::nativePath(path).string());
  root.Children.AddNew(false, "", "", "mrdBanner");
  if (templates::isAfloat(root.Blätterntyp))
    root.Children.AddNew(false, templates::kStartnav, "", templates::kStartnavName);
}

std::string TemplateRun::scriptBlock() const
{
  const int strip = fields_.ComboBlättern.ListIndex;
  std::string block = metaTags(kTemplateHead, fields_, now_);
  block += popupScript(kTemplateHead).append(kCrLf);
  block += "<script src='[mrd:Kompletterlink]picturetransfer.js' TYPE='text/javascript'></script>\r\n";
  if (templates::isAfloat(strip))
    block += "<SCRIPT language='Javascript1.2' src='[mrd:Kompletterlink]mrdnav.js' type='text/javascript'></SCRIPT>\r\n";
  else
    block += base::format("<!-- Blättern-Typ:{} -->\r\n", strip);
  block += "<!-- benutzerdef. Script -->\r\n";
  block += "[mrd:script]\r\n";
  return block;
}

templates::SeitenAttribute TemplateRun::siteList() const
{
  const auto colour = [](std::string_view text) { return "#" + std::string(colourDigits(text)); };
  templates::SeitenAttribute list;
  list.Add("[mrd:Schriftart]", fields_.tbschriftart);
  list.Add("[mrd:Hintergrundfarbe]", colour(fields_.tbhintergrund));
  list.Add("[mrd:Hintergrundfarbeaussen]", colour(fields_.tbhintergrundaussen));
  list.Add("[mrd:Textfarbe]", colour(fields_.tbText));
  list.Add("[mrd:Menütextfarbe]", colour(fields_.tbmenütext));
  list.Add("[mrd:Tabellenfarbe]", colour(fields_.Tbtabelle));
  list.Add("[mrd:Menüaktivfarbe]", colour(fields_.tbmenü));
  list.Add("[mrd:Hyperlinkfarbe]", colour(fields_.tbHyperlink));
  list.Add("[mrd:Inhaltbreite]", fields_.ComboInhalt.Text);
  list.Add("[mrd:Kopf]", job_.head);
  list.Add("[mrd:Tabellenfarbeinaktiv]", colour(fields_.tbRahmeninaktiv));
  list.Add("[mrd:Titel]", fields_.tbtitel);
  list.Add("[mrd:Scripts]", scriptBlock());
  list.Add("[mrd:GenDat]", base::format("{:02}.{:02}.{:04}", now_.day, now_.month, now_.year));
  return list;
}

void TemplateRun::erzeugeStylesheet(const templates::SeitenAttribute& site)
{
  const std::string master = base::decodeText(files::readFile(environment_.program.file("\\mrddefault.css")));
  std::string sheet = base::toCrLf(master);
  if (!sheet.empty() && !sheet.ends_with(kCrLf))
    sheet += kCrLf;
  templates::replaceAttributes(sheet, site);
  const std::string target = pathOf("mrdstyle.css");
  files::OutputFile output{std::string_view(target)};
  output.write(base::toWindows1252(sheet));
  output.close();
  register_.dateiindatenbank(target, project::Dateityp::Page);
}

void TemplateRun::generatePages(dao::Recordset& pages)
{
  for (; !pages.eof(); pages.moveNext()) {
    if (!nextTurn())
      return;
    generatePage(readPage(pages));
  }
  outcome_.finished = true;
}

void TemplateRun::closeRun() { ui_.status(ui::StatusPlace::Panel1, ""); }

std::string TemplateRun::fileFor(const RunPage& page) const
{
  const std::string_view id = page.id == kHomepageId ? "index" : std::string_view(page.id);
  return paths::fileOfPattern(job_.tbNamenszusatz + std::string(paths::writtenPattern(page.dateiname)), id);
}

void TemplateRun::generatePage(const RunPage& page)
{
  const std::string file = fileFor(page);
  if (outcome_.startdatei.empty())
    outcome_.startdatei = file;
  auto output = openPage(page, file);
  if (!output)
    return;
  ui_.status(ui::StatusPlace::Panel1, base::format("Generator: {}: {}", page.id, page.Überschrift));
  const int type = page.seitentyp.value_or(0);
  const templates::TemplatePage templatePage{page.id, page.Überschrift, page.html.value_or(""),
                                             type,    page.dateiname,   page.script.value_or("")};
  const templates::TemplateSite site{pages_, fields_.tbbasisurl, [this](const std::string& text, std::string_view basislink) {
                                       return pictures_.HTMBilderAnpassen(text, basislink);
                                     }};
  bytes_.clear();
  base::appendWindows1252(bytes_, wandelUmlaute(root_->getHtmlZeile(templatePage, kHomepageId, type, site)));
  output->write(bytes_.append(kCrLf));
  closePage(*output, file);
}

} // namespace mrd::generator
