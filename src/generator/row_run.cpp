#include "generator/row_run.h"

#include "base/text.h"
#include "frame/paths/page_file.h"

#include <utility>

namespace mrd::generator {
namespace {

constexpr int kMessageServerPages = 38;
/// Bodies that may be worked ahead or wait for their turn.
constexpr std::size_t kAheadPages = 64, kAheadBytes = 8U << 20U;

} // namespace

RowRun::RowRun(const RunJob& job, const RowRunDifferences& differences)
    : GenerationRun(job, differences.frame), differences_(differences), homepage_(findHomepage()),
      cache_(job.DbName + std::string(differences.cacheSuffix))
{
}

PageLink RowRun::findHomepage() const
{
  const IndexedPage* const page = index_.find(kHomepageId);
  const std::string id(kHomepageId);
  if (page == nullptr)
    return {id, std::string(kHomepageName), std::string(differences_.fileOfMissingHomepage)};
  return {id, page->Überschrift, paths::fileOfPattern(page->dateiname, "index")};
}

void RowRun::generatePages(dao::Recordset& pages)
{
  PageAssembly assembly({fields_, index_, now_, homepage_}, layout());
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
    prepareReadyOnes(ahead);
  }
  cache_.flush(!job_.selection.isPreview() && !job_.selection.opneue);
  outcome_.finished = true;
}

std::string RowRun::basislinkFor(const RunPage& page) const
{
  const bool takesAddress =
      page.isOfType(Seitentyp::External) || (differences_.auctionPagesTakeAddress && page.isOfType(Seitentyp::Auction));
  return takesAddress && !job_.selection.isPreview() ? paths::basislinkOf(fields_.tbbasisurl) : std::string();
}

RowRun::PendingPage RowRun::begin(RunPage page)
{
  std::string basislink = basislinkFor(page);
  PendingPage pending{std::move(page), std::move(basislink), fields_.tbbasisurl, std::nullopt, std::nullopt, {}};
  if (hasServerCode(pending.page.dateiname))
    return pending;
  BodySource source = bodySource(pending);
  pending.cacheKey = BodyCache::keyOf(source);
  pending.body = cache_.get(*pending.cacheKey);
  if (!pending.body)
    pending.future = workers_.submit([source = std::move(source), rewrite = differences_.rewrite] { return rewrite(source); });
  return pending;
}

BodySource RowRun::bodySource(const PendingPage& pending) const
{
  return bodySource(pending.page, {job_.exportpfad, pending.basislink, pending.tbbasisurl});
}

bool RowRun::PendingPage::isWaiting() const
{
  return future.valid() && future.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void RowRun::prepareReadyOnes(std::deque<PendingPage>& ahead)
{
  for (auto& pending : ahead) {
    if (pending.isWaiting())
      return;
    takeBody(pending);
    if (pending.body && !pending.isPrepared && staysInDirectory(fileFor(pending.page)))
      prepareFor(*pending.body);
    pending.isPrepared = true;
  }
}

void RowRun::takeBody(PendingPage& pending)
{
  if (pending.body || !pending.cacheKey)
    return;
  pending.body = pending.future.get();
  cache_.put(*pending.cacheKey, *pending.body);
}

/// The body as its page takes it.
void RowRun::finishBody(PendingPage& pending)
{
  takeBody(pending);
  if (pending.body && pending.body->found.dependsOnMissingSlash && pending.tbbasisurl != fields_.tbbasisurl) {
    // A page in between appended the "/" that this body's links hold.
    pending.tbbasisurl = fields_.tbbasisurl;
    pending.body = differences_.rewrite(bodySource(pending));
  }
}

void RowRun::generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors)
{
  const RunPage& page = pending.page;
  const std::string file = fileFor(page);
  auto output = openPage(page, file);
  if (!output)
    return;
  ancestors.takeUp(page, file);
  finishBody(pending);
  const RewrittenBody* const body = pending.body ? &*pending.body : nullptr;
  if (body == nullptr)
    scriptList_.append(file).append(base::kCrLf);
  output->write(assembly.assemble(page, pending.basislink, body, ancestors.parentOf(page.id), *this));
  const bool completesAddress =
      (body != nullptr && body->found.slashAppended) || (differences_.completesAddressField && !pending.basislink.empty());
  if (completesAddress && !fields_.tbbasisurl.ends_with('/'))
    fields_.tbbasisurl += '/';
  if (page.id == kHomepageId)
    outcome_.startdatei = file;
  closePage(*output, file);
}

std::string RowRun::fileFor(const RunPage& page) const
{
  if (page.id == kHomepageId)
    return homepage_.file;
  return paths::fileOfPattern(paths::writtenPattern(page.dateiname), page.id);
}

void RowRun::closeRun()
{
  if (!scriptList_.empty())
    environment_.language.GetMsg(kMessageServerPages, scriptList_, "R");
}

} // namespace mrd::generator
