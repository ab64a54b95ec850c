#pragma once

#include "platform/ui/page_element.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ui {

/// What a surface tells its owner. None of it comes from within a call of the surface, except where that call waits.
struct SurfaceEvents {
  /// A document is loaded, and busy() is over.
  std::function<void()> documentComplete = [] {};
  /// The cursor stands elsewhere or what it stands in has changed: statuses and values of commands are to be asked again.
  std::function<void()> displayChanged = [] {};
  /// The user, or a command, changed the document. Loading never does, nor does setting the body.
  std::function<void()> changed = [] {};
  /// The user asked for the context menu at this point of the surface.
  std::function<void(int x, int y)> showContextMenu = [](int, int) {};
  /// The user chose this entry of the menu that showContextMenu() put up.
  std::function<void(int index)> contextMenuAction = [](int) {};
  /// A picture was pasted: keeps its bytes, and answers with the reference under which the page shows it, or nothing to refuse.
  std::function<std::optional<std::string>(std::string_view bytes, std::string_view mimeType)> storePicture =
      [](std::string_view, std::string_view) { return std::nullopt; };
  /// The owner is at work on the page: what is pasted meanwhile by the keyboard may wait for the end of it.
  std::function<bool()> atWork = [] { return false; };
  /// Something has waited until its page was no longer there.
  std::function<void()> pasteLost = [] {};
  /// The surface had broken down and shows the document again as it last knew it; the selection and what could be undone are
  /// lost.
  std::function<void()> restored = [] {};
};

/// A typeface by its name, empty to leave it, and its size.
struct FontChoice {
  std::string name;
  /// 1 to 7; empty leaves it.
  std::string size;
};

/// Attributes of a picture as they stand in the page; one that is missing is empty.
struct PictureValues {
  std::string src = {}, alt = {}, width = {}, height = {}, align = {}, border = {};
  /// Of the picture that is shown now, in pixels; 0 without one.
  int naturalWidth = 0, naturalHeight = 0;
};

/// A link's reference and the window in which it opens; empty for the same one.
struct LinkValues {
  std::string href = {}, target = {};
};

/// What a surface asks the user in the course of commands that are run with a prompt. No answer: the command is not run. A link
/// without a reference is no link any more.
struct SurfacePrompts {
  std::function<std::optional<LinkValues>(const LinkValues& present)> link = [](const LinkValues&) { return std::nullopt; };
  std::function<std::optional<PictureValues>(const PictureValues& present)> picture = [](const PictureValues&) {
    return std::nullopt;
  };
  std::function<std::optional<FontChoice>(const FontChoice& present)> font = [](const FontChoice&) { return std::nullopt; };
  std::function<std::optional<std::string>(std::string_view present)> searchText = [](std::string_view) { return std::nullopt; };
};

/// Whether a command asks the user for what it needs, or takes its argument.
enum class Prompt { None, Ask };

/// `Control`: one picture or another element that is selected as a whole.
enum class SelectionType { None, Text, Control };

/// A table to insert. Attributes are HTML text as it stands inside a tag.
struct NewTable {
  int rows = 3;
  int columns = 3;
  std::string tableAttributes = "border=1 cellpadding=1 cellspacing=1 width=75%";
  std::string cellAttributes = {};
  std::string caption = {};
};

/// An entry, or a line between entries.
struct ContextMenuEntry {
  std::string caption;
  /// A status of ui::command: below kEnabled the entry cannot be chosen.
  int state = 3;
  bool isSeparator = false;
};

/// The document in which a page is edited as it will look. Its HTML has CR LF line ends.
class EditingSurface {
public:
  virtual ~EditingSurface() = default;

  /// Replaces what is told to the owner, and what the user is asked.
  virtual void setEvents(SurfaceEvents events) = 0;
  virtual void setPrompts(SurfacePrompts prompts) = 0;

  /// Directory of the site in the system's form: relative references of the page start there.
  virtual void setSiteDirectory(std::string_view directory) = 0;

  /// Sets a whole document's text; busy() until it is loaded.
  virtual void setDocumentHtml(std::string_view html) = 0;
  virtual void newDocument() = 0;
  virtual bool busy() const = 0;

  virtual std::string bodyInnerHtml() const = 0;
  /// As the first text of a document it belongs to the loading; later it can be undone.
  virtual void setBodyInnerHtml(std::string_view html) = 0;

  /// Colours as "#rrggbb" and style rules that the document is shown with. They are no part of it, and stay for the next ones.
  virtual void setDocumentColours(std::string_view background, std::string_view text) = 0;
  virtual void setStyleRules(std::string_view css) = 0;

  /// Empties the selection; the cursor stays.
  virtual void clearSelection() = 0;
  virtual SelectionType selectionType() const = 0;
  virtual std::string selectedText() const = 0;
  /// Replaces the selection. False when it is a control selection, which has no text.
  virtual bool pasteHtml(std::string_view html) = 0;
  /// Text of the element around the cursor, or of its parent, if it has the id.
  virtual std::optional<std::string> textAroundCursor(std::string_view elementId) const = 0;
  /// Text of the first element of the document with the id.
  virtual std::optional<std::string> textOfElement(std::string_view elementId) const = 0;

  /// The element around the cursor or the selected text; nothing while an element is selected as a whole.
  virtual std::optional<PageElement> parentElement() const = 0;
  /// The element that is selected as a whole.
  virtual std::optional<PageElement> selectedElement() const = 0;
  /// What is done between the two is undone in one step.
  virtual void beginStep() = 0;
  virtual void endStep() = 0;

  /// Puts up a menu at a point of the surface; the entry that the user chooses is told to the owner.
  virtual void showContextMenu(int x, int y, const std::vector<ContextMenuEntry>& entries) = 0;

  /// Runs a command of `ui::command`. The argument is a colour, a font, a size, the name of a block format, a reference, a text
  /// to find. False when the command could not be run.
  virtual bool execCommand(int command, Prompt prompt = Prompt::None, std::string_view argument = {}) = 0;
  /// Whether the command can be run on the selection, and what it would find; see `ui::command`.
  virtual int queryStatus(int command) const = 0;
  /// Statuses and values follow the selection with a short delay; from here on they are those of the present one.
  virtual void refreshStatus() = 0;
  /// What a command that gets or sets something finds at the selection: font name, size 1 to 7, colour, name of the block
  /// format, reference of a link or picture. Empty when the selection has several or none.
  virtual std::string commandValue(int command) const = 0;
  /// Names of the block formats, in the order of the menu that shows them.
  virtual std::vector<std::string> blockFormatNames() const = 0;
  /// At the cursor. False when it could not be put there.
  virtual bool insertTable(const NewTable& table) = 0;

  /// Lines around tables and cells that have none; marks for what a page holds and does not show.
  virtual bool showBorders() const = 0;
  virtual void setShowBorders(bool show) = 0;
  virtual bool showDetails() const = 0;
  virtual void setShowDetails(bool show) = 0;
  /// What is moved or sized by the pointer keeps to a grid.
  virtual bool snapToGrid() const = 0;
  virtual void setSnapToGrid(bool snap) = 0;

  virtual void setFocus() = 0;
};

/// One step of undoing for the length of a scope.
class UndoStep {
public:
  explicit UndoStep(EditingSurface& surface) : surface_(surface) { surface_.beginStep(); }
  ~UndoStep() { surface_.endStep(); }
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

private:
  EditingSurface& surface_;
};

} // namespace mrd::ui
