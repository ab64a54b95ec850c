#pragma once
// One picture's way into `pix` of the export directory. Safe to run for several pictures on threads of their own, as long as
// their files are different ones.

#include "frame/settings/fields.h"
#include "platform/image/image.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pictures {

/// What the picture dialog says about converting, under the names of its controls.
struct ConversionOptions {
  bool opkonvertieren = true;
  /// Limit of the longer side in pixels, a number as text.
  std::string tbpixel = "580";
  /// Quality factor 5 to 100; it grows with the compression.
  int Slider1 = 35;
  /// New names begin with the page's number; a target that exists is left alone; neither of both.
  bool opumbenennen = true, opbeibehalten = false, opüberschreiben = false;
};

/// Where pictures go, and what shows through them there.
struct PictureTarget {
  explicit PictureTarget(const settings::Fields& fields);
  /// Export directory and its `pix`, each with a separator at its end.
  std::string exportPath, pix;
  /// The page background: what a transparent place shows.
  image::Colour background;
};

struct Source {
  std::string quellverzeichnis;
  /// Name with extension, as the target's name is made from it.
  std::string dateiname;
  /// The file itself, whatever the case of its letters.
  std::string path;
};

struct ConvertedPicture {
  /// The final name in `pix`, also where no file could be written.
  std::string dateiname;
  /// What went wrong.
  std::optional<std::string> failure = {};
};

/// What begins a new name: nothing, or the page key without "@", ";" for the homepage as "i", and "_".
std::string namePrefix(const ConversionOptions& options, std::string_view pageKey);

/// Converts the picture to a JPEG of at most the given size, or copies it as it is. Never throws for a picture that cannot be
/// read or written: the caller's run goes on. A missing `pix` is made in an export directory that is there.
ConvertedPicture konvertiere_und_kopiere_bild(const ConversionOptions& options, const PictureTarget& target, const Source& source,
                                              std::string_view zusatz);

/// All names in `pix` that the conversion may write or look for.
std::vector<std::string> possibleNames(const ConversionOptions& options, const Source& source, std::string_view zusatz);

/// Turns a picture by 90 degrees clockwise, into a JPEG beside it or in its place. Returns the JPEG's path. Throws base::Error.
std::string rotatePicture(std::string_view path, int qualityFactor);

} // namespace mrd::pictures
