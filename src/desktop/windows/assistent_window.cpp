#include "desktop/windows/assistent_window.h"

#include "base/product.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/assistent_window.ui.h"
#include "desktop/windows/pictures.h"
#include "platform/files/path.h"

#include <QUrl>

#include <array>

namespace mrd::desktop {
namespace {

using Window = Ui::FrmAssistent;

struct LineField {
  QLineEdit* Window::*widget;
  std::string mainform::FrmAssistent::*field;
  bool isPath = false;
};
constexpr std::array kLines{
    LineField{&Window::tbexportpfad, &mainform::FrmAssistent::tbexportpfad, true},
    LineField{&Window::tbFTPServer, &mainform::FrmAssistent::tbFTPServer},
    LineField{&Window::tbtitel, &mainform::FrmAssistent::tbtitel},
    LineField{&Window::tbbasisurl, &mainform::FrmAssistent::tbbasisurl},
};

} // namespace

FrmAssistentWindow::FrmAssistentWindow(mainform::FrmAssistent& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), form_(form), language_(language), ui_(std::make_unique<Ui::FrmAssistent>())
{
  ui_->setupUi(this);
  showPictures(*this);
  QtControls controls(*this, "FrmAssistent");
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] { accept(); };
  form_.Form_Load(controls);
  ui_->Label4->setText(QStringLiteral("<a href=\"mail\">%1</a>").arg(shown(base::kSupportMail)));
  showGuide();
  refresh();
  connectControls();
}

FrmAssistentWindow::~FrmAssistentWindow() { form_.window = {}; }

void FrmAssistentWindow::connectControls()
{
  for (const auto& [widget, field, isPath] : kLines)
    connect(ui_.get()->*widget, &QLineEdit::textChanged, this, [this, field = field, isPath = isPath](const QString& text) {
      if (!showing_)
        form_.*field = isPath ? typedPath(text) : text.toStdString();
    });
  connect(ui_->CheckAssistentaqnzeigen, &QCheckBox::toggled, this,
          [this](bool checked) { form_.CheckAssistentaqnzeigen = checked; });
  connect(ui_->TabAssistent, &QTabWidget::currentChanged, this, [this](int page) {
    if (showing_)
      return;
    form_.TabAssistent = page;
    form_.TabAssistent_Click();
    refresh();
  });
  connect(ui_->cbweiter1, &QPushButton::clicked, this, [this] { form_.cbweiter1_Click(); });
  connect(ui_->cbweiter2, &QPushButton::clicked, this, [this] { form_.cbweiter2_Click(); });
  connect(ui_->cbpfad, &QToolButton::clicked, this, [this] { form_.cbpfad_Click(); });
  connect(ui_->Label4, &QLabel::linkActivated, this, [this] { form_.Label4_Click(); });
  connect(ui_->cbschliessen, &QPushButton::clicked, this, [this] { form_.cbschliessen_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
}

void FrmAssistentWindow::showGuide()
{
  constexpr int kMarginPx = 18;
  ui_->DHTMLEditKurzanleitung->document()->setDocumentMargin(kMarginPx);
  if (form_.guideFile.empty())
    ui_->DHTMLEditKurzanleitung->setHtml(shown(language_.shownText(form_.guideHtml)));
  else
    ui_->DHTMLEditKurzanleitung->setSource(QUrl::fromLocalFile(shown(files::nativePath(form_.guideFile).string())));
}

void FrmAssistentWindow::refresh()
{
  showing_ = true;
  for (const auto& [widget, field, isPath] : kLines) {
    const QString text = isPath ? shownPath(form_.*field) : shown(form_.*field);
    if ((ui_.get()->*widget)->text() != text)
      (ui_.get()->*widget)->setText(text);
  }
  ui_->CheckAssistentaqnzeigen->setChecked(form_.CheckAssistentaqnzeigen);
  ui_->TabAssistent->setCurrentIndex(form_.TabAssistent);
  ui_->cbweiter1->setEnabled(form_.cbweiter1Enabled);
  ui_->cbweiter2->setEnabled(form_.cbweiter2Enabled);
  ui_->cbschliessen->setEnabled(form_.cbschliessenEnabled);
  if (auto* const focused = findChild<QWidget*>(shown(form_.focus)))
    focused->setFocus();
  showing_ = false;
}

} // namespace mrd::desktop
