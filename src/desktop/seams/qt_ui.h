#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/ui.h"

#include <memory>
#include <string>
#include <vector>

class QString;
class QTranslator;
class QWidget;

namespace mrd::desktop {

/// Where the user interface shows what is not a box of its own.
class StatusDisplay {
public:
  virtual ~StatusDisplay() = default;
  virtual void showStatus(ui::StatusPlace place, std::string_view text) = 0;
  virtual void showProgress(std::size_t value, std::size_t maximum) = 0;
  virtual void hideProgress() = 0;
};

/// The user at the desktop.
class QtUi : public ui::Ui {
public:
  QtUi();
  ~QtUi() override;

  /// Main window's display; null before it is there and when it has gone.
  void setDisplay(StatusDisplay* display) { display_ = display; }
  void setSplash(QWidget* splash) { splash_ = splash; }
  /// The language of buttons, and of what the system itself says in German; null while there is none.
  void setLanguage(messages::Language* language) { language_ = language; }

  ui::Button messageBox(const ui::MessageBox& message) override;
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title, std::string_view proposal) override;
  /// With a proposed name also one that does not exist yet can be given.
  std::optional<std::string> openFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> saveFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> folderDialog(std::string_view title) override;
  std::optional<int> colourDialog(int colour) override;

  void warning(std::string_view text) override;
  /// One box for all of them; none without a warning.
  void tellWarnings() override;
  void status(ui::StatusPlace place, std::string_view text) override;
  void progress(std::size_t value, std::size_t maximum) override;
  void hideProgress() override;
  void pointer(ui::Pointer shape) override;
  bool pumpEvents() override;
  void hideSplash() override;

private:
  bool isGerman() const { return !language_ || language_->Sprache() != "ENG"; }
  /// A text of the system in the language of the screen.
  std::string inLanguage(std::string_view text) const;
  QString translated(std::string_view text) const;
  ui::FileDialog translated(const ui::FileDialog& dialog) const;
  /// The toolkit's own dialogs speak the program's language too, where their texts are installed.
  void speak();

  StatusDisplay* display_ = nullptr;
  QWidget* splash_ = nullptr;
  messages::Language* language_ = nullptr;
  std::unique_ptr<QTranslator> german_;
  /// What the work at hand has warned of, each thing once.
  std::vector<std::string> warnings_;
  /// How often in a row there was nothing to do.
  int emptyPumps_ = 0;
};

} // namespace mrd::desktop
