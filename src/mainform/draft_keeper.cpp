#include "mainform/draft_keeper.h"

#include "base/errors.h"
#include "base/format.h"
#include "pagetree/page_id.h"

namespace mrd::mainform {
namespace {

constexpr int kMessageDraft = 114;
constexpr std::string_view kHeadLabel = "Seitenkopf";

} // namespace

void DraftKeeper::Timer()
{
  const auto& document = pages_.document;
  const bool isDue = project_.isOpen() && pages_.PageDirty() && !pages_.isBusy() && document.changes != draftedChanges_;
  if (!isDue || document.kind == DocumentKind::File)
    return;
  const bool isHead = document.kind == DocumentKind::Head;
  const auto& fields = pages_.fields;
  const Draft draft{isHead ? std::string() : pages_.LastActivePage(),
                    isHead ? std::string(kHeadLabel) : pages_.ActiveNodeText(),
                    project_.program().clock.now(),
                    pages_.surface().bodyInnerHtml(),
                    fields.tbhtml,
                    fields.tbdateiname,
                    fields.tbScript,
                    fields.opseitentyp,
                    fields.sourceOnTop};
  try {
    writeDraft(draftFileOf(project_.DbName()), draft);
    draftedChanges_ = document.changes;
  } catch (const base::Error&) {
    // The next tick tries again. A disk that is full tells its user when he saves; a box every few seconds would only keep him
    // from making room.
  }
}

void DraftKeeper::offer()
{
  const std::string file = draftFileOf(project_.DbName());
  const auto draft = readDraft(file);
  if (!draft)
    return;
  const std::string what = base::format("\"{}\" ({})", draft->label, draft->written.german());
  if (project_.program().language.GetMsg(kMessageDraft, what, "Z") == ui::Button::Yes)
    restore(*draft);
  else
    removeDraft(file);
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
  if (project_.isOpen())
    removeDraft(draftFileOf(project_.DbName()));
}

} // namespace mrd::mainform
