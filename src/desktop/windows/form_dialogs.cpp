#include "desktop/windows/form_dialogs.h"

#include "desktop/windows/about_window.h"
#include "desktop/windows/assistent_window.h"
#include "desktop/windows/html_export_window.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/move_window.h"
#include "desktop/windows/shop_window.h"

#include <QKeySequence>
#include <QShortcut>

namespace mrd::desktop {
namespace {

/// The help key asks for the help of the dialog's window.
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

} // namespace

FormDialogs::FormDialogs(MainformWindow& owner) : owner_(owner) {}

FormDialogs::~FormDialogs() = default;

void FormDialogs::showModal(mainform::FrmAssistent& form)
{
  FrmAssistentWindow dialog(form, &owner_);
  run(dialog, owner_);
}

void FormDialogs::showModal(mainform::frmAbout& form)
{
  FrmAboutWindow dialog(form, &owner_);
  run(dialog, owner_);
}

void FormDialogs::showModal(pagetree::frmMove1& form)
{
  FrmMoveWindow dialog(form, &owner_);
  run(dialog, owner_);
}

void FormDialogs::showModal(generator::frmHTMLExport& form)
{
  FrmHtmlExportWindow dialog(form, &owner_);
  if (dialog.isLoaded())
    run(dialog, owner_);
}

void FormDialogs::show(shop::frmmrdshop& form)
{
  // The window of a dialog that is over goes by itself.
  if (!shop_ || !form.isOpen()) {
    shop_ = new FrmShopWindow(form, &owner_);
    connectHelp(*shop_, owner_);
  }
  owner_.hideSplash();
  shop_->show();
  shop_->raise();
  shop_->activateWindow();
}

} // namespace mrd::desktop
