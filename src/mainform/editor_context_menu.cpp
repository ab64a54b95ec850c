// What the entries of the page's context menu do.

#include "base/product.h"
#include "editor/context_menu.h"
#include "mainform/editor_commands.h"
#include "pictures/shadow.h"
#include "platform/ui/editing_commands.h"

namespace mrd::mainform {

namespace command = ui::command;

void EditorCommands::ShowContextMenu(int x, int y)
{
  surface().showContextMenu(x, y, editor::ContextMenu(surface()).entries(editor::Captions(language())));
}

void EditorCommands::ContextMenuAction(int index)
{
  using Action = editor::ContextAction;
  // An index means what the blocks make of it that the selection brings.
  switch (editor::ContextMenu(surface()).action(index)) {
  case Action::None:
    break;
  case Action::Cut:
    surface().execCommand(command::kCut);
    break;
  case Action::Copy:
    surface().execCommand(command::kCopy);
    break;
  case Action::Paste:
    surface().execCommand(command::kPaste);
    break;
  case Action::SelectAll:
    surface().execCommand(command::kSelectAll);
    break;
  case Action::Font:
    surface().execCommand(command::kFont, ui::Prompt::Ask);
    break;
  case Action::Position:
    surface().execCommand(command::kAbsolutePosition);
    break;
  case Action::Picture:
    surface().execCommand(command::kPicture, ui::Prompt::Ask);
    break;
  case Action::AddShadow:
    schatten_hinzufügen();
    break;
  case Action::RemoveShadow:
    schatten_entfernen();
    break;
  case Action::InsertRow:
    surface().execCommand(command::kInsertRow);
    break;
  case Action::InsertColumn:
    surface().execCommand(command::kInsertColumn);
    break;
  case Action::DeleteRow:
    surface().execCommand(command::kDeleteRows);
    break;
  case Action::DeleteColumn:
    surface().execCommand(command::kDeleteColumns);
    break;
  case Action::TableProperties:
    mnuTableProperties_Click();
    break;
  }
}

void EditorCommands::schatten_hinzufügen()
{
  auto picture = surface().selectedElement();
  if (!picture)
    return;
  const ui::WaitPointer wait(language().ui());
  const auto src = picture->getAttribute("src").value_or("");
  if (const auto reference = pictures::schatten_hinzufügen(src, parts_.project.fields().tbhintergrund)) {
    picture->setAttribute("src", *reference);
    parts_.pages.changed();
  }
}

void EditorCommands::schatten_entfernen()
{
  auto picture = surface().selectedElement();
  if (!picture)
    return;
  if (const auto reference = pictures::schatten_entfernen(picture->getAttribute("src").value_or(""), language().ui())) {
    picture->setAttribute("src", *reference);
    parts_.pages.changed();
  }
}

} // namespace mrd::mainform
