#pragma once

#include "mainform/main_screen.h"

#include <memory>

namespace mrd::desktop {

class BildkonvertiererWindow;
class FrmFileScanWindow;
class MainformWindow;
class ObjektAnzeigenWindow;

/// The dialogs over the main window, and the windows beside it.
class FormDialogs : public mainform::Dialogs {
public:
  explicit FormDialogs(MainformWindow& owner);
  ~FormDialogs() override;

  /// The windows beside the main one end before their form objects.
  void closeAll();

  void showModal(mainform::FrmAssistent& form) override;
  void showModal(mainform::frmAbout& form) override;
  void showModal(pagetree::frmMove1& form) override;
  void showModal(generator::frmHTMLExport& form) override;
  void show(pictures::FrmFileScan& form) override;
  void show(pictures::formobjektanzeigen& form) override;
  void prepare(pictures::frmBildkonvertierer& form) override;

private:
  void showWorking(pictures::frmBildkonvertierer& form);

  MainformWindow& owner_;
  std::unique_ptr<FrmFileScanWindow> fileScan_;
  std::unique_ptr<ObjektAnzeigenWindow> viewer_;
  std::unique_ptr<BildkonvertiererWindow> converter_;
};

} // namespace mrd::desktop
