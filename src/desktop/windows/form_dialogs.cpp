#include "desktop/windows/form_dialogs.h"

#include "desktop/windows/about_window.h"
#include "desktop/windows/assistent_window.h"
#include "desktop/windows/html_export_window.h"
#include "desktop/windows/imode_window.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/move_window.h"

#include <QKeySequence>
#include <QShortcut>

namespace mrd::desktop {
namespace {

/// Shows a dialog until it is closed; the help key asks for the help of its window.
void run(QDialog& dialog, MainformWindow& owner)
{
  const QShortcut help(QKeySequence::HelpContents, &dialog);
  QObject::connect(&help, &QShortcut::activated, &dialog,
                   [&] { owner.form().help().HilfeAnzeigen(dialog.objectName().toStdString()); });
  owner.hideSplash();
  dialog.exec();
}

} // namespace

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

void FormDialogs::showModal(publish::frmHTMLExport& form)
{
  FrmHtmlExportWindow dialog(form, &owner_);
  if (dialog.isLoaded())
    run(dialog, owner_);
}

void FormDialogs::showModal(imode::frmimode& form)
{
  FrmImodeWindow dialog(form, &owner_);
  if (dialog.isLoaded())
    run(dialog, owner_);
}

} // namespace mrd::desktop
