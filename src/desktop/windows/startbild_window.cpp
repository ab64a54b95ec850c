#include "desktop/windows/startbild_window.h"

#include "desktop/looks/icons.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/startbild_window.ui.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace mrd::desktop {

FrmStartbildWindow::FrmStartbildWindow(mainform::FrmStartbild& form)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), form_(form), ui_(std::make_unique<Ui::FrmStartbild>())
{
  ui_->setupUi(this);
  setFixedSize(size());
  setWindowIcon(programIcon());
  ui_->labelversion->setText(shown(form_.labelversion));
  // On the picture, whatever the palette.
  QPalette onPicture = palette();
  onPicture.setColor(QPalette::WindowText, Qt::white);
  ui_->labelversion->setPalette(onPicture);
  form_.window.unload = [this] { close(); };
  if (const QScreen* const screen = QGuiApplication::primaryScreen())
    move(screen->availableGeometry().center() - rect().center());
}

FrmStartbildWindow::~FrmStartbildWindow() { form_.window = {}; }

void FrmStartbildWindow::mousePressEvent(QMouseEvent*) { form_.Form_Click(); }

void FrmStartbildWindow::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  icon("opening").paint(&painter, rect());
}

} // namespace mrd::desktop
