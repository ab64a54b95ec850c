#pragma once

#include "desktop/seams/qt_controls.h"
#include "frame/messages/messages.h"
#include "mainform/assistant.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmAssistent;
}

namespace mrd::desktop {

/// The assistant of the first start.
class FrmAssistentWindow : public QDialog {
public:
  FrmAssistentWindow(mainform::FrmAssistent& form, messages::Language& language, QWidget* parent = nullptr);
  ~FrmAssistentWindow() override;

private:
  void connectControls();
  void showGuide();
  void refresh();

  mainform::FrmAssistent& form_;
  messages::Language& language_;
  std::unique_ptr<Ui::FrmAssistent> ui_;
  bool showing_ = false;
};

} // namespace mrd::desktop
