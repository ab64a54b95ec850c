#include "desktop/windows/form_dialogs.h"

#include "desktop/windows/about_window.h"
#include "desktop/windows/assistent_window.h"
#include "desktop/windows/bild_window.h"
#include "desktop/windows/bildkonvertierer_window.h"
#include "desktop/windows/file_scan_window.h"
#include "desktop/windows/html_export_window.h"
#include "desktop/windows/imode_window.h"
#include "desktop/windows/insert_html_window.h"
#include "desktop/windows/insert_table_window.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/move_window.h"
#include "desktop/windows/objekt_anzeigen_window.h"
#include "desktop/windows/schriftart_window.h"
#include "desktop/windows/shop_window.h"
#include "desktop/windows/sicherung_window.h"
#include "desktop/windows/suchen_ersetzen_window.h"
#include "desktop/windows/tabelleneigenschaften_window.h"
#include "desktop/windows/verweis_window.h"

#include <QApplication>
#include <QKeySequence>
#include <QShortcut>

namespace mrd::desktop {
namespace {

/// The help key asks for the help of the window.
void connectHelp(QDialog& dialog, MainformWindow& owner)
{
  const auto* const help = new QShortcut(QKeySequence::HelpContents, &dialog);
  QObject::connect(help, &QShortcut::activated, &dialog,
                   [&dialog, &owner] { owner.form().help().HilfeAnzeigen(dialog.objectName().toStdString()); });
}

/// Shows a dialog until it is closed.
void run(QDialog& dialog, MainformWindow& owner)
{
  connectHelp(dialog, owner);
  owner.hideSplash();
  dialog.exec();
}

/// Shows a form object in a window of its own until that is closed. Some windows take the language beside it.
template <class Window, class... Arguments>
void runWindow(MainformWindow& owner, Arguments&... arguments)
{
  Window dialog(arguments..., &owner);
  run(dialog, owner);
}

/// The same for one whose form object can refuse to load.
template <class Window, class... Arguments>
void runIfLoaded(MainformWindow& owner, Arguments&... arguments)
{
  Window dialog(arguments..., &owner);
  if (dialog.isLoaded())
    run(dialog, owner);
}

} // namespace

FormDialogs::FormDialogs(MainformWindow& owner) : owner_(owner) {}

FormDialogs::~FormDialogs() = default;

messages::Language& FormDialogs::language() { return owner_.form().program().language; }

void FormDialogs::closeAll()
{
  search_.reset();
  fileScan_.reset();
  viewer_.reset();
  converter_.reset();
}

void FormDialogs::showModal(mainform::FrmAssistent& form) { runWindow<FrmAssistentWindow>(owner_, form, language()); }

void FormDialogs::showModal(mainform::FrmSicherung& form) { runWindow<SicherungWindow>(owner_, form); }

void FormDialogs::showModal(mainform::frmAbout& form) { runWindow<FrmAboutWindow>(owner_, form, language()); }

void FormDialogs::showModal(pagetree::frmMove1& form) { runWindow<FrmMoveWindow>(owner_, form); }

void FormDialogs::showModal(publish::frmHTMLExport& form) { runIfLoaded<FrmHtmlExportWindow>(owner_, form, language()); }

void FormDialogs::showModal(imode::frmimode& form) { runIfLoaded<FrmImodeWindow>(owner_, form, language()); }

void FormDialogs::showModal(editor::FrmBild& form) { runWindow<BildWindow>(owner_, form); }

void FormDialogs::showModal(editor::FrmSchriftart& form) { runWindow<SchriftartWindow>(owner_, form); }

void FormDialogs::showModal(editor::FrmTabelleneigenschaften& form) { runWindow<TabelleneigenschaftenWindow>(owner_, form); }

void FormDialogs::showModal(editor::FrmVerweis& form) { runWindow<VerweisWindow>(owner_, form); }

void FormDialogs::showModal(editor::InsertHTMLDlg& form) { runWindow<InsertHtmlWindow>(owner_, form); }

void FormDialogs::showModal(editor::InsertTableDlg& form) { runWindow<InsertTableWindow>(owner_, form); }

void FormDialogs::show(editor::FormSuchenErsetzen& form)
{
  // Made anew, in the language of the day.
  if (!search_ || !search_->isVisible()) {
    search_.reset();
    search_ = std::make_unique<SuchenErsetzenWindow>(form, &owner_);
    connectHelp(*search_, owner_);
    search_->show();
  }
  search_->raise();
  search_->activateWindow();
}

void FormDialogs::show(pictures::FrmFileScan& form)
{
  // A window that was closed belongs to a form object that is no more.
  if (!fileScan_ || !fileScan_->isVisible()) {
    fileScan_.reset();
    fileScan_ = std::make_unique<FrmFileScanWindow>(form, language(), &owner_);
    connectHelp(*fileScan_, owner_);
    fileScan_->show();
  }
  form.window.refresh();
  fileScan_->raise();
  fileScan_->activateWindow();
}

void FormDialogs::show(pictures::formobjektanzeigen& form)
{
  if (!viewer_ || !viewer_->isVisible()) {
    viewer_.reset();
    viewer_ = std::make_unique<ObjektAnzeigenWindow>(form, language(), &owner_);
    connectHelp(*viewer_, owner_);
  }
  viewer_->show();
}

void FormDialogs::prepare(pictures::frmBildkonvertierer& form)
{
  form.window.show = [this, &form] { showWorking(form); };
}

void FormDialogs::showWorking(pictures::frmBildkonvertierer& form)
{
  QWidget* const before = QApplication::activeWindow();
  // Made anew, in the language of the day.
  converter_.reset();
  converter_ = std::make_unique<BildkonvertiererWindow>(form, language(), &owner_);
  converter_->adjustSize();
  const QRect around = (before ? *before : static_cast<QWidget&>(owner_)).geometry();
  converter_->move(around.center() - converter_->rect().center());
  converter_->show();
}

void FormDialogs::show(shop::frmmrdshop& form)
{
  // The window of a dialog that is over goes by itself.
  if (!shop_ || !form.isOpen()) {
    shop_ = new FrmShopWindow(form, language(), &owner_);
    connectHelp(*shop_, owner_);
  }
  owner_.hideSplash();
  shop_->show();
  shop_->raise();
  shop_->activateWindow();
}

} // namespace mrd::desktop
