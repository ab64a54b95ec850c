#pragma once

#include "desktop/seams/qt_controls.h"
#include "frame/messages/messages.h"
#include "generator/export_dialog.h"
#include "publish/publishing.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string>

namespace Ui {
class frmHTMLExport;
}

namespace mrd::desktop {

class PublishingView;

/// What the windows of the two export dialogs have in common: one design, and the controls of the same names.
class ExportWindow : public QDialog {
public:
  ~ExportWindow() override;

  /// False when there is nothing to generate from: the user has been told, and the dialog is not to be shown.
  bool isLoaded() const { return loaded_; }
  /// While a run is under way it is stopped; the dialog closes without one.
  void reject() override { stop_(); }

protected:
  /// `name` is the window's in the language tables.
  ExportWindow(const char* name, generator::ExportDialog& form, messages::Language& language, QWidget* parent);

  /// Loads the form and connects the controls that both dialogs have.
  template <class Form>
  void load(Form& form)
  {
    stop_ = [&form] { form.cbabbrechen_Click(); };
    QtControls controls(*this, objectName().toStdString());
    loaded_ = form.Form_Load(controls);
    if (form.publishing)
      show(*form.publishing);
    onClick("cbHTML", [this, &form] {
      form.cbHTML_Click();
      refresh();
    });
    onClick("cbvorschau", [&form] { form.cbvorschau_Click(); });
    onClick("cbabbrechen", [&form] { form.cbabbrechen_Click(); });
    onClick("cbftpverbindung", [&form] { form.cbftpverbindung_Click(); });
    onClick("cbftp", [&form] { form.cbftp_Click(); });
    onClick("cbftplöschen", [&form] { form.cbftplöschen_Click(); });
    onClick("cbzusätzlichftp", [&form] { form.cbzusätzlichftp_Click(); });
    onClick("cberneut", [&form] { form.cberneut_Click(); });
    onClick("labelSekunden", [&form] { form.labelSekunden_Click(); });
    refresh();
  }

  virtual void refresh();

  std::unique_ptr<Ui::frmHTMLExport> ui_;

private:
  using QDialog::show;
  void show(publish::Publishing& publishing);
  /// Nothing for a button that the dialog lacks.
  void onClick(const char* button, std::function<void()> click);

  generator::ExportDialog& shared_;
  messages::Language& language_;
  std::unique_ptr<PublishingView> view_;
  std::function<void()> stop_ = [] {};
  bool loaded_ = false;
};

} // namespace mrd::desktop
