#pragma once

#include "desktop/windows/file_list.h"
#include "frame/messages/messages.h"
#include "pictures/file_scan.h"

#include <QDialog>
#include <QElapsedTimer>

#include <memory>
#include <string_view>

namespace Ui {
class FrmFileScan;
}

namespace mrd::desktop {

/// The window through which pictures enter a project. It stands beside the main window.
class FrmFileScanWindow : public QDialog {
public:
  FrmFileScanWindow(pictures::FrmFileScan& form, messages::Language& language, QWidget* parent = nullptr);
  ~FrmFileScanWindow() override;

  /// Leaving by the Escape key or the frame is what the button for it does.
  void reject() override;

protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  using Form = pictures::FrmFileScan;

  void connectDirectory();
  void connectLists();
  void connectOptions();
  void connectConversion();
  void connectButtons();
  /// Does what the user wants of the form object, under the standard handler, and shows what has become of it.
  template <class Body>
  void act(std::string_view procedure, Body&& body);
  void refresh();
  void refreshDuringScan();
  void showCounts();
  void showOptions();
  void showStates();
  void showSliderTip();
  void nameControls();

  Form& form_;
  messages::Language& language_;
  std::unique_ptr<Ui::FrmFileScan> ui_;
  ThumbnailMaker thumbnails_;
  std::unique_ptr<FileList> found_, chosen_;
  /// Since the counters were shown; a scan changes them more often than eyes can follow.
  QElapsedTimer sinceShown_;
  bool showing_ = false;
};

} // namespace mrd::desktop
