#include "generator/page_assembly.h"

#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "frame/paths/page_file.h"
#include "generator/placeholders.h"

namespace mrd::generator {
namespace {

using base::kCrLf;

/// Level of a page in the tree, 1 to 4 below the homepage; 0 for the homepage and for an id that is too short to have one.
std::size_t levelOf(std::string_view id) { return id == kHomepageId ? 0 : base::length(id) / 2; }

PageLink linkTo(const IndexedPage& page) { return {page.id, page.Überschrift, paths::fileOfPattern(page.dateiname, page.id)}; }

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
  /// What each step of the layout writes whatever the page; empty for a step that depends on it.
  std::vector<std::string> fixed;
  std::string homepageActive, homepageLink;
  NavigationMenu menu;
};

struct PageAssembly::Work {
  const RunPage& page;
  std::string_view basislink;
  const RewrittenBody* body;
  const PageLink& parent;
  PageParts& parts;
  const Frame& frame;
  MenuNeighbours neighbours;
};

PageAssembly::PageAssembly(SiteContext site, RowLayout layout) : site_(std::move(site)), layout_(std::move(layout)) {}

PageAssembly::~PageAssembly() = default;

std::string_view PageAssembly::assemble(const RunPage& page, std::string_view basislink, const RewrittenBody* body,
                                        const PageLink& parent, PageParts& parts)
{
  Work work{page, basislink, body, parent, parts, frameFor(basislink), {}};
  buffer_.clear();
  for (std::size_t step = 0; step < layout_.steps.size(); ++step) {
    buffer_ += work.frame.fixed[step];
    printStep(layout_.steps[step], work);
  }
  return buffer_;
}

const PageAssembly::Frame& PageAssembly::frameFor(std::string_view basislink)
{
  if (const auto known = frames_.find(basislink); known != frames_.end())
    return *known->second;
  std::vector<std::string> fixed;
  for (const auto& step : layout_.steps)
    fixed.push_back(fixedText(step, basislink));
  auto frame = std::make_unique<Frame>(
      Frame{std::move(fixed), homepageEntry(kHomepageActive, basislink), homepageEntry(kHomepageLink, basislink),
            NavigationMenu(site_.index, layout_.rows, layout_.menu, site_.fields, std::string(basislink))});
  return *frames_.emplace(basislink, std::move(frame)).first->second;
}

std::string PageAssembly::fixedText(const RowStep& step, std::string_view basislink) const
{
  switch (step.treatment) {
  case Treatment::Head:
    return documentHead(step.row, basislink);
  case Treatment::Plain:
    return plainRow(step.row, basislink);
  case Treatment::LineEnd:
    return std::string(kCrLf);
  default:
    return {};
  }
}

void PageAssembly::printStep(const RowStep& step, Work& work)
{
  switch (step.treatment) {
  case Treatment::Scripts:
    return printScripts(work);
  case Treatment::Title:
    return printTitle(step.row, work);
  case Treatment::SharedHead:
    return work.parts.appendSharedHead(buffer_, work.basislink);
  case Treatment::HomepageEntry:
    buffer_ += work.page.id == kHomepageId ? work.frame.homepageActive : work.frame.homepageLink;
    return;
  case Treatment::Menu:
    work.neighbours = work.frame.menu.print(buffer_, work.page.id);
    return;
  case Treatment::Body:
    return printBody(work);
  case Treatment::PageTurn:
    return printPageTurn(step.row, work);
  case Treatment::Head:
  case Treatment::Plain:
  case Treatment::LineEnd:
    return;
  }
}

std::string PageAssembly::documentHead(std::size_t row, std::string_view basislink) const
{
  const std::string text = layout_.rows[row] + std::string(kCrLf) + metaTags(layout_.head, site_.fields, site_.now);
  return base::toWindows1252(farbzuweisung(mitbasis(text, basislink), site_.fields).append(kCrLf));
}

std::string PageAssembly::plainRow(std::size_t row, std::string_view basislink) const
{
  std::string text = mitbasis(layout_.rows[row], basislink);
  text = base::replaceAll(text, "[mrd:Inhaltbreite]", site_.fields.ComboInhalt.Text);
  text = base::replaceAll(text, "[mrd:Menübreite]", site_.fields.ComboMenüspalte.Text);
  return base::toWindows1252(farbzuweisung(text, site_.fields).append(kCrLf));
}

std::string PageAssembly::homepageEntry(std::size_t row, std::string_view basislink) const
{
  const std::string target = std::string(basislink) + site_.homepage.file;
  return base::toWindows1252(menüzeile(layout_.rows[row], kHomepageName, target, site_.fields).append(layout_.menu.rowEnd));
}

void PageAssembly::print(std::string_view text)
{
  base::appendWindows1252(buffer_, text);
  buffer_ += kCrLf;
}

void PageAssembly::printScripts(const Work& work)
{
  const auto printBetweenEmptyLines = [this](std::string_view text) {
    print("");
    print(text);
    print("");
  };
  const RunPage& page = work.page;
  if (page.script)
    printBetweenEmptyLines(*page.script);
  const std::string_view html = page.html ? std::string_view(*page.html) : std::string_view();
  if (base::contains(html, "popup")) {
    printBetweenEmptyLines(popupScript(layout_.head));
    work.parts.bringPopupPage();
  }
  if (base::contains(html, "picturetransfer")) {
    printBetweenEmptyLines(base::format("<script src='{}picturetransfer.js' TYPE='text/javascript'></script>", work.basislink));
    work.parts.bringPictureTransferScript();
  }
}

void PageAssembly::printTitle(std::size_t row, const Work& work)
{
  const std::string named = base::replaceAll(layout_.rows[row], "[mrd:Überschrift]", work.page.Überschrift);
  const std::string titled = base::replaceAll(named, "[mrd:Titel]", site_.fields.tbtitel);
  print(mitbasis(farbzuweisung(titled, site_.fields), work.basislink));
}

void PageAssembly::printBody(const Work& work)
{
  buffer_ += "<!-- Beginn Inhalt -->\r\n";
  if (work.body == nullptr)
    base::appendWindows1252(buffer_, mitbasis(work.page.html.value_or(""), work.basislink));
  else if (const std::string_view bytes = work.parts.bringBody(*work.body); work.basislink.empty())
    buffer_ += bytes;
  else
    buffer_ += mitbasis(bytes, base::toWindows1252(work.basislink));
  buffer_ += "\r\n<!-- Ende Inhalt -->\r\n";
  buffer_ += layout_.behindBody;
}

void PageAssembly::printPageTurn(std::size_t row, const Work& work)
{
  const MenuNeighbours& neighbours = work.neighbours;
  const bool reached = neighbours.seen;
  const PageLink previous = reached && neighbours.previous != nullptr ? linkTo(*neighbours.previous) : site_.homepage;
  const PageLink first = neighbours.first != nullptr ? linkTo(*neighbours.first) : PageLink{};
  const PageLink next = neighbours.next != nullptr ? linkTo(*neighbours.next) : reached ? site_.homepage : first;
  const bool hasParent = work.page.id != kHomepageId && work.parent.file != previous.file;
  const std::string links = layout_.pageTurnLinks({work.basislink, previous, next, hasParent ? &work.parent : nullptr});
  print(farbzuweisung(mitbasis(layout_.rows[row] + links, work.basislink), site_.fields));
}

} // namespace mrd::generator
