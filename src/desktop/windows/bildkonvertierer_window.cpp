#include "desktop/windows/bildkonvertierer_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/bildkonvertierer_window.ui.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace mrd::desktop {

BildkonvertiererWindow::BildkonvertiererWindow(pictures::frmBildkonvertierer& form, messages::Language& language, QWidget* parent)
    : QWidget(parent, Qt::Dialog), form_(form), ui_(std::make_unique<Ui::frmBildkonvertierer>())
{
  ui_->setupUi(this);
  setWindowModality(Qt::ApplicationModal);
  QtControls controls(*this, "frmBildkonvertierer");
  language.Setlanguage(controls);
  ui_->ProgressBar1->setAccessibleName(windowTitle());
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] { hide(); };
  connect(ui_->cbanhalten, &QPushButton::clicked, this, [this] { form_.cbanhalten_Click(); });
}

BildkonvertiererWindow::~BildkonvertiererWindow() { static_cast<ui::FormWindow&>(form_.window) = {}; }

void BildkonvertiererWindow::refresh()
{
  // Without a number it only moves: the work goes on, nobody knows how far.
  ui_->ProgressBar1->setMaximum(static_cast<int>(form_.all()));
  ui_->ProgressBar1->setValue(static_cast<int>(form_.done()));
  ui_->LabelAnzahl->setText(shown(form_.LabelAnzahl()));
  ui_->cbanhalten->setEnabled(!form_.isStopped());
}

void BildkonvertiererWindow::keyPressEvent(QKeyEvent* event)
{
  if (event->key() == Qt::Key_Escape)
    return form_.cbanhalten_Click();
  QWidget::keyPressEvent(event);
}

void BildkonvertiererWindow::closeEvent(QCloseEvent* event)
{
  if (!form_.isShown())
    return event->accept();
  // The work ends where it can, and the window with it.
  form_.cbanhalten_Click();
  event->ignore();
}

} // namespace mrd::desktop
