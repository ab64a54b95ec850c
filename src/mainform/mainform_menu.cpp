// The commands of the menus, the toolbars and the buttons, by the names of their controls.

#include "mainform/mainform.h"

#include "frame/failures/failures.h"
#include "mainform/about.h"
#include "mainform/assistant.h"

#include <array>

namespace mrd::mainform {

void Mainform::menu_Click(std::string_view name, std::optional<int> index)
{
  struct Entry {
    std::string_view name;
    void (*click)(Mainform& window, int index);
  };
  static constexpr std::array kCommands{
      Entry{"FileNew", [](Mainform& window, int) { window.files_.FileNew_Click(); }},
      Entry{"FileOpen", [](Mainform& window, int) { window.files_.FileOpen_Click(); }},
      Entry{"FileSave", [](Mainform& window, int) { window.files_.FileSave_Click(); }},
      Entry{"FileSaveAs", [](Mainform& window, int) { window.files_.FileSaveAs_Click(); }},
      Entry{"editsub", [](Mainform& window, int entry) { window.editor_.editsub_Click(entry); }},
      Entry{"InsertSub1", [](Mainform& window, int entry) { window.editor_.InsertSub1_Click(entry); }},
      Entry{"FormatSub", [](Mainform& window, int entry) { window.FormatSub_Click(entry); }},
      Entry{"TableSub", [](Mainform& window, int entry) { window.editor_.TableSub_Click(entry); }},
      Entry{"mnuTableProperties", [](Mainform& window, int) { window.editor_.mnuTableProperties_Click(); }},
      Entry{"D2DSub", [](Mainform& window, int entry) { window.editor_.D2DSub_Click(entry); }},
      Entry{"pixsub", [](Mainform& window, int entry) { window.pictures_.pixsub_Click(entry); }},
      Entry{"mnupixSchatten", [](Mainform& window, int) { window.pictures_.mnupixSchatten_Click(); }},
      Entry{"mnuShop", [](Mainform& window, int) { window.shop_.mnuShop_Click(); }},
  };
  // These have a handler of their own, or need none.
  static constexpr std::array kOthers{
      Entry{"NewProject", [](Mainform& window, int) { window.NewProject_Click(); }},
      Entry{"OpenProject", [](Mainform& window, int) { window.OpenProject_Click(); }},
      Entry{"RestoreProject", [](Mainform& window, int) { window.RestoreProject_Click(); }},
      Entry{"mnuSeitenZurueck", [](Mainform& window, int) { window.mnuSeitenZurueck_Click(); }},
      Entry{"FileExit", [](Mainform& window, int) { window.FileExit_Click(); }},
      Entry{"ViewSub", [](Mainform& window, int entry) { window.tools_.ViewSub_Click(entry); }},
      Entry{"SeiteSub", [](Mainform& window, int entry) { window.SeiteSub_Click(entry); }},
      Entry{"NetSub", [](Mainform& window, int entry) { window.NetSub_Click(entry); }},
      Entry{"eng", [](Mainform& window, int) { window.eng_Click(); }},
      Entry{"GER", [](Mainform& window, int) { window.GER_Click(); }},
      Entry{"HelpSub1", [](Mainform& window, int entry) { window.HelpSub1_Click(entry); }},
  };
  const int number = index.value_or(0);
  for (const auto& entry : kCommands)
    if (entry.name == name)
      command(std::string(name) + "_Click", [&] { entry.click(*this, number); });
  for (const auto& entry : kOthers)
    if (entry.name == name)
      entry.click(*this, number);
}

void Mainform::FormatSub_Click(int Index)
{
  const auto& names = tools_.FormatSub;
  if (static_cast<std::size_t>(Index) < names.size())
    editor_.FormatSub_Click(Index, names[static_cast<std::size_t>(Index)]);
}

void Mainform::SeiteSub_Click(int Index)
{
  constexpr std::array<std::string_view, 3> kKeys{"seiteneu", "seitelöschen", "seitenvorschau"};
  if (Index >= 0 && static_cast<std::size_t>(Index) < kKeys.size())
    Toolbar2_ButtonClick(kKeys[static_cast<std::size_t>(Index)]);
}

void Mainform::NetSub_Click(int Index)
{
  if (Index == 0)
    command("NetSub_Click", [&] { exports_.html(); });
}

void Mainform::HelpSub1_Click(int Index)
{
  command("HelpSub1_Click", [&] {
    switch (Index) {
    case 0:
      HilfeAnzeigen();
      break;
    case 3:
      showAssistant(FrmAssistent::kGreeting);
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
    void (*press)(Mainform& window);
  };
  constexpr std::array kButtons{
      Button{"seitespeichern", [](Mainform& window) { window.files_.FileSave_Click(); }},
      Button{"seitelöschen", [](Mainform& window) { window.seitelöschen(); }},
      Button{"seiteneu", [](Mainform& window) { window.seiteneu(); }},
      Button{"html", [](Mainform& window) { window.exports_.html(); }},
      Button{"seitenvorschau", [](Mainform& window) { window.exports_.seitenvorschau(); }},
  };
  for (const auto& button : kButtons)
    if (button.key == Key)
      command("Toolbar2_ButtonClick", [&] { button.press(*this); });
}

void Mainform::Toolbar3_ButtonClick(std::string_view Key)
{
  command("Toolbar3_ButtonClick", [&] { pictures_.Toolbar3_ButtonClick(Key); });
}

void Mainform::cbimode_Click()
{
  command("cbimode_Click", [&] { exports_.cbimode_Click(); });
}

void Mainform::cbEbayHTMLkopieren_Click()
{
  command("cbEbayHTMLkopieren_Click", [&] { shop_.auction().cbEbayHTMLkopieren_Click(); });
}

void Mainform::CbEbayMetatag_Click()
{
  command("CbEbayMetatag_Click", [&] { shop_.auction().CbEbayMetatag_Click(); });
}

void Mainform::cbebaykategorien_Click()
{
  command("cbebaykategorien_Click", [&] { shop_.auction().cbebaykategorien_Click(); });
}

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

} // namespace mrd::mainform
