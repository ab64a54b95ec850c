#include "desktop/windows/objekt_anzeigen_window.h"

#include "desktop/controls/picture_canvas.h"
#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/objekt_anzeigen_window.ui.h"

namespace mrd::desktop {
namespace {

constexpr QSize kFirstSize(560, 480);
constexpr int kResizedMilliseconds = 120;

} // namespace

ObjektAnzeigenWindow::ObjektAnzeigenWindow(pictures::formobjektanzeigen& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), form_(form), language_(language), ui_(std::make_unique<Ui::formobjektanzeigen>()),
      LEAD1_(new PictureCanvas)
{
  ui_->setupUi(this);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LEAD1_->setObjectName("LEAD1");
  ui_->scroll->setWidget(LEAD1_);
  resize(kFirstSize);
  QtControls controls(*this, "formobjektanzeigen");
  language_.Setlanguage(controls);
  firstTitle_ = windowTitle();
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] {
    hide();
    refresh();
  };
  form_.window.show = [this] { show(); };
  form_.window.room = [this] { return room(); };
  connect(ui_->checkstretch, &QCheckBox::clicked, this, [this](bool checked) {
    form_.checkstretch = checked;
    form_.checkstretch_Click();
    refresh();
  });
  resized_.setSingleShot(true);
  connect(&resized_, &QTimer::timeout, this, [this] { form_.Form_Resize(); });
  refresh();
}

ObjektAnzeigenWindow::~ObjektAnzeigenWindow() { form_.window = {}; }

image::Size ObjektAnzeigenWindow::room() const
{
  const QSize size = ui_->scroll->isVisible() ? ui_->scroll->size() : kFirstSize;
  return {std::max(1, size.width()), std::max(1, size.height())};
}

void ObjektAnzeigenWindow::resizeEvent(QResizeEvent* event)
{
  QDialog::resizeEvent(event);
  resized_.start(kResizedMilliseconds);
}

void ObjektAnzeigenWindow::refresh()
{
  const bool isFirst = form_.caption == pictures::formobjektanzeigen::kFirstCaption;
  setWindowTitle(isFirst ? firstTitle_ : shownPath(form_.caption));
  ui_->LabelInfo->setText(shown(language_.shownText(form_.LabelInfo)));
  ui_->checkstretch->setChecked(form_.checkstretch);
  ui_->scroll->setVisible(form_.isPictureVisible());
  ui_->picbild->setVisible(!form_.isPictureVisible());
  ui_->picbild->setText(form_.isPictureVisible() ? QString() : shownPath(form_.caption));
  const auto bars = form_.checkstretch ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  ui_->scroll->setHorizontalScrollBarPolicy(bars);
  ui_->scroll->setVerticalScrollBarPolicy(bars);
  LEAD1_->setPicture(form_.picture(), QSize(form_.LEAD1().width, form_.LEAD1().height));
  LEAD1_->setAccessibleName(ui_->LabelInfo->text());
}

} // namespace mrd::desktop
