#include "platform/image/image.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <vips/vips8>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

namespace mrd::image {
namespace {

using base::Error;
using base::ErrorNumber;
using vips::VImage;

constexpr int kBands = 3;
/// More than any camera takes; a damaged header must not ask for all the memory there is.
constexpr long long kMostPixels = 300'000'000;
/// From this quality on every pixel keeps its own colour: somebody asked for the best, or draws thin lines.
constexpr int kFullColourQuality = 90;

// --- the library

/// Started by the first picture and for the whole process, as the library has it.
class Library {
public:
  Library()
  {
    if (VIPS_INIT("mirandel") != 0)
      throw Error(ErrorNumber::InvalidPicture, vips_error_buffer());
    // One picture at a time is worked on, and a window wants to stay alive beside it.
    constexpr int kThreads = 4;
    vips_concurrency_set(std::min(kThreads, vips_concurrency_get()));
    // A cached operation would show a file as it was before it was replaced under the same name.
    vips_cache_set_max(0);
    // What the library thinks of a damaged picture is no output of this program.
    g_log_set_handler(
        "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG),
        [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
  }
  ~Library() { vips_shutdown(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
};

void startLibrary() { static const Library library; }

/// The library's last words, on one line, and its buffer emptied for the next.
std::string lastWords()
{
  std::string words = vips_error_buffer();
  vips_error_clear();
  words.erase(words.find_last_not_of(" \r\n") + 1);
  std::replace(words.begin(), words.end(), '\n', ' ');
  return words;
}

/// Carries out work of the library on a picture and turns its failure into ours.
template <class Work>
auto withLibrary(std::string_view subject, Work work)
{
  startLibrary();
  vips_error_clear();
  try {
    return work();
  } catch (const vips::VError&) {
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: {}", subject, lastWords()));
  }
}

// --- pixels

struct Free {
  void operator()(void* memory) const { g_free(memory); }
};
using Pixels = std::unique_ptr<std::uint8_t, Free>;

std::size_t byteCount(int width, int height)
{
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBands;
}

void checkSize(int width, int height)
{
  if (width < 1 || height < 1 || static_cast<long long>(width) * height > kMostPixels)
    throw Error(ErrorNumber::InvalidPicture, base::format("Ein Bild mit {} x {} Pixeln ist nicht möglich.", width, height));
}

Pixels newPixels(int width, int height)
{
  checkSize(width, height);
  Pixels pixels(static_cast<std::uint8_t*>(g_try_malloc0(byteCount(width, height))));
  if (!pixels)
    throw Error(ErrorNumber::InvalidPicture, base::format("Der Speicher reicht nicht für {} x {} Pixel.", width, height));
  return pixels;
}

void put(std::uint8_t* pixel, Colour colour)
{
  pixel[0] = colour.red;
  pixel[1] = colour.green;
  pixel[2] = colour.blue;
}

// --- any picture as a 24-bit one

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
      vips_error_clear();
    }
  }
  return picture.colourspace(VIPS_INTERPRETATION_sRGB);
}

VImage onWhite(const VImage& picture)
{
  return picture.has_alpha() ? picture.flatten(VImage::option()->set("background", std::vector<double>{255, 255, 255})) : picture;
}

VImage as24Bit(const VImage& picture)
{
  const auto coloured = onWhite(withScreenColours(picture)).cast(VIPS_FORMAT_UCHAR);
  if (coloured.bands() < kBands)
    return coloured.extract_band(0).bandjoin({coloured.extract_band(0), coloured.extract_band(0)});
  return coloured.bands() == kBands ? coloured : coloured.extract_band(0, VImage::option()->set("n", kBands));
}

/// A picture file that is read once, from top to bottom, so that only its pixels take memory.
VImage openFile(const std::string& native)
{
  // The library takes a bracket at the end of a name for options; behind one of ours a bracket of the name's own is part of it.
  const char* loader = vips_foreign_find_load((native + "[]").c_str());
  if (!loader)
    throw vips::VError();
  VImage picture;
  VImage::call(loader,
               VImage::option()->set("filename", native.c_str())->set("access", VIPS_ACCESS_SEQUENTIAL)->set("out", &picture));
  return picture;
}

/// As the camera was held. Turning reads the picture in another order, for which it must be whole.
VImage upright(const VImage& picture)
{
  const bool isTurned = vips_image_get_orientation(picture.get_image()) > 1;
  return isTurned ? picture.copy_memory().autorot() : picture;
}

} // namespace

struct Image::State {
  State(int w, int h) : width(w), height(h), pixels(newPixels(w, h)) {}
  State(int w, int h, Pixels p) : width(w), height(h), pixels(std::move(p)) {}

  std::uint8_t* at(int x, int y) const { return pixels.get() + byteCount(width, y) + byteCount(x, 1); }
  VImage asLibraryImage() const
  {
    return VImage::new_from_memory(pixels.get(), byteCount(width, height), width, height, kBands, VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
  }

  int width, height;
  Pixels pixels;
};

Image::Image(std::shared_ptr<const State> state) : state_(std::move(state)) {}

Image Image::create(int width, int height) { return Image(std::make_shared<const State>(width, height)); }

Image Image::load(std::string_view path)
{
  const std::string native = files::nativePath(path).native();
  if (files::fileSize(path) == 0)
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: Die Datei ist leer.", native));
  return withLibrary(native, [&] {
    const auto file = openFile(native);
    checkSize(file.width(), file.height());
    const auto picture = as24Bit(upright(file));
    std::size_t size = 0;
    Pixels pixels(static_cast<std::uint8_t*>(picture.write_to_memory(&size)));
    return Image(std::make_shared<const State>(picture.width(), picture.height(), std::move(pixels)));
  });
}

int Image::width() const { return state_->width; }

int Image::height() const { return state_->height; }

Colour Image::pixel(int x, int y) const
{
  if (x < 0 || y < 0 || x >= width() || y >= height())
    throw Error(ErrorNumber::SubscriptOutOfRange, base::format("Kein Pixel: {}, {}", x, y));
  const auto* pixel = state_->at(x, y);
  return {pixel[0], pixel[1], pixel[2]};
}

void Image::fill(Colour colour)
{
  auto filled = std::make_shared<State>(width(), height());
  for (int y = 0; y < height(); ++y)
    for (int x = 0; x < width(); ++x)
      put(filled->at(x, y), colour);
  state_ = std::move(filled);
}

void Image::fillEllipse(const Rectangle& bounds, Colour colour)
{
  const double radiusX = bounds.width / 2.0, radiusY = bounds.height / 2.0;
  if (radiusX <= 0 || radiusY <= 0)
    return;
  auto drawn = std::make_shared<State>(width(), height());
  std::copy_n(state_->pixels.get(), byteCount(width(), height()), drawn->pixels.get());
  for (int y = 0; y < height(); ++y)
    for (int x = 0; x < width(); ++x) {
      const double dx = (x + 0.5 - bounds.left - radiusX) / radiusX;
      const double dy = (y + 0.5 - bounds.top - radiusY) / radiusY;
      if (dx * dx + dy * dy <= 1)
        put(drawn->at(x, y), colour);
    }
  state_ = std::move(drawn);
}

void Image::saveJpeg(std::string_view path, int qualityFactor) const
{
  const int quality = jpegQuality(qualityFactor);
  withLibrary(files::nativePath(path).native(), [&] {
    const bool keepsColours = quality >= kFullColourQuality;
    VipsBlob* encoded = state_->asLibraryImage().jpegsave_buffer(
        VImage::option()
            ->set("Q", quality)
            ->set("strip", true)
            ->set("optimize_coding", true)
            ->set("subsample_mode", keepsColours ? VIPS_FOREIGN_SUBSAMPLE_OFF : VIPS_FOREIGN_SUBSAMPLE_ON));
    const std::unique_ptr<VipsBlob, void (*)(VipsBlob*)> blob(encoded, [](VipsBlob* b) { vips_area_unref(VIPS_AREA(b)); });
    std::size_t size = 0;
    const auto* bytes = static_cast<const char*>(vips_blob_get(blob.get(), &size));
    files::writeFileAtomically(path, {bytes, size});
  });
}

int jpegQuality(int qualityFactor)
{
  constexpr int kBest = 2, kSmallest = 255;
  const int factor = std::clamp(qualityFactor, kBest, kSmallest);
  return static_cast<int>(std::lround(100.0 - (factor - kBest) * 99.0 / (kSmallest - kBest)));
}

} // namespace mrd::image
