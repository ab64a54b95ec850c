#pragma once
// The user, as far as the core asks or tells him something. A real implementation belongs to the desktop, one that prints to the
// command line, one that follows a script to the tests.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::ui {

/// The button that ended a message box; the numbers are stored in message tables and compared by callers.
enum class Button : int { None = 0, Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// Buttons and icon of a message box: the sum of one of each group, as message tables store it.
namespace box {
inline constexpr int kOk = 0, kOkCancel = 1, kAbortRetryIgnore = 2, kYesNoCancel = 3, kYesNo = 4, kRetryCancel = 5;
inline constexpr int kCritical = 16, kQuestion = 32, kExclamation = 48, kInformation = 64;
/// The part of a style that names the buttons.
constexpr int buttons(int style) { return style & 7; }
/// The part of a style that names the icon.
constexpr int icon(int style) { return style & 0x70; }
} // namespace box

struct MessageBox {
  std::string text;
  std::string title;
  /// Sum of values of `box`.
  int style = box::kOk;
  /// Number of the message, 0 for one that has none.
  int number = 0;
  std::string helpFile = {};
  int helpContext = 0;
};

/// A file dialog; directories and the result are paths in the system's form.
struct FileDialog {
  std::string title;
  /// Caption and pattern separated by "|", as in "Mirandel-Datenbanken|*.mdb".
  std::string filter;
  std::string directory = {};
  std::string fileName = {};
};

enum class Pointer { Default, Wait };
/// Where a status text goes: the panels of the main window's status bar, or the line of the dialog that runs.
enum class StatusPlace { Panel1, Panel2, Run };

class Ui {
public:
  virtual ~Ui() = default;

  /// Shows the box and waits for the answer.
  virtual Button messageBox(const MessageBox& message) = 0;
  /// A line of text from the user; nothing when he cancels.
  virtual std::optional<std::string> inputBox(std::string_view prompt, std::string_view title, std::string_view proposal) = 0;
  virtual std::optional<std::string> openFileDialog(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> saveFileDialog(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> folderDialog(std::string_view title) = 0;
  /// A colour as 0xBBGGRR, started from `colour`.
  virtual std::optional<int> colourDialog(int colour) = 0;

  /// Something that a user at a window sees for himself, and one who reads a log does not.
  virtual void remark(std::string_view) {}
  /// What the work at hand goes on in spite of: a log has it at once, a window all together when tellWarnings is called.
  virtual void warning(std::string_view) {}
  /// The work is done, or has failed: what it warned of is told.
  virtual void tellWarnings() {}
  virtual void status(StatusPlace place, std::string_view text) = 0;
  /// Progress of long work: `value` of `maximum` steps done.
  virtual void progress(std::size_t value, std::size_t maximum) = 0;
  virtual void hideProgress() = 0;
  virtual void pointer(Pointer shape) = 0;
  /// Lets pending events run. True when the user asked to stop the work at hand.
  virtual bool pumpEvents() = 0;
  /// The opening picture must never cover a message.
  virtual void hideSplash() = 0;
};

/// Wait pointer for the length of a scope, whatever ends it.
class WaitPointer {
public:
  explicit WaitPointer(Ui& ui) : ui_(ui) { ui_.pointer(Pointer::Wait); }
  ~WaitPointer() { ui_.pointer(Pointer::Default); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

private:
  Ui& ui_;
};

} // namespace mrd::ui
