#include "mainform/draft_keeper.h"

#include "base/errors.h"
#include "base/format.h"
#include "pagetree/page_id.h"

#include <utility>

namespace mrd::mainform {
namespace {

constexpr int kMessageDraft = 114;
constexpr std::string_view kHeadLabel = "Seitenkopf";

} // namespace

Draft DraftKeeper::present() const
{
  const bool isHead = pages_.document.kind == DocumentKind::Head;
  const auto& fields = pages_.fields;
  return {isHead ? std::string() : pages_.LastActivePage(),
          isHead ? std::string(kHeadLabel) : pages_.ActiveNodeText(),
          project_.program().clock.now(),
          pages_.surface().bodyInnerHtml(),
          fields.tbhtml,
          fields.tbdateiname,
          fields.tbScript,
          fields.opseitentyp,
          fields.sourceOnTop};
}

void DraftKeeper::Timer()
{
  const auto& document = pages_.document;
  const bool isDue = project_.isOpen() && pages_.PageDirty() && !pages_.isBusy() && document.changes != draftedChanges_;
  // Events run while the page is read, and the next tick may be among them.
  if (!isDue || document.kind == DocumentKind::File || std::exchange(writing_, true))
    return;
  try {
    const auto changes = document.changes;
    const Draft draft = present();
    // What was read while the page went its way is nobody's draft.
    if (pages_.PageDirty() && !pages_.isBusy()) {
      if (!file_)
        file_ = DraftFile::takeEmpty(project_.DbName());
      if (file_) {
        writeDraft(file_->path(), draft);
        draftedChanges_ = changes;
      }
    }
  } catch (const base::Error&) {
    // The next tick tries again. A disk that is full tells its user when he saves; a box every few seconds would only keep him
    // from making room.
  }
  writing_ = false;
}

void DraftKeeper::offer()
{
  file_.reset();
  for (int number = 1; number <= kDraftFiles; ++number) {
    const std::string path = draftFileOf(project_.DbName(), number);
    if (!readDraft(path))
      continue;
    auto file = DraftFile::take(path);
    const auto draft = file ? readDraft(path) : std::nullopt;
    if (!draft)
      continue;
    auto& language = project_.program().language;
    // The head has no heading: its label is a word of the system.
    const std::string label = draft->key.empty() ? language.shownText(draft->label) : draft->label;
    const std::string what = base::format("\"{}\" ({})", label, draft->written.german());
    const auto answer = language.GetMsg(kMessageDraft, what, "Z");
    if (answer == ui::Button::No)
      removeDraft(path);
    if (answer != ui::Button::Yes)
      continue;
    restore(*draft);
    // Only now: a draft that could not be restored must not be replaced by another page's.
    file_ = std::move(file);
    return;
  }
}

void DraftKeeper::restore(const Draft& draft)
{
  if (draft.key.empty()) {
    tabs_.showHead();
  } else {
    openPage(draft);
    auto& fields = pages_.fields;
    fields.tbdateiname = draft.dateiname;
    fields.tbScript = draft.script;
    fields.opseitentyp = draft.opseitentyp;
  }
  pages_.surface().setBodyInnerHtml(draft.sourceOnTop ? draft.tbhtml : draft.html);
  pages_.fields.tbhtml = draft.tbhtml;
  pages_.changed();
  tabs_.showPage();
}

void DraftKeeper::openPage(const Draft& draft)
{
  auto& tree = pages_.tree();
  const std::string parent = pagetree::parentOf(pagetree::idOf(draft.key));
  const std::string parentKey = pagetree::keyOf(parent.empty() ? std::string(pagetree::kRootId) : parent);
  pages_.treeView().bringIn(draft.key);
  // A new page that was never saved is in no table.
  if (!tree.hasNode(draft.key) && pagetree::isPageId(pagetree::idOf(draft.key)) && tree.hasNode(parentKey))
    tree.addNode(parentKey, draft.key, draft.label, 1);
  if (tree.hasNode(draft.key)) {
    tree.select(draft.key);
    pages_.LoadPage(draft.key);
  } else {
    // Not even its parent is there: it becomes a new page below the homepage.
    pages_.LoadPage(pagetree::keyOf(pagetree::kRootId));
    pages_.newPage();
  }
}

void DraftKeeper::forget()
{
  draftedChanges_ = pages_.document.changes;
  if (file_)
    removeDraft(file_->path());
  file_.reset();
}

} // namespace mrd::mainform
