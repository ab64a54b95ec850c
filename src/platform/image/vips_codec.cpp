#include "base/errors.h"
#include "base/format.h"
#include "platform/image/codec.h"
#include "platform/image/second_reader.h"
#include "platform/image/vips_library.h"

#include <vips/vips8>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace mrd::image {
namespace {

using base::Error;
using base::ErrorNumber;
using vips::VImage;

/// A larger one is not encoded in two passes, which would hold all its coefficients in memory to save a few bytes in a hundred.
constexpr long long kMostPixelsInTwoPasses = 20'000'000;
/// From this quality on every pixel keeps its own colour: somebody asked for the best, or draws thin lines.
constexpr int kFullColourQuality = 90;
/// One resolution makes a font's points pixels.
constexpr int kDotsPerInch = 72;
/// Turning by the camera's position swaps the sides from here on.
constexpr int kFirstSidewaysOrientation = 5;

/// The library's readers of pictures. It has others, of drawings and documents for example, and takes them by a file's content
/// whatever its name is; those open further files that the content names, and what stood in them would come into a page.
constexpr std::array<std::string_view, 8> kReaders{"jpegload", "pngload",  "gifload",  "tiffload",
                                                   "webpload", "heifload", "jp2kload", "jxlload"};
/// Knows hundreds of formats, and gets the files of a few.
constexpr const char* kSecondReader = "magickload";

struct File {
  std::string native;
  /// Name of the operation that reads it.
  const char* loader = nullptr;
};

/// Null for a file that none of the readers takes.
const char* readerOf(const std::string& name)
{
  // The library takes a bracket at the end of a name for options; behind one of ours a bracket of the name's own is part of it.
  const char* const type = vips_foreign_find_load((name + "[]").c_str());
  forgetFailure();
  const char* const reader = type ? vips_nickname_find(g_type_from_name(type)) : nullptr;
  if (reader && std::ranges::find(kReaders, reader) != kReaders.end())
    return reader;
  return isForSecondReader(name) ? kSecondReader : nullptr;
}

File find(const std::string& name)
{
  File file{name};
  withLibrary(file.native, [&] { file.loader = readerOf(name); });
  if (!file.loader)
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: Die Datei ist kein Bild von bekannter Art.", file.native));
  return file;
}

/// What the reader holds of a picture that streams through it.
constexpr long long kStreamBytes = 16'000'000;

/// Two of the three channels of most photographs have a quarter of the pixels.
bool hasSmallColours(const VImage& picture)
{
  constexpr auto kField = "jpeg-chroma-subsample";
  return picture.get_typeof(kField) != 0 && std::string_view(picture.get_string(kField)) == "4:2:0";
}

/// A picture whose rows come in several passes is in memory as a whole, however small it is made: a JPEG as coefficients of two
/// bytes.
long long bytesInPasses(const VImage& picture, std::string_view loader)
{
  if (picture.get_typeof("interlaced") == 0)
    return 0;
  const auto pixels = static_cast<long long>(picture.width()) * picture.height();
  const long long each = static_cast<long long>(VIPS_IMAGE_SIZEOF_PEL(picture.get_image()));
  const bool isJpeg = loader == "jpegload";
  return pixels * each * (isJpeg && !hasSmallColours(picture) ? 2 : 1);
}

bool isTurned(const VImage& picture) { return vips_image_get_orientation(picture.get_image()) > 1; }

/// What reading the picture as a whole takes. Turning needs all of it in its own form.
long long bytesToRead(const VImage& picture, std::string_view loader)
{
  const auto pixels = static_cast<long long>(picture.width()) * picture.height();
  const long long whole = isTurned(picture) ? pixels * static_cast<long long>(VIPS_IMAGE_SIZEOF_PEL(picture.get_image())) : 0;
  return bytesInPasses(picture, loader) + whole + kStreamBytes;
}

/// A file that is read once, from top to bottom, so that only its pixels take memory.
VImage open(const File& file)
{
  VImage picture;
  VImage::call(
      file.loader,
      VImage::option()->set("filename", file.native.c_str())->set("access", VIPS_ACCESS_SEQUENTIAL)->set("out", &picture));
  return picture;
}

/// Colours as the picture's own profile means them. A profile that is broken is no reason to lose the picture.
VImage withScreenColours(const VImage& picture)
{
  const bool hasProfile = picture.get_typeof(VIPS_META_ICC_NAME) != 0;
  const bool isPrint = picture.interpretation() == VIPS_INTERPRETATION_CMYK;
  if (hasProfile || isPrint) {
    try {
      return picture.icc_transform(
          "srgb", VImage::option()->set("embedded", true)->set("input_profile", isPrint ? "cmyk" : "srgb")->set("depth", 8));
    } catch (const vips::VError&) {
      forgetFailure();
    }
  }
  return picture.colourspace(VIPS_INTERPRETATION_sRGB);
}

VImage as24Bit(const VImage& picture, Colour background)
{
  const std::vector<double> behind{double(background.red), double(background.green), double(background.blue)};
  auto coloured = withScreenColours(picture);
  if (coloured.has_alpha())
    coloured = coloured.flatten(VImage::option()->set("background", behind));
  coloured = coloured.cast(VIPS_FORMAT_UCHAR);
  if (coloured.bands() < kBands)
    return coloured.extract_band(0).bandjoin({coloured.extract_band(0), coloured.extract_band(0)});
  return coloured.bands() == kBands ? coloured : coloured.extract_band(0, VImage::option()->set("n", kBands));
}

/// As the camera was held. Turning reads the picture in another order, for which it must be whole.
VImage upright(const VImage& picture) { return isTurned(picture) ? picture.copy_memory().autorot() : picture; }

Raster rasterOf(const VImage& picture)
{
  std::size_t size = 0;
  return {{picture.width(), picture.height()}, Pixels(static_cast<std::uint8_t*>(picture.write_to_memory(&size)))};
}

VImage asLibraryImage(RasterView picture)
{
  const auto bytes = static_cast<std::size_t>(picture.size.width) * static_cast<std::size_t>(picture.size.height) * kBands;
  // The library takes memory that it could write to, and only reads it.
  return VImage::new_from_memory(const_cast<std::uint8_t*>(picture.pixels), bytes, picture.size.width, picture.size.height,
                                 kBands, VIPS_FORMAT_UCHAR)
      .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

/// Made small by the reader itself where the format can, and then exactly. Still in the picture's own colours: the few pixels
/// that are left take less time for that.
VImage reduced(const std::string& name, Size size)
{
  return VImage::thumbnail((name + "[]").c_str(), size.width,
                           VImage::option()->set("height", size.height)->set("size", VIPS_SIZE_FORCE));
}

/// The library reads markup in texts.
std::string withoutMarkup(const std::string& text)
{
  gchar* const escaped = g_markup_escape_text(text.data(), static_cast<gssize>(text.size()));
  std::string result = escaped;
  g_free(escaped);
  return result;
}

class VipsCodec : public Codec {
public:
  Head headOf(const std::string& name) const override
  {
    const auto file = find(name);
    Head head;
    withLibrary(name, [&] {
      const auto picture = open(file);
      head = {{picture.width(), picture.height()},
              bytesToRead(picture, file.loader),
              bytesInPasses(picture, file.loader) + kStreamBytes};
      if (vips_image_get_orientation(picture.get_image()) >= kFirstSidewaysOrientation)
        std::swap(head.size.width, head.size.height);
    });
    return head;
  }

  Raster read(const std::string& name, Colour background) const override
  {
    const auto file = find(name);
    return made(name, [&] { return rasterOf(as24Bit(upright(open(file)), background)); });
  }

  Raster readReduced(const std::string& name, Size size, Colour background) const override
  {
    return made(name, [&] { return rasterOf(as24Bit(reduced(name, size), background)); });
  }

  Plane redOf(const std::string& bytes) const override
  {
    auto raster = made("red", [&] {
      const auto picture = upright(VImage::new_from_buffer(bytes.data(), bytes.size(), ""));
      constexpr double kOpaque = 255;
      if (picture.has_alpha() && picture.extract_band(picture.bands() - 1).min() < kOpaque)
        throw Error(ErrorNumber::InvalidPicture, "Durchsichtige Stellen haben keine Farbe.");
      return rasterOf(picture.extract_band(0).cast(VIPS_FORMAT_UCHAR));
    });
    return {raster.size, std::move(raster.pixels)};
  }

  Raster resized(RasterView picture, Size size) const override
  {
    return made("resize", [&] {
      const double across = static_cast<double>(size.width) / picture.size.width;
      const double down = static_cast<double>(size.height) / picture.size.height;
      const auto scaled = asLibraryImage(picture).resize(across, VImage::option()->set("vscale", down));
      // A factor in floating point may miss the size by a pixel.
      return rasterOf(scaled.embed(0, 0, size.width, size.height, VImage::option()->set("extend", VIPS_EXTEND_COPY)));
    });
  }

  Raster rotated(RasterView picture) const override
  {
    return made("rotate", [&] { return rasterOf(asLibraryImage(picture).rot90()); });
  }

  Plane textLine(const std::string& text, int heightPx) const override
  {
    auto raster = made("text", [&] {
      return rasterOf(
          VImage::text(withoutMarkup(text).c_str(),
                       VImage::option()->set("font", ("sans " + std::to_string(heightPx)).c_str())->set("dpi", kDotsPerInch)));
    });
    return {raster.size, std::move(raster.pixels)};
  }

  std::string encodeJpeg(RasterView picture, int quality) const override
  {
    std::string file;
    withLibrary("jpeg", [&] {
      const bool keepsColours = quality >= kFullColourQuality;
      const bool isLarge = static_cast<long long>(picture.size.width) * picture.size.height > kMostPixelsInTwoPasses;
      VipsBlob* encoded = asLibraryImage(picture).jpegsave_buffer(
          VImage::option()
              ->set("Q", quality)
              ->set("strip", true)
              ->set("optimize_coding", !isLarge)
              ->set("subsample_mode", keepsColours ? VIPS_FOREIGN_SUBSAMPLE_OFF : VIPS_FOREIGN_SUBSAMPLE_ON));
      const std::unique_ptr<VipsBlob, void (*)(VipsBlob*)> blob(encoded, [](VipsBlob* b) { vips_area_unref(VIPS_AREA(b)); });
      std::size_t size = 0;
      const auto* bytes = static_cast<const char*>(vips_blob_get(blob.get(), &size));
      file.assign(bytes, size);
    });
    return file;
  }

private:
  static Raster made(std::string_view subject, const std::function<Raster()>& work)
  {
    Raster raster;
    withLibrary(subject, [&] { raster = work(); });
    return raster;
  }
};

} // namespace

extern "C" __attribute__((visibility("default"))) const Codec& mrd_codec()
{
  static const VipsCodec codec;
  return codec;
}

} // namespace mrd::image
