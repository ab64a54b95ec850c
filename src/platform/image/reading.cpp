#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/image.h"
#include "platform/image/library.h"
#include "platform/image/memory_share.h"
#include "platform/image/palette.h"
#include "platform/image/state.h"

#include <vips/vips8>

#include <algorithm>
#include <array>
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

/// What a single picture may need while it is read, with what it becomes.
constexpr long long kMostBytes = 430'000'000;
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
  const bool isJpeg = base::contains(loader, "Jpeg");
  return pixels * each * (isJpeg && !hasSmallColours(picture) ? 2 : 1);
}

bool isTurned(const VImage& picture) { return vips_image_get_orientation(picture.get_image()) > 1; }

/// What reading the picture as a whole takes, with its pixels. Throws InvalidPicture where that is too much.
long long bytesToLoad(const VImage& picture, std::string_view loader)
{
  const auto pixels = static_cast<long long>(picture.width()) * picture.height();
  const long long whole = isTurned(picture) ? pixels * static_cast<long long>(VIPS_IMAGE_SIZEOF_PEL(picture.get_image())) : 0;
  const auto bytes = bytesInPasses(picture, loader) + whole + pixels * kBands + kStreamBytes;
  checkSize({picture.width(), picture.height()}, bytes > kMostBytes ? 0 : kMostPixels);
  return bytes;
}

/// A file that is read once, from top to bottom, so that only its pixels take memory.
VImage open(const File& file)
{
  VImage picture;
  VImage::call(
      file.loader,
      VImage::option()->set("filename", file.native.c_str())->set("access", VIPS_ACCESS_SEQUENTIAL)->set("out", &picture));
  checkSize({picture.width(), picture.height()}, bytesInPasses(picture, file.loader) > kMostBytes ? 0 : kMostPixelsOfFile);
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
    const auto picture = open(file);
    size = {picture.width(), picture.height()};
    if (vips_image_get_orientation(picture.get_image()) >= kFirstSidewaysOrientation)
      std::swap(size.width, size.height);
  });
  return size;
}

Image Image::load(std::string_view path, Colour background)
{
  const auto file = find(path);
  std::shared_ptr<State> state;
  withLibrary(file.native, [&] {
    const auto opened = open(file);
    const MemoryShare share(bytesToLoad(opened, file.loader));
    const auto picture = as24Bit(upright(opened), background);
    state = std::make_shared<State>(picture.width(), picture.height(), pixelsOf(picture));
  });
  return Image(std::move(state));
}

Image Image::loadWithPalette(std::string_view path, Colour background)
{
  auto picture = load(path, background);
  picture.state_->palette = readPalette(files::readFile(path));
  return picture;
}

Image Image::loadResized(std::string_view path, Size size, Colour background)
{
  checkSize(size, kMostPixels);
  const auto file = find(path);
  std::shared_ptr<State> state;
  try {
    withLibrary(file.native, [&] {
      const MemoryShare share(bytesInPasses(open(file), file.loader) + kStreamBytes +
                              static_cast<long long>(byteCount(size.width, size.height)));
      const auto picture = as24Bit(reduced(file, size), background);
      state = std::make_shared<State>(picture.width(), picture.height(), pixelsOf(picture));
    });
  } catch (const Error&) {
    // The short way knows no loader by name and gives up on a broken colour profile; the long one tells what else is wrong.
    return load(path, background).resized(size);
  }
  return Image(std::move(state));
}

} // namespace mrd::image
