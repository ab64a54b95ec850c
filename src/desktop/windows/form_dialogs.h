#pragma once

#include "mainform/main_screen.h"

#include <QPointer>

#include <memory>

namespace mrd::desktop {

class BildkonvertiererWindow;
class FrmFileScanWindow;
class FrmShopWindow;
class MainformWindow;
class ObjektAnzeigenWindow;
class SuchenErsetzenWindow;

/// The dialogs over the main window, and the windows beside it.
class FormDialogs : public mainform::Dialogs {
public:
  explicit FormDialogs(MainformWindow& owner);
  ~FormDialogs() override;

  /// The windows beside the main one end before their form objects.
  void closeAll();

  void showModal(mainform::FrmAssistent& form) override;
  void showModal(mainform::FrmSicherung& form) override;
  void showModal(mainform::frmAbout& form) override;
  void showModal(pagetree::frmMove1& form) override;
  void showModal(publish::frmHTMLExport& form) override;
  void showModal(imode::frmimode& form) override;
  void showModal(editor::FrmBild& form) override;
  void showModal(editor::FrmSchriftart& form) override;
  void showModal(editor::FrmTabelleneigenschaften& form) override;
  void showModal(editor::FrmVerweis& form) override;
  void showModal(editor::InsertHTMLDlg& form) override;
  void showModal(editor::InsertTableDlg& form) override;
  void show(editor::FormSuchenErsetzen& form) override;
  void show(pictures::FrmFileScan& form) override;
  void show(pictures::formobjektanzeigen& form) override;
  void prepare(pictures::frmBildkonvertierer& form) override;
  void show(shop::frmmrdshop& form) override;

private:
  messages::Language& language();
  void showWorking(pictures::frmBildkonvertierer& form);

  MainformWindow& owner_;
  std::unique_ptr<SuchenErsetzenWindow> search_;
  std::unique_ptr<FrmFileScanWindow> fileScan_;
  std::unique_ptr<ObjektAnzeigenWindow> viewer_;
  std::unique_ptr<BildkonvertiererWindow> converter_;
  /// The shop's window as long as it is there; it belongs to the main window.
  QPointer<FrmShopWindow> shop_;
};

} // namespace mrd::desktop
