#pragma once
// A generation run in the layout "Navigation linke Seite".

#include "generator/body_rewriter.h"
#include "generator/html_export.h"
#include "generator/page_assembly.h"
#include "generator/page_index.h"
#include "generator/work_ahead.h"
#include "platform/files/files.h"

#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <string>

namespace mrd::generator {

class BuiltInRun {
public:
  explicit BuiltInRun(frmHTMLExport& dialog);

  RunOutcome run();

private:
  /// A page whose body is being rewritten, or has been.
  struct PendingPage {
    RunPage page;
    std::string basislink;
    std::size_t bytes;
    std::optional<dao::ContentHash> cacheKey;
    std::optional<RewrittenBody> body;
    std::future<RewrittenBody> future;
    /// The site's address as it was when the body was begun.
    std::string tbbasisurl;
  };

  PageLink findHomepage();
  void makeCorners();
  void generatePages(dao::Recordset& pages, const PageLink& homepage);
  PendingPage begin(RunPage page);
  BodySource bodySource(const PendingPage& pending) const;
  const RewrittenBody* finish(PendingPage& pending);
  void generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors, const PageLink& homepage);
  std::string fileFor(const RunPage& page, const PageLink& homepage) const;
  PageEffects effects();
  void tellAboutPopupPage();
  void close();

  frmHTMLExport& dialog_;
  ExportEnvironment& environment_;
  settings::Fields& fields_;
  dao::Database& db_;
  const base::DateTime now_;
  PageIndex index_;
  project::FileRegister register_;
  SiteFiles siteFiles_;
  files::OutputDirectory exportDirectory_;
  BodyCache cache_;
  RunOutcome outcome_;
  std::string scriptList_;
  WorkerPool workers_;
};

} // namespace mrd::generator
