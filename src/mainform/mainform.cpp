#include "mainform/mainform.h"

#include "base/format.h"
#include "frame/failures/failures.h"
#include "mainform/assistant.h"
#include "mainform/pasted_picture.h"
#include "mainform/window_placement.h"
#include "platform/files/path.h"

namespace mrd::mainform {
namespace {

constexpr std::string_view kName = "Mainform";
constexpr int kMessageSaveChanges = 3, kMessageNoFile = 109, kMessagePictureRefused = 110, kMessageSurfaceRestored = 115,
              kMessagePasteLost = 171;

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
      exports_({project_, pages_, seams.dialogs, seams.shell, seams.userSettings}),
      shop_({project_, pages_, tabs_, seams.screen, seams.dialogs, seams.shell, seams.clipboard})
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
      showAssistant(FrmAssistent::kGreeting);
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
    shop_.leave();
    shop_.close();
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
  if (!pages_.leave() || !tabs_.showTree() || !shop_.leave())
    return false;
  shop_.close();
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
      showAssistant(FrmAssistent::kFields);
  });
}

void Mainform::OpenProject_Click()
{
  command("OpenProject_Click", [&] {
    if (leaveProject())
      openProject([&] { project_.OpenProject_Click(); });
  });
}

void Mainform::showAssistant(int page)
{
  FrmAssistent assistant({program_, settings_, seams_.userSettings, seams_.shell});
  assistant.TabAssistent = page;
  seams_.dialogs.showModal(assistant);
}

} // namespace mrd::mainform
