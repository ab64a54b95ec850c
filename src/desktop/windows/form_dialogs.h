#pragma once

#include "mainform/main_screen.h"

#include <QPointer>

namespace mrd::desktop {

class FrmShopWindow;
class MainformWindow;

/// The dialogs over the main window.
class FormDialogs : public mainform::Dialogs {
public:
  explicit FormDialogs(MainformWindow& owner);
  ~FormDialogs() override;

  void showModal(mainform::FrmAssistent& form) override;
  void showModal(mainform::frmAbout& form) override;
  void showModal(pagetree::frmMove1& form) override;
  void showModal(generator::frmHTMLExport& form) override;
  void show(shop::frmmrdshop& form) override;

private:
  MainformWindow& owner_;
  /// The shop's window as long as it is there; it belongs to the main window.
  QPointer<FrmShopWindow> shop_;
};

} // namespace mrd::desktop
