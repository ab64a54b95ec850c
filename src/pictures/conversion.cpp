#include "pictures/conversion.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "frame/settings/export_path.h"
#include "pictures/corners.h"
#include "pictures/file_names.h"
#include "pictures/sizes.h"
#include "platform/files/files.h"

#include <cmath>

namespace mrd::pictures {
namespace {

using base::Error;
using base::ErrorNumber;
using image::Image;

/// Base of the source's name, as its target's name is made from it.
std::string baseOf(const Source& source) { return paths::teile_dateipfad(source.quellverzeichnis + source.dateiname).name; }

double maximumOf(const ConversionOptions& options) { return base::numericValue(options.tbpixel); }

/// Name of a picture that is larger than the limit.
std::string longName(const ConversionOptions& options, const Source& source, std::string_view prefix)
{
  return bereinige_dateiname(base::trim(base::format("{}{}_{}", prefix, baseOf(source), maximumOf(options))) + ".jpg");
}

/// A picture that is small enough keeps its plain name.
std::string shortName(const Source& source) { return bereinige_dateiname(baseOf(source) + ".jpg"); }

std::string copyName(const Source& source, std::string_view prefix)
{
  return std::string(prefix) + bereinige_dateiname(source.dateiname);
}

void convert(const ConversionOptions& options, const PictureTarget& target, const Source& source, std::string_view prefix,
             std::string& dateiname)
{
  const double maximum = maximumOf(options);
  dateiname = longName(options, source, prefix);
  if (options.opbeibehalten && paths::datei_vorhanden(target.pix + dateiname))
    return;
  if (maximum < 1)
    throw Error(ErrorNumber::InvalidCall, base::format("\"{}\" ist keine Größe für Bilder.", options.tbpixel));
  const auto size = Image::sizeOf(source.path);
  if (fits(size, maximum)) {
    const auto picture = Image::load(source.path, target.background);
    dateiname = shortName(source);
    picture.saveJpeg(target.pix + dateiname, options.Slider1);
    return;
  }
  Image::loadResized(source.path, fitted(size, maximum), target.background).saveJpeg(target.pix + dateiname, options.Slider1);
}

} // namespace

PictureTarget::PictureTarget(const settings::Fields& fields)
    : exportPath(settings::withClosingSeparator(fields.tbpfadexport)), pix(exportPath + "pix\\"),
      background(colourOf(fields.tbhintergrund))
{
}

std::string namePrefix(const ConversionOptions& options, std::string_view pageKey)
{
  if (!options.opumbenennen)
    return {};
  return base::replaceAll(base::replaceAll(std::string(pageKey) + "_", ";", "i"), "@", "");
}

ConvertedPicture konvertiere_und_kopiere_bild(const ConversionOptions& options, const PictureTarget& target, const Source& source,
                                              std::string_view zusatz)
{
  ConvertedPicture out{source.dateiname};
  const auto prefix = namePrefix(options, zusatz);
  try {
    // A directory that the assistant has taken over, or that was emptied meanwhile, has none.
    settings::makePictureDirectory(target.exportPath);
    if (options.opkonvertieren) {
      convert(options, target, source, prefix, out.dateiname);
    } else {
      const auto name = copyName(source, prefix);
      files::copyFile(source.path, target.pix + name);
      out.dateiname = name;
    }
  } catch (const Error& error) {
    out.failure = error.description();
  }
  return out;
}

std::vector<std::string> possibleNames(const ConversionOptions& options, const Source& source, std::string_view zusatz)
{
  const auto prefix = namePrefix(options, zusatz);
  if (!options.opkonvertieren)
    return {copyName(source, prefix)};
  return {longName(options, source, prefix), shortName(source)};
}

std::string rotatePicture(std::string_view path, int qualityFactor)
{
  const auto parts = paths::teile_dateipfad(path);
  auto target = parts.verzeichnis + parts.name + ".jpg";
  // The picture lies twice in memory while it is turned, and once while it is written.
  auto picture = Image::load(path);
  picture = picture.rotated();
  picture.saveJpeg(target, qualityFactor);
  return target;
}

} // namespace mrd::pictures
