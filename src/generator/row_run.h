#pragma once
// A generation run in a layout of rows: bodies are worked ahead, pages are put together and written in their order.

#include "generator/body_rewriter.h"
#include "generator/generation_run.h"
#include "generator/page_assembly.h"
#include "generator/work_ahead.h"

#include <deque>
#include <future>
#include <optional>
#include <string>

namespace mrd::generator {

/// In what the runs of this kind differ.
struct RowRunDifferences {
  RunDifferences frame;
  /// Behind the project's path: the side file that keeps rewritten bodies.
  std::string_view cacheSuffix;
  /// Works on values alone: runs on any thread.
  RewrittenBody (*rewrite)(const BodySource& source);
  /// Auction pages are linked and shown through the site's address as external ones are.
  bool auctionPagesTakeAddress;
  /// The field of the site's address gets its "/" with the first page that takes it.
  bool completesAddressField;
};

class RowRun : public GenerationRun, protected PageParts {
protected:
  RowRun(const RunJob& job, const RowRunDifferences& differences);

  virtual RowLayout layout() const = 0;
  /// All that a body's rewritten form depends on.
  virtual BodySource bodySource(const RunPage& page, const LinkAddresses& addresses) const = 0;
  /// Called for pages in their order, as soon as a body is there before its page's turn. Not for a refused page.
  virtual void prepareFor(const RewrittenBody&) {}
  WorkerPool& workers() { return workers_; }

private:
  /// A page whose body is being rewritten, or has been.
  struct PendingPage {
    RunPage page;
    std::string basislink;
    /// The site's address as it was when the body was begun.
    std::string tbbasisurl;
    /// None for a page with server-side code, which is not parsed.
    std::optional<dao::ContentHash> cacheKey;
    std::optional<RewrittenBody> body;
    std::future<RewrittenBody> future;
    bool isPrepared = false;

    std::size_t bytes() const { return page.html ? page.html->size() : 0; }
    bool isWaiting() const;
  };

  void generatePages(dao::Recordset& pages) override;
  void closeRun() override;

  PageLink findHomepage() const;
  std::string basislinkFor(const RunPage& page) const;
  PendingPage begin(RunPage page);
  BodySource bodySource(const PendingPage& pending) const;
  void prepareReadyOnes(std::deque<PendingPage>& ahead);
  void takeBody(PendingPage& pending);
  void finishBody(PendingPage& pending);
  void generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors);
  std::string fileFor(const RunPage& page) const;

  const RowRunDifferences differences_;
  const PageLink homepage_;
  BodyCache cache_;
  /// File names of pages with server-side code, a line each.
  std::string scriptList_;
  WorkerPool workers_;
};

} // namespace mrd::generator
