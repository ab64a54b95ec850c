#pragma once

#include "platform/ui/ui.h"

#include <functional>
#include <memory>
#include <string>

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
  /// "GER" or "ENG", for the buttons of boxes.
  void setLanguage(std::function<std::string()> language) { language_ = std::move(language); }

  ui::Button messageBox(const ui::MessageBox& message) override;
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title, std::string_view proposal) override;
  /// With a proposed name also one that does not exist yet can be given.
  std::optional<std::string> openFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> saveFileDialog(const ui::FileDialog& dialog) override;
  std::optional<std::string> folderDialog(std::string_view title) override;
  std::optional<int> colourDialog(int colour) override;

  void status(ui::StatusPlace place, std::string_view text) override;
  void progress(std::size_t value, std::size_t maximum) override;
  void hideProgress() override;
  void pointer(ui::Pointer shape) override;
  bool pumpEvents() override;
  void hideSplash() override;

private:
  /// The toolkit's own dialogs speak the program's language too, where their texts are installed.
  void speak();

  StatusDisplay* display_ = nullptr;
  QWidget* splash_ = nullptr;
  std::function<std::string()> language_ = [] { return std::string("GER"); };
  std::unique_ptr<QTranslator> german_;
  /// How often in a row there was nothing to do.
  int emptyPumps_ = 0;
};

} // namespace mrd::desktop
