#pragma once
// The frame "i-mode Kopfbereich" of the main window: the choice of the picture and the band as it will look.

#include "frame/settings/fields.h"
#include "platform/image/image.h"
#include "platform/ui/ui.h"

#include <optional>

namespace mrd::imode {

class HeadFrame {
public:
  /// The fields of the frame are among the settings of the project.
  HeadFrame(settings::Fields& fields, ui::Ui& ui) : fields_(fields), ui_(ui) {}

  /// Asks for a picture file, and says so where none was chosen. A failure is a message of its own.
  void cbimodegifladen_Click();
  /// Draws the band in the colours and with the text of the fields.
  void imodelogo();
  /// The band as it was drawn last; none where it could not be drawn.
  std::optional<image::Image> LEADimode;

private:
  settings::Fields& fields_;
  ui::Ui& ui_;
};

} // namespace mrd::imode
