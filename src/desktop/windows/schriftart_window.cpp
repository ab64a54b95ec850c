#include "desktop/windows/schriftart_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/schriftart_window.ui.h"

#include <QFontDatabase>

#include <array>

namespace mrd::desktop {
namespace {

/// As browsers show the sizes of HTML; the first is that of a page's text.
constexpr std::array<int, editor::FrmSchriftart::kSizes.size()> kPixels{16, 10, 13, 16, 18, 24, 32, 48};

} // namespace

SchriftartWindow::SchriftartWindow(editor::FrmSchriftart& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FrmSchriftart>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FrmSchriftart");
  form_.window.unload = [this] { accept(); };
  ui_->Comboschrift->addItems(QFontDatabase::families());
  for (const auto size : editor::FrmSchriftart::kSizes)
    ui_->Combogröße->addItem(shown(size));
  form_.Form_Load(controls);
  ui_->Comboschrift->setEditText(shown(form_.Comboschrift));
  ui_->Combogröße->setCurrentIndex(form_.Combogröße);
  showSample();
  connect(ui_->Comboschrift, &QComboBox::editTextChanged, this, [this](const QString& name) {
    form_.Comboschrift = name.toStdString();
    showSample();
  });
  connect(ui_->Combogröße, &QComboBox::currentIndexChanged, this, [this](int index) {
    form_.Combogröße = index;
    showSample();
  });
  connect(ui_->cbok, &QPushButton::clicked, this, [this] { form_.cbok_Click(); });
  connect(ui_->cbabbrechen, &QPushButton::clicked, this, [this] { form_.cbabbrechen_Click(); });
}

SchriftartWindow::~SchriftartWindow() { form_.window = {}; }

void SchriftartWindow::showSample()
{
  QFont sample = form_.Comboschrift.empty() ? font() : QFont(shown(form_.Comboschrift));
  sample.setPixelSize(kPixels.at(static_cast<std::size_t>(form_.Combogröße)));
  ui_->lblmuster->setFont(sample);
}

} // namespace mrd::desktop
