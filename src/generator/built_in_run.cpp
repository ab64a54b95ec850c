#include "generator/built_in_run.h"

#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "pictures/corners.h"

#include <deque>
#include <utility>

namespace mrd::generator {
namespace {

constexpr int kMessageServerPages = 38;
/// The quality factor counts from 2, the best.
constexpr int kCornerQuality = 2;
/// Bodies that may be worked ahead or wait for their turn.
constexpr std::size_t kAheadPages = 64, kAheadBytes = 8U << 20U;
constexpr std::string_view kCacheSuffix = ".cache";
constexpr RunDifferences kDifferences{"changingdate DESC, ID", true, "."};

} // namespace

BuiltInRun::BuiltInRun(const RunJob& job)
    : GenerationRun(job, kDifferences), homepage_(findHomepage()), cache_(job.DbName + std::string(kCacheSuffix))
{
}

PageLink BuiltInRun::findHomepage() const
{
  const IndexedPage* const page = index_.find(kHomepageId);
  const std::string id(kHomepageId);
  if (page == nullptr)
    return {id, std::string(kHomepageName), fileOfPattern("", "index")};
  return {id, page->Überschrift, fileOfPattern(page->dateiname, "index")};
}

void BuiltInRun::bringSiteFiles()
{
  if (fields_.CheckRundeEcke)
    makeCorners();
  siteFiles_.bringBanner();
  siteFiles_.bringScripts();
}

void BuiltInRun::makeCorners()
{
  for (const auto& corner : pictures::kCorners) {
    const std::string path = pathOf("pix\\" + std::string(corner.fileName));
    pictures::drawCorner(corner, fields_).saveJpeg(path, kCornerQuality);
    register_.dateiindatenbank(path, project::Dateityp::Picture);
  }
}

void BuiltInRun::generatePages(dao::Recordset& pages)
{
  PageAssembly assembly({fields_, index_, now_, homepage_, job_.head, job_.exportpfad});
  Ancestors ancestors(homepage_);
  std::deque<PendingPage> ahead;
  std::size_t aheadBytes = 0;
  while (!pages.eof() || !ahead.empty()) {
    if (!pages.eof() && ahead.size() < kAheadPages && (ahead.empty() || aheadBytes < kAheadBytes)) {
      ahead.push_back(begin(readPage(pages)));
      aheadBytes += ahead.back().bytes();
      pages.moveNext();
      continue;
    }
    if (!nextTurn())
      return;
    generatePage(ahead.front(), assembly, ancestors);
    aheadBytes -= ahead.front().bytes();
    ahead.pop_front();
  }
  cache_.flush(!job_.selection.isPreview() && !job_.selection.opneue);
  outcome_.finished = true;
}

BuiltInRun::PendingPage BuiltInRun::begin(RunPage page)
{
  PendingPage pending{std::move(page), "", fields_.tbbasisurl, std::nullopt, std::nullopt, {}};
  if (pending.page.isReadFromElsewhere() && !job_.selection.isPreview())
    pending.basislink = basislinkOf(fields_.tbbasisurl);
  if (hasServerCode(pending.page.dateiname))
    return pending;
  BodySource source = bodySource(pending);
  pending.cacheKey = BodyCache::keyOf(source);
  pending.body = cache_.get(*pending.cacheKey);
  if (!pending.body)
    pending.future = workers_.submit([source = std::move(source)] { return rewriteBody(source); });
  return pending;
}

BodySource BuiltInRun::bodySource(const PendingPage& pending) const
{
  return {
      pending.page.html.value_or(""), pending.page.script.value_or(""), {job_.exportpfad, pending.basislink, pending.tbbasisurl}};
}

const RewrittenBody* BuiltInRun::finish(PendingPage& pending)
{
  if (!pending.cacheKey)
    return nullptr;
  if (!pending.body) {
    pending.body = pending.future.get();
    cache_.put(*pending.cacheKey, *pending.body);
  }
  if (pending.body->found.dependsOnMissingSlash && pending.tbbasisurl != fields_.tbbasisurl) {
    // A page in between appended the "/" that this body's links hold.
    pending.tbbasisurl = fields_.tbbasisurl;
    pending.body = rewriteBody(bodySource(pending));
  }
  return &*pending.body;
}

void BuiltInRun::generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors)
{
  const RunPage& page = pending.page;
  const std::string file = fileFor(page);
  auto output = openPage(page, file);
  if (!output)
    return;
  ancestors.takeUp(page, file);
  const RewrittenBody* const body = finish(pending);
  if (body == nullptr)
    scriptList_.append(file).append(base::kCrLf);
  output->write(assembly.assemble(page, pending.basislink, body, ancestors.parentOf(page.id), effects()));
  if (body != nullptr && body->found.slashAppended && !fields_.tbbasisurl.ends_with('/'))
    fields_.tbbasisurl += '/';
  if (page.id == kHomepageId)
    outcome_.startdatei = file;
  closePage(*output, file);
}

std::string BuiltInRun::fileFor(const RunPage& page) const
{
  if (page.id == kHomepageId)
    return homepage_.file;
  // A page whose file name is an address of the web is linked there, and still has a file of its own.
  return fileOfPattern(page.dateiname.starts_with("http") ? "" : page.dateiname, page.id);
}

PageEffects BuiltInRun::effects()
{
  const auto bring = [this](const std::vector<PictureUse>& uses) { bringPictures(uses, job_.exportpfad, register_); };
  return {[this] {
            if (!siteFiles_.bringPopupPage())
              tellAboutPopupPage();
          },
          [this] { siteFiles_.bringPictureTransferScript(); }, bring, bring};
}

void BuiltInRun::tellAboutPopupPage()
{
  ui_.messageBox({base::format("Sie benötigen die Datei popupbild.htm. Bitte kontaktieren Sie {} .", base::kSupportMail),
                  std::string(base::kProductName)});
}

void BuiltInRun::closeRun()
{
  if (!scriptList_.empty())
    environment_.language.GetMsg(kMessageServerPages, scriptList_, "R");
}

} // namespace mrd::generator
