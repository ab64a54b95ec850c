#include "desktop/windows/control_labels.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/mainform_window.ui.h"
#include "mainform/site_colours.h"

namespace mrd::desktop {

void ControlLabels::show()
{
  // A caption is as dim as the field that it stands beside.
  for (auto* const label : parts_.window.findChildren<QLabel*>())
    if (const QWidget* const field = label->buddy())
      label->setEnabled(field->isEnabled());
  nameControls();
}

void ControlLabels::nameControls()
{
  const auto plain = [](QString caption) { return caption.remove('&').remove(':'); };
  for (const auto& field : mainform::colourFields()) {
    const auto& line = dynamic_cast<QWidget&>(parts_.controls.object(field.control));
    for (const auto* const label : parts_.window.findChildren<QLabel*>())
      if (label->buddy() == &line)
        for (const auto* const control : {"Labelfarbe", "cbfarbe"})
          dynamic_cast<QWidget&>(parts_.controls.object(control, field.index)).setAccessibleName(plain(label->text()));
  }
  parts_.ui.TreeView1->setAccessibleName(parts_.ui.TabTree->tabText(0));
  parts_.ui.tbhtml->setAccessibleName(parts_.ui.tabHtml->tabText(1));
  dynamic_cast<QWidget&>(parts_.controls.object("DHTMLEdit1")).setAccessibleName(parts_.ui.tabHtml->tabText(0));
  parts_.ui.tbimodekopftext->setAccessibleName(plain(parts_.ui.Opimmodekopf_1->text()));
  parts_.ui.UpDownRadius->setNames(plain(parts_.ui.LabelRadius->text()) + " +1", plain(parts_.ui.LabelRadius->text()) + " -1");
}

} // namespace mrd::desktop
