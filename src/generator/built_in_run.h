#pragma once
// A generation run in the layout "Navigation linke Seite".

#include "generator/body_rewriter.h"
#include "generator/generation_run.h"
#include "generator/page_assembly.h"
#include "generator/work_ahead.h"

#include <future>
#include <optional>
#include <string>

namespace mrd::generator {

class BuiltInRun : public GenerationRun {
public:
  explicit BuiltInRun(const RunJob& job);

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

    std::size_t bytes() const { return page.html ? page.html->size() : 0; }
  };

  void bringSiteFiles() override;
  void generatePages(dao::Recordset& pages) override;
  void closeRun() override;

  PageLink findHomepage() const;
  void makeCorners();
  PendingPage begin(RunPage page);
  BodySource bodySource(const PendingPage& pending) const;
  const RewrittenBody* finish(PendingPage& pending);
  void generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors);
  std::string fileFor(const RunPage& page) const;
  PageEffects effects();
  void tellAboutPopupPage();

  const PageLink homepage_;
  BodyCache cache_;
  /// File names of pages with server-side code, a line each.
  std::string scriptList_;
  WorkerPool workers_;
};

} // namespace mrd::generator
