#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/image.h"
#include "platform/image/library.h"
#include "platform/image/palette.h"
#include "platform/image/state.h"

#include <vips/vips8>

#include <algorithm>
#include <array>
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
/// Turning by the camera's position swaps the sides from here on.
constexpr int kFirstSidewaysOrientation = 5;

/// Formats that nothing but the name tells; read by the library's second loader.
constexpr std::array<std::string_view, 2> kFormatsByName{".pcd", ".wmf"};

struct File {
  std::string native;
  /// Name of the operation that reads it.
  const char* loader;
};

File find(std::string_view path)
{
  File file{files::nativePath(path).native(), nullptr};
  if (files::fileSize(path) == 0)
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: Die Datei ist leer.", file.native));
  withLibrary(file.native, [&] {
    // The library takes a bracket at the end of a name for options; behind one of ours a bracket of the name's own is part of it.
    file.loader = vips_foreign_find_load((file.native + "[]").c_str());
    const auto name = base::lower(file.native);
    if (!file.loader && std::ranges::any_of(kFormatsByName, [&](auto ending) { return name.ends_with(ending); }))
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

Pixels pixelsOf(const VImage& picture)
{
  std::size_t size = 0;
  return Pixels(static_cast<std::uint8_t*>(picture.write_to_memory(&size)));
}

/// Made small by the reader itself where the format can, and then exactly. Still in the picture's own colours: the few pixels
/// that are left take less time for that.
VImage reduced(const File& file, Size size)
{
  return VImage::thumbnail((file.native + "[]").c_str(), size.width,
                           VImage::option()->set("height", size.height)->set("size", VIPS_SIZE_FORCE));
}

} // namespace

Size Image::sizeOf(std::string_view path)
{
  const auto file = find(path);
  Size size;
  withLibrary(file.native, [&] {
    const auto picture = open(file, kMostPixelsOfFile);
    size = {picture.width(), picture.height()};
    if (vips_image_get_orientation(picture.get_image()) >= kFirstSidewaysOrientation)
      std::swap(size.width, size.height);
  });
  return size;
}

Image Image::load(std::string_view path, Colour background)
{
  const auto file = find(path);
  std::shared_ptr<const State> state;
  withLibrary(file.native, [&] {
    const auto opened = open(file, kMostPixels);
    const auto turn = turnOf({opened.width(), opened.height()});
    const auto picture = as24Bit(upright(opened), background);
    state = std::make_shared<const State>(picture.width(), picture.height(), pixelsOf(picture));
  });
  return Image(std::move(state));
}

Image Image::loadWithPalette(std::string_view path, Colour background)
{
  const auto picture = load(path, background);
  auto withTable = picture.changeable();
  withTable->palette = readPalette(files::readFile(path));
  return Image(std::move(withTable));
}

Image Image::loadResized(std::string_view path, Size size, Colour background)
{
  checkSize(size, kMostPixels);
  const auto file = find(path);
  const auto sourceSize = sizeOf(path);
  std::shared_ptr<const State> state;
  try {
    const auto turn = turnOf(sourceSize);
    withLibrary(file.native, [&] {
      const auto picture = as24Bit(reduced(file, size), background);
      state = std::make_shared<const State>(picture.width(), picture.height(), pixelsOf(picture));
    });
  } catch (const Error&) {
    // The short way knows no loader by name and gives up on a broken colour profile; the long one tells what else is wrong.
    return load(path, background).resized(size);
  }
  return Image(std::move(state));
}

} // namespace mrd::image
