#include "mainform/picture_commands.h"

#include "pictures/shadow.h"
#include "platform/ui/editing_commands.h"

#include <array>

namespace mrd::mainform {
namespace {

constexpr int kMessageChoosePage = 2;

} // namespace

PictureCommands::PictureCommands(const Parts& parts) : parts_(parts), viewer_(parts.project.program().language, parts.shell) {}

void PictureCommands::Toolbar3_ButtonClick(std::string_view Key)
{
  constexpr std::array<std::string_view, 4> kKeys{"pix_eins", "pix_eigene", "pix_mehrere", "pix_thumbs"};
  for (std::size_t i = 0; i < kKeys.size(); ++i)
    if (kKeys[i] == Key)
      pixsub_Click(static_cast<int>(i));
}

void PictureCommands::pixsub_Click(int Index)
{
  constexpr std::array kCommands{&PictureCommands::pix_eins, &PictureCommands::pix_eigene, &PictureCommands::pix_mehrere,
                                 &PictureCommands::pix_thumbs, &PictureCommands::allevorschaubilderneu};
  if (Index >= 0 && static_cast<std::size_t>(Index) < kCommands.size() && isReady())
    (this->*kCommands[static_cast<std::size_t>(Index)])();
}

bool PictureCommands::isReady()
{
  // Pictures come into what the editor shows; a source on top would take them away again.
  return parts_.project.requireOpen() && parts_.tabs.showEditor();
}

void PictureCommands::alone(const std::function<void()>& work) { parts_.pages.whileBusy(work); }

void PictureCommands::pix_eins()
{
  if (parts_.pages.surface().execCommand(ui::command::kPicture, ui::Prompt::Ask))
    parts_.pages.changed();
}

// --- the scan

void PictureCommands::openFileScan(bool onThisPage)
{
  auto& pages = parts_.pages;
  if (fileScan_ && fileScan_->isBusy())
    return;
  if (pages.document.kind != DocumentKind::File) {
    pages.changed();
    if (!pages.SavePage())
      return;
  }
  if (!fileScan_ || !fileScan_->isLoaded()) {
    auto& program = parts_.project.program();
    fileScan_.emplace(pictures::FrmFileScan::Parts{{parts_.project.db(), program.language, program.clock, parts_.project.fields(),
                                                    program.files, pages.surface(), converter_, [this] { showNewPages(); }},
                                                   pages.tree(),
                                                   parts_.userSettings},
                      fileScanHooks());
    fileScan_->Form_Load();
  }
  fileScan_->readNode();
  if (onThisPage)
    fileScan_->Opdieseseite_Click();
  else
    fileScan_->OpjedesBildeineSeite_Click();
  parts_.dialogs.show(*fileScan_);
}

/// The tree as it was, with the page open that has the new ones.
void PictureCommands::showNewPages()
{
  auto& pages = parts_.pages;
  pages.treeView().WriteExpandedNodes();
  pages.ZeigeStruktur();
  if (const auto selected = pages.tree().selected())
    pages.tree().setExpanded(*selected, true);
}

pictures::FileScanHooks PictureCommands::fileScanHooks()
{
  pictures::FileScanHooks hooks;
  hooks.anzeigen = [this](const std::string& datei, std::string_view darstellung) {
    parts_.dialogs.show(viewer_);
    viewer_.anzeigen(datei, darstellung);
  };
  hooks.showViewer = [this] { parts_.dialogs.show(viewer_); };
  hooks.unloadViewer = [this] { viewer_.unload(); };
  hooks.help = [this] { parts_.help.HilfeAnzeigen("FrmFileScan"); };
  hooks.alone = [this](const std::function<void()>& run) {
    // Whatever is done to the page at this moment would be lost on one side or the other.
    if (!parts_.pages.isBusy() && parts_.tabs.showEditor())
      alone(run);
  };
  hooks.inserted = [this] { parts_.pages.changed(); };
  return hooks;
}

void PictureCommands::leaveProject()
{
  if (fileScan_ && fileScan_->isLoaded())
    fileScan_->cbschließen_Click();
  viewer_.unload();
}

// --- pictures of pages

pictures::Thumbnails PictureCommands::thumbnails()
{
  auto& pages = parts_.pages;
  return pictures::Thumbnails({parts_.project.db(), parts_.project.program().language, parts_.project.fields(), pages.surface(),
                               pages.tree(), pages.active(), pages.fields, converter_,
                               [&pages](std::string_view key) { pages.treeView().bringIn(key); }});
}

void PictureCommands::pix_thumbs()
{
  // The table of a page belongs into that page alone.
  if (parts_.pages.document.kind != DocumentKind::Page || !parts_.pages.tree().selected()) {
    parts_.project.program().language.GetMsg(kMessageChoosePage);
    return;
  }
  alone([this] {
    if (thumbnails().MakeThumbs({}))
      parts_.pages.changed();
  });
}

void PictureCommands::allevorschaubilderneu()
{
  auto& pages = parts_.pages;
  // Nothing is saved for a user who then says No.
  if (!thumbnails().isRenewalWanted() || !parts_.tabs.showTree() || !pages.leave())
    return;
  const auto before = pages.LastActivePage();
  if (!pages.tree().hasNode(before))
    return;
  // Pages are saved on the way, which would take a file or the head for one of them.
  if (pages.document.kind != DocumentKind::Page)
    pages.LoadPage(before);
  alone([&] {
    thumbnails().renewAll(pages.store());
    // The work went through many pages; the user is still at his own.
    if (pages.LastActivePage() != before) {
      pages.tree().select(before);
      pages.LoadPage(before);
    }
  });
}

void PictureCommands::mnupixSchatten_Click()
{
  if (!isReady())
    return;
  alone([this] {
    const auto before = parts_.pages.surface().bodyInnerHtml();
    const auto tellChange = [&] {
      if (parts_.pages.surface().bodyInnerHtml() != before)
        parts_.pages.changed();
    };
    try {
      auto& program = parts_.project.program();
      pictures::schatten_fuer_seite({parts_.pages.surface(), program.ui, converter_}, parts_.project.fields().tbhintergrund);
    } catch (...) {
      // The pictures before the one that failed have their shadows.
      tellChange();
      throw;
    }
    tellChange();
  });
}

} // namespace mrd::mainform
