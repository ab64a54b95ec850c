#include "generator/built_in_run.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "pictures/corners.h"

#include <utility>

namespace mrd::generator {
namespace {

constexpr int kMessageServerPages = 38;
constexpr int kMessageOutsideExport = 101;
/// The quality factor counts from 2, the best.
constexpr int kCornerQuality = 2;
/// Bodies that may be worked ahead or wait for their turn.
constexpr std::size_t kAheadPages = 64, kAheadBytes = 8U << 20U;
constexpr std::string_view kCacheSuffix = ".cache";

RunPage readPage(dao::Recordset& pages)
{
  const auto optionalText = [&](std::string_view column) {
    const dao::Value value = pages.value(column);
    return value.isNull() ? std::nullopt : std::optional(value.text());
  };
  const dao::Value type = pages.value("seitentyp-id");
  return {pages.value("id").text(),
          pages.value("Überschrift").text(),
          pages.value("dateiname").text(),
          type.isNull() ? std::nullopt : std::optional(static_cast<int>(type.integer())),
          optionalText("html"),
          optionalText("script")};
}

bool isReadFromElsewhere(const RunPage& page)
{
  return page.seitentyp == static_cast<int>(Seitentyp::External) || page.seitentyp == static_cast<int>(Seitentyp::Auction);
}

/// The register's rows are written together at the end of the run, also of one that failed: they tell what it wrote.
class RegisterTransaction {
public:
  explicit RegisterTransaction(dao::Database& db) : transaction_(db) {}
  ~RegisterTransaction()
  {
    try {
      transaction_.commit();
    } catch (const base::Error&) {
      // The rows of the last run stay, which is better than none; the failure that led here is the one to tell.
    }
  }
  RegisterTransaction(const RegisterTransaction&) = delete;
  RegisterTransaction& operator=(const RegisterTransaction&) = delete;

private:
  dao::Transaction transaction_;
};

/// Takes the progress bar away however the run ends.
struct ProgressBar {
  ui::Ui& ui;
  ~ProgressBar() { ui.hideProgress(); }
};

} // namespace

BuiltInRun::BuiltInRun(frmHTMLExport& dialog)
    : dialog_(dialog), environment_(dialog.environment_), fields_(environment_.fields), db_(*dialog.db_),
      now_(environment_.clock.now()), index_(PageIndex::read(db_)), register_(db_, environment_.language),
      siteFiles_(environment_.program, dialog.exportpfad_, register_), exportDirectory_(dialog.exportpfad_),
      cache_(dialog.DbName_ + std::string(kCacheSuffix))
{
}

RunOutcome BuiltInRun::run()
{
  ui::Ui& ui = environment_.language.ui();
  const ui::WaitPointer wait(ui);
  const ProgressBar progressBar{ui};
  const RegisterTransaction transaction(db_);
  register_.clearRunFiles();
  if (fields_.CheckRundeEcke)
    makeCorners();
  siteFiles_.bringBanner();
  siteFiles_.bringScripts();

  const auto [sql, parameters] =
      pageQuery(dialog_.selection, readSetting(db_, "lastgendate"), "changingdate DESC, ID");
  auto pages = db_.openRecordset(sql, parameters);
  if (pages.eof()) {
    ui.messageBox({"Es wurden keine Seiten zum Generieren gefunden.", std::string(base::kProductName)});
    return outcome_;
  }
  generatePages(pages, findHomepage());
  if (outcome_.finished)
    close();
  return outcome_;
}

PageLink BuiltInRun::findHomepage()
{
  const IndexedPage* const page = index_.find(kHomepageId);
  const std::string id(kHomepageId);
  if (page == nullptr)
    return {id, std::string(kHomepageName), fileOfPattern("", "index")};
  return {id, page->Überschrift, fileOfPattern(page->dateiname, "index")};
}

void BuiltInRun::makeCorners()
{
  for (const auto& corner : pictures::kCorners) {
    const std::string path = dialog_.exportpfad_ + "pix\\" + std::string(corner.fileName);
    pictures::drawCorner(corner, fields_).saveJpeg(path, kCornerQuality);
    register_.dateiindatenbank(path, project::Dateityp::Picture);
  }
}

void BuiltInRun::generatePages(dao::Recordset& pages, const PageLink& homepage)
{
  ui::Ui& ui = environment_.language.ui();
  const std::size_t total = pages.recordCount();
  PageAssembly assembly({fields_, index_, now_, homepage, dialog_.head_, dialog_.exportpfad_});
  Ancestors ancestors(homepage);
  std::deque<PendingPage> ahead;
  std::size_t aheadBytes = 0, turn = 0;
  while (!pages.eof() || !ahead.empty()) {
    if (!pages.eof() && ahead.size() < kAheadPages && (ahead.empty() || aheadBytes < kAheadBytes)) {
      ahead.push_back(begin(readPage(pages)));
      aheadBytes += ahead.back().bytes;
      pages.moveNext();
      continue;
    }
    ui.progress(++turn, total);
    generatePage(ahead.front(), assembly, ancestors, homepage);
    aheadBytes -= ahead.front().bytes;
    ahead.pop_front();
    if (ui.pumpEvents())
      return;
  }
  cache_.flush(!dialog_.selection.isPreview() && !dialog_.selection.opneue);
  outcome_.finished = true;
}

BuiltInRun::PendingPage BuiltInRun::begin(RunPage page)
{
  PendingPage pending{std::move(page), "", 0, std::nullopt, std::nullopt, {}, fields_.tbbasisurl};
  if (isReadFromElsewhere(pending.page) && !dialog_.selection.isPreview())
    pending.basislink = basislinkOf(fields_.tbbasisurl);
  pending.bytes = pending.page.html.value_or("").size();
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
  return {pending.page.html.value_or(""),
          pending.page.script.value_or(""),
          {dialog_.exportpfad_, pending.basislink, pending.tbbasisurl}};
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

void BuiltInRun::generatePage(PendingPage& pending, PageAssembly& assembly, Ancestors& ancestors, const PageLink& homepage)
{
  const RunPage& page = pending.page;
  const std::string file = fileFor(page, homepage);
  if (!staysInDirectory(file)) {
    environment_.language.GetMsg(kMessageOutsideExport, page.id + ": " + file, "R");
    ++outcome_.refused;
    return;
  }
  ++outcome_.generated;
  ancestors.takeUp(page, file);
  dialog_.showState(base::format("ID:{} - {}: {}", page.id, file, page.Überschrift));

  const std::string path = dialog_.exportpfad_ + file;
  files::OutputFile output = exportDirectory_.open(file);
  register_.dateiindatenbank(path, project::Dateityp::Page);
  const RewrittenBody* const body = finish(pending);
  if (body == nullptr)
    scriptList_ += file + std::string(base::kCrLf);
  output.write(assembly.assemble(page, pending.basislink, body, ancestors.parentOf(page.id), effects()));
  if (body != nullptr && body->found.slashAppended && !fields_.tbbasisurl.ends_with('/'))
    fields_.tbbasisurl += '/';
  output.close();
  if (page.id == kHomepageId)
    dialog_.startdatei_ = file;
  if (dialog_.selection.isPreview())
    environment_.shell.open(path);
}

std::string BuiltInRun::fileFor(const RunPage& page, const PageLink& homepage) const
{
  if (page.id == kHomepageId)
    return homepage.file;
  // A page whose file name is an address of the web is linked there, and still has a file of its own.
  return fileOfPattern(page.dateiname.starts_with("http") ? "" : page.dateiname, page.id);
}

PageEffects BuiltInRun::effects()
{
  const auto bring = [this](const std::vector<PictureUse>& uses) { bringPictures(uses, dialog_.exportpfad_, register_); };
  return {[this] {
            if (!siteFiles_.bringPopupPage())
              tellAboutPopupPage();
          },
          [this] { siteFiles_.bringPictureTransferScript(); }, bring, bring};
}

void BuiltInRun::tellAboutPopupPage()
{
  environment_.language.ui().messageBox(
      {base::format("Sie benötigen die Datei popupbild.htm. Bitte kontaktieren Sie {} .", base::kSupportMail),
       std::string(base::kProductName)});
}

void BuiltInRun::close()
{
  writeLastGenDate(db_, now_);
  dialog_.showState(base::format("Fertig! Es wurden {} Seiten generiert.", outcome_.generated));
  if (!scriptList_.empty())
    environment_.language.GetMsg(kMessageServerPages, scriptList_, "R");
}

} // namespace mrd::generator
