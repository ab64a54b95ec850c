#include "mainform/mainform.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "generator/html_export.h"
#include "mainform/about.h"
#include "mainform/assistant.h"
#include "mainform/pasted_picture.h"
#include "mainform/window_placement.h"
#include "pagetree/page_id.h"
#include "platform/files/path.h"
#include "platform/ftp/curl_client.h"
#include "publish/remembered_servers.h"
#include "publish/timer.h"

#include <array>

namespace mrd::mainform {
namespace {

constexpr std::string_view kName = "Mainform";
constexpr int kMessageChoosePage = 2, kMessageSaveChanges = 3, kMessageNoProject = 24, kMessageNoFile = 109,
              kMessagePictureRefused = 110, kMessageSurfaceRestored = 115, kMessagePasteLost = 171;
constexpr std::string_view kPanelPrefix = "ID:@";
/// Pages of the assistant.
constexpr int kGreeting = 0, kFields = 1;

} // namespace

Mainform::Mainform(Program& program, const Seams& seams)
    : program_(program), seams_(seams), project_(program, projectHooks()),
      pages_({project_, seams.screen, seams.DHTMLEdit1, seams.TreeView1},
             {[this] { colours_.farbenaktualisieren(); }, [this] { return files_.leaveFile(); }, [this] { drafts_.forget(); },
              [this] { tabs_.showKind(); }}),
      colours_({program.ui, seams.DHTMLEdit1, seams.screen, project_.fields(), pages_.document}),
      help_(program.files, program.language, seams.shell),
      tabs_({project_, pages_, seams.screen, help_}, [this] { colours_.farbenaktualisieren(); }),
      tools_(program.ui, seams.DHTMLEdit1, seams.screen),
      editor_({project_, pages_, tabs_, seams.screen, seams.dialogs, seams.tbhtml}),
      files_({program.language, pages_, seams.screen}),
      settings_({project_, seams.screen, seams.DHTMLEdit1}, [this] { colours_.farbenaktualisieren(); }),
      imodeHead_(project_.fields(), program.ui), treeMouse_({project_, pages_, seams.dialogs, help_}),
      drafts_(project_, pages_, tabs_),
      pictures_({project_, pages_, tabs_, seams.dialogs, help_, seams.shell, seams.userSettings}),
      auction_({program.language, seams.TreeView1, seams.clipboard, seams.shell, pages_.fields, project_.fields()},
               [this] { scriptChanged(); })
{
  seams_.dialogs.prepare(pictures_.converter());
  seams_.DHTMLEdit1.setEvents(surfaceEvents());
  seams_.DHTMLEdit1.setPrompts(editor_.prompts());
}

ProjectHooks Mainform::projectHooks()
{
  return {[this] { pages_.ZeigeStruktur(); },
          [this] {
            pages_.loadLastActivePage();
            projectOpened_ = true;
          },
          [this] {
            if (pages_.document.kind != DocumentKind::File)
              pages_.changed();
          },
          [this] {
            ended_ = true;
            seams_.screen.unload();
          },
          [this] {
            pictures_.leaveProject();
            pages_.projectOpened();
            seams_.DHTMLEdit1.setDocumentHtml("<html><body></body></html>");
          },
          [this] {
            settings_.showFields();
            colours_.farbenaktualisieren();
          }};
}

ui::SurfaceEvents Mainform::surfaceEvents()
{
  ui::SurfaceEvents events;
  events.documentComplete = [this] { tools_.DocumentComplete(); };
  events.displayChanged = [this] { tools_.DisplayChanged(); };
  events.changed = [this] { pages_.changed(); };
  events.showContextMenu = [this](int x, int y) { command("ShowContextMenu", [&] { editor_.ShowContextMenu(x, y); }); };
  events.contextMenuAction = [this](int index) { command("ContextMenuAction", [&] { editor_.ContextMenuAction(index); }); };
  events.storePicture = [this](std::string_view bytes, std::string_view mimeType) { return storePicture(bytes, mimeType); };
  events.atWork = [this] { return pages_.isBusy(); };
  events.pasteLost = [this] { program_.language.GetMsg(kMessagePasteLost); };
  events.restored = [this] { program_.language.GetMsg(kMessageSurfaceRestored); };
  return events;
}

std::optional<std::string> Mainform::storePicture(std::string_view bytes, std::string_view mimeType)
{
  std::optional<std::string> reference;
  command("storePicture", [&] {
    if (project_.isOpen())
      reference = storePastedPicture(pictures::storedConversion(seams_.userSettings), project_.fields(), pages_.LastActivePage(),
                                     bytes, mimeType);
    if (!reference)
      program_.language.GetMsg(kMessagePictureRefused, mimeType, "R");
  });
  return reference;
}

void Mainform::command(std::string_view name, const std::function<void()>& body)
{
  // Events run while a page is loaded or saved; a command that came then would work on half a page.
  if (!pages_.isBusy())
    failures::withStandardHandler(program_.language, name, body);
}

// --- start and end

void Mainform::Form_Load(std::string_view projectFile)
{
  int line = 0;
  try {
    line = 1;
    seams_.screen.place(readPlacement(seams_.userSettings));
    line = 6;
    project_.ladebenutzerlayouts();
    line = 8;
    seams_.screen.refresh(Shown::Tools);
    settings_.showFields();
    line = 10;
    seams_.screen.show();
    line = 11;
    program_.readLanguage();
    seams_.screen.setMenuChecked(program_.language.Sprache(), true);
    line = 12;
    program_.language.Sprachstart(seams_.screen);
    showStates();
    line = 13;
    openFirstProject(projectFile);
    line = 14;
    if (!ended_ && seams_.userSettings.value(kSettingsSection, "Assistent", "ja") != "nein") {
      program_.ui.pumpEvents();
      showAssistant(kGreeting);
    }
  } catch (const base::Error& error) {
    failures::showStandardFailure(program_.language, error, base::format("Mainform.Form_Load. Zeile:{}", line));
  }
}

void Mainform::openFirstProject(std::string_view projectFile)
{
  if (!projectFile.empty() && !paths::datei_vorhanden(projectFile)) {
    program_.ui.hideSplash();
    program_.language.GetMsg(kMessageNoFile, files::nativePath(projectFile).string(), "R");
    return;
  }
  openProject([&] {
    bool denied = false;
    const auto last = paths::LeseIni("LastFile", "File1", program_.files.iniFile());
    project_.DialogOpenChangeNewDB(projectFile.empty() ? last : projectFile, denied);
  });
}

void Mainform::showStates()
{
  // What a language says of a control must not undo what the layout and the kind of document say of its state, and the fields of
  // its text.
  tabs_.showKind();
  settings_.showFields();
  if (project_.isOpen())
    seams_.screen.refresh(Shown::Page);
}

void Mainform::Timer()
{
  drafts_.Timer();
  command("Timer", [&] { project_.tellBackup(); });
}

void Mainform::Form_Resize(int width)
{
  if (seams_.screen.isMinimised() || width >= kLeastWindowWidth)
    return;
  Placement placement = seams_.screen.placement();
  placement.MainWidth = kLeastWindowWidth;
  seams_.screen.place(placement);
}

int Mainform::SizeControls(int SplitterLeft) const { return clampedSplitter(SplitterLeft, seams_.screen.innerWidth()); }

bool Mainform::Form_QueryUnload()
{
  if (pages_.isBusy())
    return false;
  if (pages_.document.kind == DocumentKind::File)
    return files_.leaveFile();
  if (!pages_.PageDirty())
    return true;
  switch (program_.language.GetMsg(kMessageSaveChanges)) {
  case ui::Button::No:
    pages_.giveUp();
    return true;
  case ui::Button::Cancel:
    return false;
  default:
    // Yes; or the question could not be asked, and then a window that does not close would be a trap.
    return pages_.SavePage();
  }
}

void Mainform::Form_Unload()
{
  ended_ = true;
  failures::withStandardHandler(program_.language, "Form_Unload", [&] {
    if (shop_)
      shop_->Form_QueryUnload();
    closeShop();
    seams_.screen.unloadOtherWindows();
    if (!seams_.screen.isMinimised())
      writePlacement(seams_.userSettings, seams_.screen.placement());
    pages_.rememberState();
    program_.ui.pumpEvents();
    pages_.projectClosed();
    project_.close();
    program_.language.close();
    program_.ui.pumpEvents();
  });
}

void Mainform::FileExit_Click()
{
  if (Form_QueryUnload())
    seams_.screen.unload();
}

// --- projects

void Mainform::openProject(const std::function<void()>& open)
{
  projectOpened_ = false;
  // Until the next project's page is loaded, the editor holds one of the last: nothing may save or keep it meanwhile.
  pages_.whileBusy(open);
  if (projectOpened_)
    drafts_.offer();
}

bool Mainform::leaveProject()
{
  if (!pages_.leave() || !tabs_.showTree() || (shop_ && !shop_->Form_QueryUnload()))
    return false;
  closeShop();
  pages_.rememberState();
  return true;
}

void Mainform::NewProject_Click()
{
  command("NewProject_Click", [&] {
    if (!leaveProject())
      return;
    bool made = false;
    openProject([&] { made = project_.NewProject_Click(); });
    if (made)
      showAssistant(kFields);
  });
}

void Mainform::OpenProject_Click()
{
  command("OpenProject_Click", [&] {
    if (leaveProject())
      openProject([&] { project_.OpenProject_Click(); });
  });
}

// --- menus and toolbars

void Mainform::SeiteSub_Click(int Index)
{
  constexpr std::array<std::string_view, 3> kKeys{"seiteneu", "seitelöschen", "seitenvorschau"};
  if (Index >= 0 && static_cast<std::size_t>(Index) < kKeys.size())
    Toolbar2_ButtonClick(kKeys[static_cast<std::size_t>(Index)]);
}

void Mainform::NetSub_Click(int Index)
{
  if (Index == 0)
    command("NetSub_Click", [&] { html(); });
}

void Mainform::HelpSub1_Click(int Index)
{
  command("HelpSub1_Click", [&] {
    switch (Index) {
    case 0:
      HilfeAnzeigen();
      break;
    case 3:
      showAssistant(kGreeting);
      break;
    case 4:
      showAbout();
      break;
    default:
      break;
    }
  });
}

void Mainform::eng_Click()
{
  // Captions are no part of the page: a choice that came while that loads would leave its mark in the menu and nothing else.
  failures::withStandardHandler(program_.language, "eng_Click", [&] {
    program_.language.eng_Click(seams_.screen);
    showStates();
  });
}

void Mainform::GER_Click()
{
  failures::withStandardHandler(program_.language, "GER_Click", [&] {
    program_.language.GER_Click(seams_.screen);
    showStates();
  });
}

void Mainform::Toolbar2_ButtonClick(std::string_view Key)
{
  struct Button {
    std::string_view key;
    void (Mainform::*press)();
  };
  constexpr std::array kButtons{
      Button{"seitespeichern", &Mainform::seitespeichern},
      Button{"seitelöschen", &Mainform::seitelöschen},
      Button{"seiteneu", &Mainform::seiteneu},
      Button{"html", &Mainform::html},
      Button{"seitenvorschau", &Mainform::seitenvorschau},
  };
  for (const auto& button : kButtons)
    if (button.key == Key)
      command("Toolbar2_ButtonClick", [&] { (this->*button.press)(); });
}

void Mainform::Toolbar3_ButtonClick(std::string_view Key)
{
  command("Toolbar3_ButtonClick", [&] { pictures_.Toolbar3_ButtonClick(Key); });
}

void Mainform::seitespeichern() { files_.FileSave_Click(); }

void Mainform::seiteneu()
{
  if (tabs_.showTree())
    pages_.newPage();
}

void Mainform::seitelöschen()
{
  if (pages_.document.kind == DocumentKind::Page || (tabs_.showTree() && pages_.leave()))
    pages_.DelPage();
}

template <class Dialog>
void Mainform::showExport()
{
  if (!project_.isOpen()) {
    program_.language.GetMsg(kMessageNoProject);
    return;
  }
  if (!pages_.leave())
    return;
  publish::RememberedServers servers(seams_.userSettings, program_.language, publish::OnChange::Ask);
  ftp::CurlClient client([&](const ftp::ServerIdentity& identity) { return servers.trusts(identity); },
                         [&](const std::string& server) { return servers.isKnown(server); });
  const publish::SystemTimer timer;
  Dialog dialog(exportEnvironment(), {program_.language, project_.fields(), client, timer});
  project_.finishBackup();
  dialog.DbName = project_.DbName();
  seams_.dialogs.showModal(dialog);
}

void Mainform::html() { showExport<publish::frmHTMLExport>(); }

void Mainform::cbimode_Click()
{
  command("cbimode_Click", [&] { showExport<imode::frmimode>(); });
}

void Mainform::seitenvorschau()
{
  if (!project_.isOpen()) {
    program_.language.GetMsg(kMessageNoProject);
    return;
  }
  if (!pages_.leave())
    return;
  const std::string id = base::replaceAll(pages_.fields.statusPanel, kPanelPrefix, "");
  if (pages_.LastActivePage().empty() || !pagetree::isPageId(id)) {
    program_.language.GetMsg(kMessageChoosePage);
    return;
  }
  generator::frmHTMLExport dialog(exportEnvironment());
  dialog.selection.Lblseitenvorschauid = id;
  project_.finishBackup();
  // Events run while the page is generated, and no second run may begin then.
  pages_.whileBusy([&] {
    if (dialog.Form_Load(project_.DbName()))
      dialog.cbHTML_Click();
  });
}

generator::ExportEnvironment Mainform::exportEnvironment()
{
  return {program_.files, program_.language, project_.fields(), program_.clock, seams_.shell};
}

void Mainform::showAssistant(int page)
{
  FrmAssistent assistant({program_, settings_, seams_.userSettings, seams_.shell});
  assistant.TabAssistent = page;
  seams_.dialogs.showModal(assistant);
}

void Mainform::showAbout()
{
  frmAbout about(program_.language, seams_.shell);
  seams_.dialogs.showModal(about);
}

void Mainform::menuOpens(std::string_view menu)
{
  command("menuOpens", [&] { editor_.menuOpens(menu); });
}

void Mainform::findNext()
{
  command("findNext", [&] { editor_.findNext(); });
}

// --- shop and auction

void Mainform::mnuShop_Click()
{
  command("mnuShop_Click", [&] {
    if (!project_.isOpen()) {
      program_.language.GetMsg(kMessageNoProject);
      return;
    }
    if (!shop_ || !shop_->isOpen())
      shop_ = std::make_unique<shop::frmmrdshop>(
          shop::frmmrdshop::Parts{project_.db(), program_.language, seams_.DHTMLEdit1, seams_.shell, pages_.fields}, shopHooks());
    seams_.dialogs.show(*shop_);
  });
}

shop::ShopHooks Mainform::shopHooks()
{
  return {[this] { return showPage(); }, [this] { pages_.changed(); }, [this] { scriptChanged(); }};
}

bool Mainform::showPage()
{
  if (pages_.isBusy())
    return false;
  if (pages_.LastActivePage().empty() || pages_.document.kind != DocumentKind::Page) {
    program_.language.GetMsg(kMessageChoosePage);
    return false;
  }
  return tabs_.showEditor();
}

void Mainform::scriptChanged()
{
  pages_.tbScript_Change();
  seams_.screen.refresh(Shown::Page);
}

void Mainform::closeShop()
{
  if (shop_ && shop_->isOpen())
    shop_->window.unload();
  shop_.reset();
}

void Mainform::cbEbayHTMLkopieren_Click()
{
  command("cbEbayHTMLkopieren_Click", [&] { auction_.cbEbayHTMLkopieren_Click(); });
}

void Mainform::CbEbayMetatag_Click()
{
  command("CbEbayMetatag_Click", [&] { auction_.CbEbayMetatag_Click(); });
}

void Mainform::cbebaykategorien_Click()
{
  command("cbebaykategorien_Click", [&] { auction_.cbebaykategorien_Click(); });
}

void Mainform::menu_Click(std::string_view name, std::optional<int> index)
{
  struct Entry {
    std::string_view name;
    void (*click)(Mainform& window, int index);
  };
  static constexpr std::array kEntries{
      Entry{"FileNew", [](Mainform& window, int) { window.command("FileNew_Click", [&] { window.files_.FileNew_Click(); }); }},
      Entry{"FileOpen", [](Mainform& window, int) { window.command("FileOpen_Click", [&] { window.files_.FileOpen_Click(); }); }},
      Entry{"FileSave", [](Mainform& window, int) { window.command("FileSave_Click", [&] { window.files_.FileSave_Click(); }); }},
      Entry{"FileSaveAs",
            [](Mainform& window, int) { window.command("FileSaveAs_Click", [&] { window.files_.FileSaveAs_Click(); }); }},
      Entry{"NewProject", [](Mainform& window, int) { window.NewProject_Click(); }},
      Entry{"OpenProject", [](Mainform& window, int) { window.OpenProject_Click(); }},
      Entry{"RestoreProject", [](Mainform& window, int) { window.RestoreProject_Click(); }},
      Entry{"mnuSeitenZurueck", [](Mainform& window, int) { window.mnuSeitenZurueck_Click(); }},
      Entry{"FileExit", [](Mainform& window, int) { window.FileExit_Click(); }},
      Entry{"editsub",
            [](Mainform& window, int entry) { window.command("editsub_Click", [&] { window.editor_.editsub_Click(entry); }); }},
      Entry{"InsertSub1", [](Mainform& window,
                             int entry) { window.command("InsertSub1_Click", [&] { window.editor_.InsertSub1_Click(entry); }); }},
      Entry{"FormatSub",
            [](Mainform& window, int entry) {
              const auto& names = window.tools_.FormatSub;
              if (static_cast<std::size_t>(entry) < names.size())
                window.command("FormatSub_Click",
                               [&] { window.editor_.FormatSub_Click(entry, names[static_cast<std::size_t>(entry)]); });
            }},
      Entry{"TableSub",
            [](Mainform& window, int entry) { window.command("TableSub_Click", [&] { window.editor_.TableSub_Click(entry); }); }},
      Entry{"mnuTableProperties",
            [](Mainform& window, int) {
              window.command("mnuTableProperties_Click", [&] { window.editor_.mnuTableProperties_Click(); });
            }},
      Entry{"D2DSub",
            [](Mainform& window, int entry) { window.command("D2DSub_Click", [&] { window.editor_.D2DSub_Click(entry); }); }},
      Entry{"ViewSub", [](Mainform& window, int entry) { window.tools_.ViewSub_Click(entry); }},
      Entry{"pixsub",
            [](Mainform& window, int entry) { window.command("pixsub_Click", [&] { window.pictures_.pixsub_Click(entry); }); }},
      Entry{"mnupixSchatten",
            [](Mainform& window, int) {
              window.command("mnupixSchatten_Click", [&] { window.pictures_.mnupixSchatten_Click(); });
            }},
      Entry{"SeiteSub", [](Mainform& window, int entry) { window.SeiteSub_Click(entry); }},
      Entry{"NetSub", [](Mainform& window, int entry) { window.NetSub_Click(entry); }},
      Entry{"mnuShop", [](Mainform& window, int) { window.mnuShop_Click(); }},
      Entry{"eng", [](Mainform& window, int) { window.eng_Click(); }},
      Entry{"GER", [](Mainform& window, int) { window.GER_Click(); }},
      Entry{"HelpSub1", [](Mainform& window, int entry) { window.HelpSub1_Click(entry); }},
  };
  for (const auto& entry : kEntries)
    if (entry.name == name)
      entry.click(*this, index.value_or(0));
}

} // namespace mrd::mainform
