#pragma once
// Copies of pictures with a shadow on the page's background. There is no blur: twelve rectangles, each smaller and darker, give
// the shadow its soft edge.

#include "pictures/bildkonvertierer.h"
#include "platform/image/image.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/ui.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::pictures {

/// Growth of the picture to the right and downwards.
inline constexpr int kShadowPx = 13;

/// The picture with its shadow. `tbhintergrund` is the page background, six hexadecimal digits with or without "#"; throws
/// TypeMismatch for another text.
image::Image withShadow(const image::Image& picture, std::string_view tbhintergrund);

/// Name of the copy beside its picture, without extension.
std::string shadowName(std::string_view name);

/// Writes `verzeichnis` + `name` + "_shd." + `erweiterung`, always JPEG data. Throws base::Error.
void erzeuge_schatten(std::string_view verzeichnis, std::string_view name, std::string_view erweiterung,
                      std::string_view tbhintergrund);

/// Gives the picture that a reference leads to a shadow and returns the reference to the copy; nothing where there is no such
/// file.
std::optional<std::string> schatten_hinzufügen(std::string_view src, std::string_view tbhintergrund);

/// The reference to the picture without its shadow, whose file stays; a message box and nothing where the picture has gone.
std::optional<std::string> schatten_entfernen(std::string_view src, ui::Ui& ui);

/// The open page, and who is told how far the work on its pictures is.
struct PageWithPictures {
  ui::EditingSurface& DHTMLEdit1;
  ui::Ui& ui;
  pictures::frmBildkonvertierer& frmBildkonvertierer;
};

/// Gives every picture of the open page a shadow whose file is there, and refers to the copies. Number of pictures that have one
/// now. Throws base::Error for a picture that cannot be read; those before it keep their shadows, and so they do when the user
/// stops the work.
std::size_t schatten_fuer_seite(const PageWithPictures& page, std::string_view tbhintergrund);

} // namespace mrd::pictures
