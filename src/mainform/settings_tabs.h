#pragma once
// The tabs with the settings of the project: saving them, the export path, the choice of a layout, the colour fields.

#include "mainform/project_frame.h"
#include "mainform/site_colours.h"

#include <functional>

namespace mrd::mainform {

class SettingsTabs {
public:
  struct Parts {
    ProjectFrame& project;
    MainScreen& screen;
    ui::EditingSurface& DHTMLEdit1;
  };
  SettingsTabs(const Parts& parts, std::function<void()> farbenaktualisieren);

  /// The fields of all settings tabs, under the names of their controls.
  settings::Fields& fields() { return parts_.project.fields(); }
  /// The colour swatch with the frame, 0 for none.
  int framedSwatch = 0;

  /// Writes all fields into the project. Message 24 without a project; has the standard failure handler. False when it failed.
  bool cbeinstellungen_Click();
  /// The export path field has lost the focus: the directory is made ready.
  void tbpfadexport_LostFocus();
  /// The folder chooser beside the field.
  void cbpfad_Click();
  /// A layout has been chosen: its preview and the fields that it uses.
  void ComboGrundlayout_Click();
  void CheckRundeEcke_Click();
  /// Asks for the colour of the field with this number.
  void cbfarbe_Click(int Index);
  void Labelfarbe_Click(int Index);
  void farblabel(int Index);
  /// The text of a colour field, the font or the width of the content was changed.
  void colourField_Change() { farbenaktualisieren_(); }

  /// To be called when the fields have been filled from a project, or captions and states of controls from the language.
  void showFields();
  /// Share of a width that the previews take, by the width of the content: at most 1.
  double previewShare() const;

private:
  const Parts parts_;
  const std::function<void()> farbenaktualisieren_;
};

} // namespace mrd::mainform
