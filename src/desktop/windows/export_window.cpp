#include "desktop/windows/export_window.h"

#include "desktop/seams/shown_text.h"
#include "desktop/windows/html_export_window.ui.h"
#include "desktop/windows/publishing_view.h"

namespace mrd::desktop {

ExportWindow::ExportWindow(const char* name, generator::ExportDialog& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmHTMLExport>()), shared_(form), language_(language)
{
  ui_->setupUi(this);
  setObjectName(name);
  shared_.window.refresh = [this] { refresh(); };
  shared_.window.unload = [this] { accept(); };
}

ExportWindow::~ExportWindow() { shared_.window = {}; }

void ExportWindow::show(publish::Publishing& publishing)
{
  view_ = std::make_unique<PublishingView>(*this, publishing, language_);
}

void ExportWindow::onClick(const char* button, std::function<void()> click)
{
  if (const auto* const found = findChild<QPushButton*>(QString::fromUtf8(button)))
    connect(found, &QPushButton::clicked, this, std::move(click));
}

void ExportWindow::refresh()
{
  ui_->labelSeite->setText(shown(language_.shownText(shared_.labelSeite)));
  const auto& progress = shared_.ProgressBar1;
  ui_->ProgressBar1->setVisible(progress.Visible);
  ui_->ProgressBar1->setMaximum(static_cast<int>(progress.Max));
  ui_->ProgressBar1->setValue(static_cast<int>(progress.Value));
  if (view_)
    view_->refresh();
}

} // namespace mrd::desktop
