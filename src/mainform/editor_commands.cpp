#include "mainform/editor_commands.h"

#include "base/errors.h"
#include "base/product.h"
#include "editor/captions.h"
#include "editor/font_dialog.h"
#include "editor/insert_html.h"
#include "editor/insert_table.h"
#include "editor/picture_dialog.h"
#include "editor/table_properties.h"
#include "frame/paths/page_file.h"
#include "generator/page_index.h"
#include "pictures/file_scan.h"
#include "platform/ui/editing_commands.h"

#include <algorithm>
#include <array>
#include <span>

namespace mrd::mainform {
namespace {

namespace command = ui::command;

constexpr int kMessageNotHere = 10, kMessageNoSelection = 13, kMessageNotFound = 27;

// Commands of the menus by entry; 0 for a separator, and for an entry that is more than its command.
constexpr std::array kEditCommands{command::kUndo,
                                   command::kRedo,
                                   0,
                                   command::kCut,
                                   command::kCopy,
                                   command::kPaste,
                                   command::kSelectAll,
                                   0,
                                   command::kFindText,
                                   0,
                                   0,
                                   0,
                                   command::kPasteText};
constexpr std::array kInsertCommands{command::kPicture, command::kHyperlink};
constexpr std::array kTableCommands{command::kInsertTable, 0, command::kInsertRow,  command::kInsertColumn,
                                    command::kInsertCell,  0, command::kDeleteRows, command::kDeleteColumns,
                                    command::kDeleteCells, 0, command::kMergeCells, command::kSplitCell};
constexpr std::array kPositionCommands{
    command::kAbsolutePosition, command::kBringToFront,   command::kSendToBack,    command::kBringForward,
    command::kSendBackward,     command::kBringAboveText, command::kSendBelowText, 0,
    command::kLockElement};
constexpr std::size_t kMostFormats = 16;
constexpr std::array<int, kMostFormats> kFormatCommands = [] {
  std::array<int, kMostFormats> all{};
  all.fill(command::kSetBlockFormat);
  return all;
}();

// Entries of "Edit" and "Insert" that are more than a command.
constexpr int kFind = 8, kSnapToGrid = 10, kReplace = 11;
constexpr int kHtml = 3, kMarquee = 4, kTwelvePoint = 5;

/// What the entries of "Edit" do in the source text.
struct SourceEntry {
  int index;
  ui::EditAction action;
};
constexpr std::array kSourceEntries{SourceEntry{0, ui::EditAction::Undo},  SourceEntry{1, ui::EditAction::Redo},
                                    SourceEntry{3, ui::EditAction::Cut},   SourceEntry{4, ui::EditAction::Copy},
                                    SourceEntry{5, ui::EditAction::Paste}, SourceEntry{6, ui::EditAction::SelectAll},
                                    SourceEntry{12, ui::EditAction::Paste}};

template <std::size_t Count>
int commandOf(const std::array<int, Count>& commands, int Index)
{
  if (Index < 0 || static_cast<std::size_t>(Index) >= Count)
    throw base::Error(base::ErrorNumber::SubscriptOutOfRange, "Index außerhalb des gültigen Bereichs");
  return commands[static_cast<std::size_t>(Index)];
}

} // namespace

struct EditorCommands::Menu {
  std::string_view menu, entries;
  std::span<const int> commands;
};

const EditorCommands::Menu* EditorCommands::menuOf(std::string_view name)
{
  static constexpr std::array kMenus{Menu{"Edit", "editsub", kEditCommands}, Menu{"Format", "FormatSub", kFormatCommands},
                                     Menu{"Table", "TableSub", kTableCommands}, Menu{"D2D", "D2DSub", kPositionCommands}};
  const auto found = std::ranges::find_if(kMenus, [&](const Menu& menu) { return menu.menu == name || menu.entries == name; });
  return found == kMenus.end() ? nullptr : &*found;
}

EditorCommands::EditorCommands(const Parts& parts)
    : parts_(parts), search_(parts.project.program().language, parts.tbhtml,
                             {[this] {
                                using Top = editor::FormSuchenErsetzen::Top;
                                return isEditorOnTop() ? Top::Editor : isSourceOnTop() ? Top::Source : Top::Other;
                              },
                              [this] { find(); }, [this] { parts_.pages.changed(); }})
{
}

ui::SurfacePrompts EditorCommands::prompts()
{
  ui::SurfacePrompts prompts;
  prompts.link = [this](const ui::LinkValues& present) {
    editor::FrmVerweis dialog(language(), present, linkTargets());
    parts_.dialogs.showModal(dialog);
    return dialog.answer;
  };
  prompts.picture = [this](const ui::PictureValues& present) {
    editor::FrmBild dialog(language(), present, pictures::kPictureFilter);
    parts_.dialogs.showModal(dialog);
    return dialog.answer;
  };
  prompts.font = [this](const ui::FontChoice& present) {
    editor::FrmSchriftart dialog(language(), present);
    parts_.dialogs.showModal(dialog);
    return dialog.answer;
  };
  prompts.searchText = [this](std::string_view present) {
    const std::string question = editor::Captions(language()).text("FindText", "Text suchen:");
    const auto text = language().ui().inputBox(question, base::kProductName, present.empty() ? searched_ : present);
    searched_ = text.value_or(searched_);
    return text;
  };
  return prompts;
}

std::vector<editor::LinkTarget> EditorCommands::linkTargets() const
{
  std::vector<editor::LinkTarget> targets;
  if (!parts_.project.isOpen())
    return targets;
  const generator::PageIndex index(parts_.project.db());
  for (const auto& page : index.pages()) {
    const bool isHomepage = page.id == generator::kHomepageId;
    targets.push_back({page.id, page.Überschrift, paths::fileOfPattern(page.dateiname, isHomepage ? "index" : page.id)});
  }
  std::ranges::sort(targets, {}, &editor::LinkTarget::id);
  return targets;
}

// --- states

void EditorCommands::menuOpens(std::string_view menu)
{
  if (menu == "D2D")
    D2D_Click();
  else if (menuOf(menu))
    showStates(menu);
}

EntryState EditorCommands::entryState(std::string_view menu, int Index) const
{
  const int number = menuOf(menu)->commands[static_cast<std::size_t>(Index)];
  if (menu == "editsub" && isSourceOnTop()) {
    const auto found = std::ranges::find(kSourceEntries, Index, &SourceEntry::index);
    return {found == kSourceEntries.end() ? Index != kSnapToGrid : parts_.tbhtml.can(found->action), false};
  }
  if (menu == "editsub" && Index == kSnapToGrid)
    return {isEditorOnTop(), surface().snapToGrid()};
  if (menu == "editsub" && Index == kReplace)
    return {};
  if (number == 0 || !isEditorOnTop())
    return {number == 0, false};
  const int status = surface().queryStatus(number);
  return {status >= command::kEnabled, status == command::kLatched};
}

void EditorCommands::showStates(std::string_view name)
{
  const Menu& menu = *menuOf(name);
  if (isEditorOnTop())
    surface().refreshStatus();
  for (std::size_t i = 0; i < menu.commands.size(); ++i)
    states_[std::string(menu.entries) + std::to_string(i)] = entryState(menu.entries, static_cast<int>(i));
  parts_.screen.refresh(Shown::Menus);
}

EntryState EditorCommands::state(std::string_view name, int Index) const
{
  const auto found = states_.find(std::string(name) + std::to_string(Index));
  return found == states_.end() ? EntryState{} : found->second;
}

void EditorCommands::D2D_Click()
{
  showStates("D2DSub");
  showPositionCaption();
}

void EditorCommands::showPositionCaption()
{
  const editor::Captions captions(language());
  positionCaption_ = surface().queryStatus(command::kAbsolutePosition) == command::kLatched
                         ? captions.text("Position1D", "Set Position Attribute To 1D")
                         : captions.text("PositionToAbsolute", "Set Position Attribute To Absolute");
  parts_.screen.refresh(Shown::Menus);
}

bool EditorCommands::needsEditor()
{
  // What is on top would take the place of the change, or hide it.
  if (!isEditorOnTop())
    language().GetMsg(kMessageNotHere);
  return isEditorOnTop();
}

// --- Edit

void EditorCommands::editsub_Click(int Index)
{
  if (Index == kReplace)
    return replace();
  if (isSourceOnTop()) {
    const auto found = std::ranges::find(kSourceEntries, Index, &SourceEntry::index);
    if (found != kSourceEntries.end())
      parts_.tbhtml.run(found->action);
    else if (Index == kFind)
      replace();
    return;
  }
  if (Index == kSnapToGrid) {
    surface().setSnapToGrid(!surface().snapToGrid());
    states_["editsub" + std::to_string(Index)].checked = surface().snapToGrid();
    return parts_.screen.refresh(Shown::Menus);
  }
  const int number = commandOf(kEditCommands, Index);
  // The keys of these entries belong to the fields of the settings while those are on top.
  if (number == 0 || !isEditorOnTop())
    return;
  if (Index == kFind)
    find();
  else
    surface().execCommand(number, ui::Prompt::None);
}

void EditorCommands::find()
{
  const auto text = prompts().searchText(surface().commandValue(command::kFindText));
  if (text)
    find(*text);
}

void EditorCommands::find(std::string_view text)
{
  if (!surface().execCommand(command::kFindText, ui::Prompt::None, text))
    language().GetMsg(kMessageNotFound);
}

void EditorCommands::findNext()
{
  if (isSourceOnTop())
    search_.cbsuchen_Click();
  else if (needsEditor())
    searched_.empty() ? find() : find(searched_);
}

void EditorCommands::replace()
{
  if (isEditorOnTop())
    find();
  else if (isSourceOnTop())
    parts_.dialogs.show(search_);
  else
    language().GetMsg(kMessageNotHere);
}

// --- Insert

void EditorCommands::InsertSub1_Click(int Index)
{
  if (!needsEditor())
    return;
  switch (Index) {
  case kHtml: {
    editor::InsertHTMLDlg dialog(language(), surface(), [this] { parts_.pages.changed(); });
    parts_.dialogs.showModal(dialog);
    break;
  }
  case kMarquee:
    marquee();
    break;
  case kTwelvePoint:
    twelvePoint();
    break;
  default:
    // "Button" has no command.
    if (static_cast<std::size_t>(Index) < kInsertCommands.size())
      surface().execCommand(commandOf(kInsertCommands, Index), ui::Prompt::Ask);
    break;
  }
}

void EditorCommands::marquee()
{
  const std::string text = surface().selectedText();
  if (text.empty()) {
    language().GetMsg(kMessageNoSelection);
    return;
  }
  // As it reads, not as it is written: who shows the text of a tag gets the tag.
  if (surface().pasteHtml("<marquee>" + text + "</marquee>"))
    parts_.pages.changed();
}

void EditorCommands::twelvePoint()
{
  if (auto element = surface().parentElement()) {
    element->setStyle("font-size", "12pt");
    parts_.pages.changed();
  }
}

// --- Format, Table, Positioning

void EditorCommands::FormatSub_Click(int, std::string_view caption)
{
  if (needsEditor() && surface().queryStatus(command::kSetBlockFormat) >= command::kEnabled)
    surface().execCommand(command::kSetBlockFormat, ui::Prompt::None, caption);
}

void EditorCommands::TableSub_Click(int Index)
{
  const int number = commandOf(kTableCommands, Index);
  if (number == 0 || !needsEditor())
    return;
  if (number != command::kInsertTable) {
    surface().execCommand(number);
    return;
  }
  editor::InsertTableDlg dialog(language(), surface(), [this] { parts_.pages.changed(); });
  parts_.dialogs.showModal(dialog);
}

void EditorCommands::mnuTableProperties_Click()
{
  if (!needsEditor())
    return;
  const auto element = surface().selectionType() == ui::SelectionType::Control ? std::nullopt : surface().parentElement();
  if (!element) {
    language().ui().messageBox({"Bitte stellen Sie den Cursor in die Tabelle.", std::string(base::kProductName)});
    return;
  }
  editor::FrmTabelleneigenschaften dialog(language(), surface(), [this] { parts_.pages.changed(); });
  dialog.EigenschaftenErmitteln(*element);
  parts_.dialogs.showModal(dialog);
}

void EditorCommands::D2DSub_Click(int Index)
{
  const int number = commandOf(kPositionCommands, Index);
  if (number == 0 || !needsEditor())
    return;
  surface().execCommand(number);
  if (Index == 0)
    showPositionCaption();
}

} // namespace mrd::mainform
