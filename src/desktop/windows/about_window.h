#pragma once

#include "frame/messages/messages.h"
#include "mainform/about.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

namespace mrd::desktop {

/// The box that tells what program this is.
class FrmAboutWindow : public QDialog {
public:
  FrmAboutWindow(mainform::frmAbout& form, messages::Language& language, QWidget* parent = nullptr);
  ~FrmAboutWindow() override;

private:
  mainform::frmAbout& form_;
  std::unique_ptr<Ui::frmAbout> ui_;
};

} // namespace mrd::desktop
