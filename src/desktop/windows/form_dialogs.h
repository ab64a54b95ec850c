#pragma once

#include "mainform/main_screen.h"

namespace mrd::desktop {

class MainformWindow;

/// The dialogs over the main window.
class FormDialogs : public mainform::Dialogs {
public:
  explicit FormDialogs(MainformWindow& owner) : owner_(owner) {}

  void showModal(mainform::FrmAssistent& form) override;
  void showModal(mainform::frmAbout& form) override;
  void showModal(pagetree::frmMove1& form) override;
  void showModal(publish::frmHTMLExport& form) override;
  void showModal(imode::frmimode& form) override;

private:
  MainformWindow& owner_;
};

} // namespace mrd::desktop
