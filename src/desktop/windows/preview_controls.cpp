#include "desktop/windows/preview_controls.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/mainform_window.ui.h"
#include "frame/settings/fields.h"
#include "mainform/site_colours.h"
#include "pictures/corners.h"

#include <QEvent>

#include <algorithm>
#include <array>

namespace mrd::desktop {
namespace {

using settings::Fields;

QColor screenColour(const std::string& text)
{
  const int colour = mainform::screenColour(text);
  return {colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff};
}

void colour(QWidget& widget, mainform::ColourUse use, const QColor& colour)
{
  if (auto* const swatch = dynamic_cast<ColourSwatch*>(&widget))
    return swatch->setColour(colour);
  QPalette palette = widget.palette();
  palette.setColor(use == mainform::ColourUse::Back ? QPalette::Window : QPalette::WindowText, colour);
  widget.setAutoFillBackground(widget.autoFillBackground() || use == mainform::ColourUse::Back);
  widget.setPalette(palette);
}

/// One for each kind of layout.
std::array<QFrame*, 4> previewsOf(const Ui::Mainform& ui)
{
  return {ui.frmhintergrund, ui.frmVorschauTablaschen, ui.FrmVorschauOhneAlles, ui.FrmVorschaubenutzerdefiniert};
}

} // namespace

PreviewControls::PreviewControls(MainformParts& parts) : parts_(parts)
{
  for (auto* const frame : parts_.window.findChildren<QFrame*>())
    if (const QString control = frame->property("like").toString(); !control.isEmpty())
      lookalikes_.insert(control, frame);
  parts_.ui.FrmVorschau->installEventFilter(this);
  parts_.ui.LEADimode->installEventFilter(this);
  connectColours();
}

void PreviewControls::connectColours()
{
  for (const auto& field : mainform::colourFields()) {
    auto& swatch = dynamic_cast<ColourSwatch&>(parts_.controls.object("Labelfarbe", field.index));
    auto& button = dynamic_cast<QToolButton&>(parts_.controls.object("cbfarbe", field.index));
    auto& line = dynamic_cast<QLineEdit&>(parts_.controls.object(field.control));
    const int index = field.index;
    connect(&swatch, &ColourSwatch::clicked, this, [this, index] { parts_.form.settings().Labelfarbe_Click(index); });
    connect(&button, &QToolButton::clicked, this, [this, index] { parts_.form.settings().cbfarbe_Click(index); });
    connect(&line, &QLineEdit::textEdited, this, [this, index] { parts_.form.settings().farblabel(index); });
  }
}

void PreviewControls::show()
{
  const Fields& fields = parts_.form.settings().fields();
  for (const auto& [control, index, use, field] : mainform::colouredControls()) {
    const QColor shownColour = screenColour(fields.*field);
    auto& widget = dynamic_cast<QWidget&>(parts_.controls.object(control, index));
    colour(widget, use, shownColour);
    for (auto* const lookalike : lookalikes_.values(widget.objectName()))
      colour(*lookalike, use, shownColour);
  }
  for (const auto& field : mainform::colourFields())
    dynamic_cast<ColourSwatch&>(parts_.controls.object("Labelfarbe", field.index))
        .setFramed(field.index == parts_.form.settings().framedSwatch);
  fitPreviews();
  showRadius();
}

void PreviewControls::fitPreviews()
{
  const double share = parts_.form.settings().previewShare();
  const int room = parts_.ui.FrmVorschau->contentsRect().width();
  for (QFrame* const preview : previewsOf(parts_.ui))
    preview->setMaximumWidth(std::max(preview->minimumWidth(), static_cast<int>(room * share)));
}

bool PreviewControls::eventFilter(QObject* watched, QEvent* event)
{
  if (watched == parts_.ui.LEADimode) {
    if (event->type() == QEvent::Show)
      showBand();
  } else if (event->type() == QEvent::Resize) {
    fitPreviews();
  }
  return QObject::eventFilter(watched, event);
}

void PreviewControls::showRadius()
{
  const Fields& fields = parts_.form.settings().fields();
  const auto sample = std::ranges::find(pictures::kCorners, "ecke-ur.jpg", &pictures::Corner::fileName);
  parts_.ui.LEADEcke->setCorner(pictures::drawCorner(*sample, fields), screenColour(fields.tbhintergrundaussen));
  showBand();
}

/// Drawn when it is seen: its letters bring the picture library and a font, which would take half of a start.
void PreviewControls::showBand()
{
  if (!parts_.ui.LEADimode->isVisible())
    return;
  auto& head = parts_.form.imodeHead();
  head.imodelogo();
  if (head.LEADimode)
    parts_.ui.LEADimode->setImage(*head.LEADimode);
}

void PreviewControls::showPreviewBox()
{
  const auto isThere = [](const QFrame* preview) { return !preview->isHidden(); };
  parts_.ui.FrmVorschau->setVisible(std::ranges::any_of(previewsOf(parts_.ui), isThere));
}

} // namespace mrd::desktop
