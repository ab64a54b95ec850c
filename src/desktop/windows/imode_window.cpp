#include "desktop/windows/imode_window.h"

#include "desktop/windows/html_export_window.ui.h"

namespace mrd::desktop {

FrmImodeWindow::FrmImodeWindow(imode::frmimode& form, messages::Language& language, QWidget* parent)
    : ExportWindow("frmimode", form, language, parent)
{
  // Every run writes all pages, under their own names, and nobody can give up waiting for a command.
  for (QWidget* const lacking : std::initializer_list<QWidget*>{
           ui_->OpAlle, ui_->opneue, ui_->LblNamenszusatz, ui_->tbNamenszusatz, ui_->Lblseitenvorschauid, ui_->labelSekunden})
    delete lacking;
  load(form);
}

} // namespace mrd::desktop
