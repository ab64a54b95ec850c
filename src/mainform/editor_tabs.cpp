#include "mainform/editor_tabs.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"

#include <array>
#include <utility>

namespace mrd::mainform {
namespace {

constexpr int kEditor = static_cast<int>(HtmlTab::Editor), kSource = static_cast<int>(HtmlTab::Source),
              kPage = static_cast<int>(HtmlTab::Page);
constexpr int kTree = static_cast<int>(TreeTab::Tree), kHead = static_cast<int>(TreeTab::Head);
constexpr int kMessageServerCode = 7;

/// By page of `tabHtml`.
constexpr std::array<std::string_view, 6> kHelpPages{"seitenbereich.htm", "htmleditor.htm", "seiteneinstellungen.htm",
                                                     "layout.htm",        "export.htm",     "sonstiges.htm"};
constexpr std::string_view kStartPage = "index.htm";

bool hasServerCode(std::string_view fileName) { return base::contains(fileName, ".php") || base::contains(fileName, ".asp"); }

} // namespace

std::string_view helpPageOf(int tab)
{
  return tab >= 0 && static_cast<std::size_t>(tab) < kHelpPages.size() ? kHelpPages[static_cast<std::size_t>(tab)] : kStartPage;
}

EditorTabs::EditorTabs(const Parts& parts, std::function<void()> farbenaktualisieren)
    : parts_(parts), farbenaktualisieren_(std::move(farbenaktualisieren))
{
}

void EditorTabs::tabHtml_Click(int PreviousTab)
{
  auto& pages = parts_.pages;
  // A file and the head of the site have no page settings.
  const bool isOffered = tabHtml != kPage || pages.document.kind == DocumentKind::Page;
  if (!isOffered || pages.isBusy()) {
    tabHtml = PreviousTab;
    parts_.screen.refresh(Shown::Tabs);
    return;
  }
  failures::withStandardHandler(language(), "tabHtml_Click", [&] { turn(PreviousTab); });
}

void EditorTabs::turn(int PreviousTab)
{
  auto& fields = parts_.pages.fields;
  fields.sourceOnTop = tabHtml == kSource;
  if (PreviousTab == kEditor)
    leaveEditor();
  else if (PreviousTab == kSource)
    leaveSource();
  parts_.screen.setControl("Toolbar1", std::nullopt, {{}, {}, {}, tabHtml == kEditor});
  parts_.help.page = helpPageOf(tabHtml);
}

void EditorTabs::leaveEditor()
{
  auto& pages = parts_.pages;
  if (pages.document.kind == DocumentKind::Page && hasServerCode(pages.fields.tbdateiname)) {
    if (language().GetMsg(kMessageServerCode) == ui::Button::Yes)
      pages.fields.tbhtml = pages.surface().bodyInnerHtml();
  } else {
    pages.fields.tbhtml = "Bitte warten - HTML wird geladen ...";
    parts_.screen.refresh(Shown::Page);
    waitForSurface();
    pages.fields.tbhtml = pages.surface().bodyInnerHtml();
  }
  parts_.screen.refresh(Shown::Page);
}

void EditorTabs::leaveSource()
{
  try {
    parts_.pages.surface().setBodyInnerHtml(parts_.pages.fields.tbhtml);
  } catch (const base::Error&) {
    // The page keeps what it took; the user sees it there.
  }
}

void EditorTabs::waitForSurface()
{
  while (parts_.pages.surface().busy())
    language().ui().pumpEvents();
}

void EditorTabs::TabTree_Click(int PreviousTab)
{
  const int wanted = std::exchange(TabTree, PreviousTab);
  failures::withStandardHandler(language(), "TabTree_Click", [&] {
    auto& pages = parts_.pages;
    if (!parts_.project.isOpen() || pages.isBusy() || !pages.leave())
      return;
    if (wanted == kHead)
      showHead();
    else
      backToTree();
  });
  parts_.screen.refresh(Shown::Tabs);
}

void EditorTabs::showHead()
{
  auto& pages = parts_.pages;
  // Read before anything changes: what cannot be read must not leave an empty document in its place.
  const auto stored = settings::StoredSettings(parts_.project.db()).value("KopfHTML");
  TabTree = kHead;
  pages.setKind(DocumentKind::Head);
  parts_.screen.refresh(Shown::Tabs);
  auto& surface = pages.surface();
  surface.newDocument();
  waitForSurface();
  surface.setBodyInnerHtml(stored ? *stored : base::format("<div align=center> {} </div>", parts_.project.fields().tbtitel));
  farbenaktualisieren_();
  // The source tab must not carry the page's text into the head.
  pages.fields.tbhtml = surface.bodyInnerHtml();
  pages.active().PageDirty = false;
  parts_.screen.refresh(Shown::Page);
}

void EditorTabs::backToTree()
{
  auto& pages = parts_.pages;
  if (const std::string key = pages.LastActivePage(); !key.empty()) {
    pages.LoadPage(key);
  } else {
    pages.setKind(DocumentKind::Page);
    pages.surface().newDocument();
  }
  TabTree = kTree;
  parts_.screen.refresh(Shown::Tabs);
}

bool EditorTabs::showEditor()
{
  if (tabHtml == kEditor)
    return true;
  if (parts_.pages.isBusy())
    return false;
  turn(std::exchange(tabHtml, kEditor));
  parts_.screen.refresh(Shown::Tabs);
  return true;
}

bool EditorTabs::showTree()
{
  if (TabTree == kTree)
    return true;
  if (!parts_.pages.leave())
    return false;
  backToTree();
  return true;
}

void EditorTabs::showKind()
{
  const DocumentKind kind = parts_.pages.document.kind;
  // A tab that is about to be closed to the user must not be the one that he is on.
  if (kind != DocumentKind::Page && tabHtml == kPage) {
    tabHtml = kEditor;
    turn(kPage);
    parts_.screen.refresh(Shown::Tabs);
  }
  // The caption tells the user what he edits, in the words that stand in the saving of the head too.
  parts_.screen.setTabTexts("tabHtml", kEditor, {kind == DocumentKind::Head ? "Seitenkopf" : "Normal", {}, {}, {}});
  parts_.screen.setTabTexts("tabHtml", kPage, {{}, {}, kind == DocumentKind::Page, {}});
}

} // namespace mrd::mainform
