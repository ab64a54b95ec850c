#pragma once
// The site's colours and font on the main window: swatches, previews of the layouts, and the editing surface.

#include "frame/settings/fields.h"
#include "mainform/edited_document.h"
#include "mainform/main_screen.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/ui.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mrd::mainform {

/// A field with a colour: its swatch is `Labelfarbe(index)`, its button `cbfarbe(index)`.
struct ColourField {
  int index;
  std::string_view control;
  std::string settings::Fields::*field;
};
/// The eight of them, by index from 1.
std::span<const ColourField> colourFields();

/// Which of a control's two colours is meant.
enum class ColourUse { Back, Fore };

/// A control that shows the colour of a field: the swatches and the parts of the layout previews.
struct ColouredControl {
  std::string_view control;
  std::optional<int> index;
  ColourUse use;
  std::string settings::Fields::*field;
};
/// All of them; a field has several.
std::span<const ColouredControl> colouredControls();

/// Colour number 0xBBGGRR of a colour text with or without "#"; black for a text that is none.
int screenColour(std::string_view text);
/// Colour text of a colour number, with "#".
std::string colourText(int colour);

class SiteColours {
public:
  struct Parts {
    ui::Ui& ui;
    ui::EditingSurface& DHTMLEdit1;
    MainScreen& screen;
    const settings::Fields& fields;
    const EditedDocument& document;
  };
  explicit SiteColours(const Parts& parts) : parts_(parts) {}

  /// Recolours swatches and previews, waits until the surface has loaded, and gives its document the colours of a page or, while
  /// the head is edited, of the head, with the site's font and links.
  void farbenaktualisieren();

private:
  void waitForSurface();

  const Parts parts_;
  bool waiting_ = false;
};

} // namespace mrd::mainform
