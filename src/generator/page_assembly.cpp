#include "generator/page_assembly.h"

#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "generator/head_tags.h"
#include "generator/placeholders.h"

#include <string_view>

namespace mrd::generator {
namespace {

using base::format;
using base::kCrLf;

/// Level of a page in the tree, 1 to 4 below the homepage; 0 for the homepage and for an id that is too short to have one.
std::size_t levelOf(std::string_view id) { return id == kHomepageId ? 0 : base::length(id) / 2; }

std::string link(std::string_view href, std::string_view text)
{
  return format("<a href='{}'><FONT color=[mrd:Menütextfarbe]>{}</font></a>", href, text);
}

PageLink linkTo(const IndexedPage& page) { return {page.id, page.Überschrift, fileOfPattern(page.dateiname, page.id)}; }

} // namespace

Ancestors::Ancestors(const PageLink& homepage) { levels_[0] = {homepage.id, std::string(kHomepageName), homepage.file}; }

void Ancestors::takeUp(const RunPage& page, std::string_view file)
{
  const std::size_t level = levelOf(page.id);
  if (page.id == kHomepageId)
    levels_[0].file = file;
  else if (level < kLevels)
    levels_[level] = {page.id, page.Überschrift, std::string(file)};
}

const PageLink& Ancestors::parentOf(std::string_view id) const
{
  const std::size_t level = levelOf(id);
  return level >= 1 && level <= kLevels ? levels_[level - 1] : none_;
}

bool hasServerCode(std::string_view dateiname) { return base::contains(dateiname, ".php") || base::contains(dateiname, ".asp"); }

struct PageAssembly::Frame {
  std::string documentHead, styleToBody, menuStart, homepageActive, homepageLink, menuEnd, documentEnd;
  NavigationMenu menu;
};

PageAssembly::PageAssembly(SiteContext site) : site_(std::move(site)), rows_(htmldefs(site_.fields)) {}

PageAssembly::~PageAssembly() = default;

std::string_view PageAssembly::assemble(const RunPage& page, std::string_view basislink, const RewrittenBody* body,
                                        const PageLink& parent, const PageEffects& effects)
{
  const Frame& frame = frameFor(basislink);
  buffer_.clear();
  buffer_ += frame.documentHead;
  printScripts(page, basislink, effects);
  printTitle(page, basislink);
  buffer_ += frame.styleToBody;
  const RewrittenBody& sharedHead = sharedHeadFor(basislink);
  effects.headPictures(sharedHead.found.uses);
  buffer_ += sharedHead.bytes;
  buffer_ += frame.menuStart;
  buffer_ += page.id == kHomepageId ? frame.homepageActive : frame.homepageLink;
  const MenuNeighbours neighbours = frame.menu.print(buffer_, page.id);
  buffer_ += frame.menuEnd;
  if (body != nullptr)
    effects.bodyPictures(body->found.uses);
  printBody(page, basislink, body);
  printPageTurn(page, basislink, neighbours, parent);
  buffer_ += frame.documentEnd;
  return buffer_;
}

const PageAssembly::Frame& PageAssembly::frameFor(std::string_view basislink)
{
  if (const auto known = frames_.find(basislink); known != frames_.end())
    return *known->second;
  auto frame = std::make_unique<Frame>(
      Frame{documentHead(basislink), defaultRows({3, 4, 5, 6, 7}, basislink), defaultRows({9, 10}, basislink),
            homepageEntry(kHomepageActive, basislink), homepageEntry(kHomepageLink, basislink), defaultRows({13, 14}, basislink),
            defaultRows({kDocumentEnd}, basislink), NavigationMenu(site_.index, rows_, site_.fields, std::string(basislink))});
  return *frames_.emplace(basislink, std::move(frame)).first->second;
}

const RewrittenBody& PageAssembly::sharedHeadFor(std::string_view basislink)
{
  std::string& tbbasisurl = site_.fields.tbbasisurl;
  const auto [entry, isNew] = sharedHeads_.try_emplace({std::string(basislink), tbbasisurl});
  RewrittenBody& head = entry->second;
  if (isNew) {
    auto document = html::Document::fromText(site_.head);
    head.found = findebilder(document, {site_.exportpfad, std::string(basislink), tbbasisurl});
    // The colours go in before the head does: a placeholder that the author wrote into the head stays as it stands.
    const std::string row = farbzuweisung(rows_[kSharedHead], site_.fields);
    const std::string filled = base::replaceAll(row, "[mrd:Kopf]", document.body().innerHtml());
    head.bytes = base::toWindows1252(mitbasis(filled, basislink).append(kCrLf));
  }
  if (head.found.slashAppended && !tbbasisurl.ends_with('/'))
    tbbasisurl += '/';
  return head;
}

std::string PageAssembly::documentHead(std::string_view basislink) const
{
  const std::string text = rows_[kHead] + std::string(kCrLf) + metaTags(kBuiltInHead, site_.fields, site_.now);
  return base::toWindows1252(farbzuweisung(mitbasis(text, basislink), site_.fields).append(kCrLf));
}

std::string PageAssembly::defaultRows(std::initializer_list<std::size_t> rows, std::string_view basislink) const
{
  std::string out;
  for (const std::size_t row : rows) {
    std::string text = mitbasis(rows_[row], basislink);
    text = base::replaceAll(text, "[mrd:Inhaltbreite]", site_.fields.ComboInhalt.Text);
    text = base::replaceAll(text, "[mrd:Menübreite]", site_.fields.ComboMenüspalte.Text);
    base::appendWindows1252(out, farbzuweisung(text, site_.fields).append(kCrLf));
  }
  return out;
}

std::string PageAssembly::homepageEntry(std::size_t row, std::string_view basislink) const
{
  const std::string target = std::string(basislink) + site_.homepage.file;
  return base::toWindows1252(menüzeile(rows_[row], kHomepageName, target, site_.fields).append(kCrLf));
}

void PageAssembly::print(std::string_view text)
{
  base::appendWindows1252(buffer_, text);
  buffer_ += kCrLf;
}

void PageAssembly::printScripts(const RunPage& page, std::string_view basislink, const PageEffects& effects)
{
  const auto printBetweenEmptyLines = [this](std::string_view text) {
    print("");
    print(text);
    print("");
  };
  if (page.script)
    printBetweenEmptyLines(*page.script);
  const std::string_view html = page.html ? std::string_view(*page.html) : std::string_view();
  if (base::contains(html, "popup")) {
    printBetweenEmptyLines(popupScript(kBuiltInHead));
    effects.popupPage();
  }
  if (base::contains(html, "picturetransfer")) {
    printBetweenEmptyLines(format("<script src='{}picturetransfer.js' TYPE='text/javascript'></script>", basislink));
    effects.pictureTransferScript();
  }
}

void PageAssembly::printTitle(const RunPage& page, std::string_view basislink)
{
  const std::string named = base::replaceAll(rows_[kTitle], "[mrd:Überschrift]", page.Überschrift);
  const std::string titled = base::replaceAll(named, "[mrd:Titel]", site_.fields.tbtitel);
  print(mitbasis(farbzuweisung(titled, site_.fields), basislink));
}

void PageAssembly::printBody(const RunPage& page, std::string_view basislink, const RewrittenBody* body)
{
  buffer_ += "<!-- Beginn Inhalt -->\r\n";
  if (body == nullptr)
    base::appendWindows1252(buffer_, mitbasis(page.html.value_or(""), basislink));
  else if (basislink.empty())
    buffer_ += body->bytes;
  else
    buffer_ += mitbasis(body->bytes, base::toWindows1252(basislink));
  buffer_ += "\r\n<!-- Ende Inhalt -->\r\n<br>\r\n";
}

void PageAssembly::printPageTurn(const RunPage& page, std::string_view basislink, const MenuNeighbours& neighbours,
                                 const PageLink& parent)
{
  const bool reached = neighbours.seen;
  const PageLink previous = reached && neighbours.previous != nullptr ? linkTo(*neighbours.previous) : site_.homepage;
  const PageLink first = neighbours.first != nullptr ? linkTo(*neighbours.first) : PageLink{};
  const PageLink next = neighbours.next != nullptr ? linkTo(*neighbours.next) : reached ? site_.homepage : first;
  const std::string base(basislink);

  std::string line = rows_[kPageTurn] + "<font size=2 face='[mrd:Schriftart]'>";
  line += link(base + previous.file, "&lt; " + previous.Überschrift) + " | ";
  if (page.id != kHomepageId && parent.file != previous.file)
    line += link(base + parent.file, parent.Überschrift) + " | ";
  line += link("#oben", "oben") + " | ";
  line += link(base + next.file, next.Überschrift + " &gt;") + "</font>";
  line += kCrLf;
  print(farbzuweisung(mitbasis(line, basislink), site_.fields));
}

} // namespace mrd::generator
