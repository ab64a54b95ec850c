#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/image/codec.h"
#include "platform/image/vips_library.h"

#include <vips/vips8>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace mrd::image {
namespace {

using base::Error;
using base::ErrorNumber;
using vips::VImage;

/// A picture that is made small while it is read may have more pixels than one that is read as a whole, but there must be an end:
/// a few bytes can pretend to any size.
constexpr long long kMostPixelsOfFile = 300'000'000;
/// From this quality on every pixel keeps its own colour: somebody asked for the best, or draws thin lines.
constexpr int kFullColourQuality = 90;
/// Turning by the camera's position swaps the sides from here on.
constexpr int kFirstSidewaysOrientation = 5;

/// Formats that nothing but the name tells; read by the library's second loader.
constexpr std::array<std::string_view, 2> kFormatsByName{".pcd", ".wmf"};

struct File {
  std::string native;
  /// Name of the operation that reads it.
  const char* loader = nullptr;
};

File find(const std::string& name)
{
  File file{name};
  withLibrary(file.native, [&] {
    // The library takes a bracket at the end of a name for options; behind one of ours a bracket of the name's own is part of it.
    file.loader = vips_foreign_find_load((file.native + "[]").c_str());
    const auto lowered = base::lower(name);
    if (!file.loader && std::ranges::any_of(kFormatsByName, [&](auto ending) { return lowered.ends_with(ending); }))
      file.loader = "magickload";
    forgetFailure();
  });
  if (!file.loader)
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: Die Datei ist kein Bild von bekannter Art.", file.native));
  return file;
}

/// A picture whose rows come in several passes is in memory as a whole, however small it is made.
bool comesInPasses(const VImage& picture) { return picture.get_typeof("interlaced") != 0; }

/// A file that is read once, from top to bottom, so that only its pixels take memory.
VImage open(const File& file, long long mostPixels)
{
  VImage picture;
  VImage::call(
      file.loader,
      VImage::option()->set("filename", file.native.c_str())->set("access", VIPS_ACCESS_SEQUENTIAL)->set("out", &picture));
  checkSize({picture.width(), picture.height()}, comesInPasses(picture) ? std::min(mostPixels, kMostPixels) : mostPixels);
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

/// Of the pictures that take much memory one at a time is worked on; the others need not wait for it.
std::unique_lock<std::mutex> turnOf(Size size)
{
  constexpr long long kLarge = 30'000'000;
  static std::mutex largeOnes;
  const bool isLarge = static_cast<long long>(size.width) * size.height > kLarge;
  return isLarge ? std::unique_lock(largeOnes) : std::unique_lock<std::mutex>();
}

/// As the camera was held. Turning reads the picture in another order, for which it must be whole.
VImage upright(const VImage& picture)
{
  const bool isTurned = vips_image_get_orientation(picture.get_image()) > 1;
  return isTurned ? picture.copy_memory().autorot() : picture;
}

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
VImage reduced(const File& file, Size size)
{
  return VImage::thumbnail((file.native + "[]").c_str(), size.width,
                           VImage::option()->set("height", size.height)->set("size", VIPS_SIZE_FORCE));
}

class VipsCodec : public Codec {
public:
  Size sizeOf(const std::string& name) const override
  {
    const auto file = find(name);
    Size size;
    withLibrary(name, [&] {
      const auto picture = open(file, kMostPixelsOfFile);
      size = {picture.width(), picture.height()};
      if (vips_image_get_orientation(picture.get_image()) >= kFirstSidewaysOrientation)
        std::swap(size.width, size.height);
    });
    return size;
  }

  Raster read(const std::string& name, Colour background) const override
  {
    const auto file = find(name);
    return made(name, [&] {
      const auto opened = open(file, kMostPixels);
      const auto turn = turnOf({opened.width(), opened.height()});
      return rasterOf(as24Bit(upright(opened), background));
    });
  }

  Raster readResized(const std::string& name, Size size, Colour background) const override
  {
    const auto file = find(name);
    const auto sourceSize = sizeOf(name);
    try {
      const auto turn = turnOf(sourceSize);
      return made(name, [&] { return rasterOf(as24Bit(reduced(file, size), background)); });
    } catch (const Error&) {
      // The short way knows no loader by name and gives up on a broken colour profile; the long one tells what else is wrong.
    }
    const auto whole = read(name, background);
    return resized({whole.size, whole.pixels.get()}, size);
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

  std::string encodeJpeg(RasterView picture, int quality) const override
  {
    std::string file;
    withLibrary("jpeg", [&] {
      const bool keepsColours = quality >= kFullColourQuality;
      VipsBlob* encoded = asLibraryImage(picture).jpegsave_buffer(
          VImage::option()
              ->set("Q", quality)
              ->set("strip", true)
              ->set("optimize_coding", true)
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
