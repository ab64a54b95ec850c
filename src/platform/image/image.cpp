#include "platform/image/image.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/library.h"
#include "platform/image/state.h"

#include <vips/vips8>

#include <algorithm>
#include <cmath>
#include <cstdlib>
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

void setPixel(std::uint8_t* pixel, Colour colour)
{
  pixel[0] = colour.red;
  pixel[1] = colour.green;
  pixel[2] = colour.blue;
}

VImage asLibraryImage(const Image& picture)
{
  const auto bytes = picture.bytes();
  // The library takes memory that it could write to, and only reads it.
  return VImage::new_from_memory(const_cast<std::uint8_t*>(bytes.data()), bytes.size(), picture.width(), picture.height(), kBands,
                                 VIPS_FORMAT_UCHAR)
      .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

Pixels pixelsOf(const VImage& picture)
{
  std::size_t size = 0;
  return Pixels(static_cast<std::uint8_t*>(picture.write_to_memory(&size)));
}

} // namespace

void Free::operator()(void* memory) const { g_free(memory); }

void checkSize(Size size, long long most)
{
  if (size.width < 1 || size.height < 1 || static_cast<long long>(size.width) * size.height > most)
    throw Error(ErrorNumber::InvalidPicture,
                base::format("Ein Bild mit {} x {} Pixeln ist nicht möglich.", size.width, size.height));
}

Pixels newPixels(int width, int height)
{
  checkSize({width, height}, kMostPixels);
  Pixels pixels(static_cast<std::uint8_t*>(g_try_malloc0(byteCount(width, height))));
  if (!pixels)
    throw Error(ErrorNumber::InvalidPicture, base::format("Der Speicher reicht nicht für {} x {} Pixel.", width, height));
  return pixels;
}

Image::Image(std::shared_ptr<State> state) : state_(std::move(state)) {}

Image Image::create(int width, int height) { return Image(std::make_shared<State>(width, height)); }

int Image::width() const { return state_->width; }

int Image::height() const { return state_->height; }

Colour Image::pixel(int x, int y) const
{
  if (x < 0 || y < 0 || x >= width() || y >= height())
    throw Error(ErrorNumber::SubscriptOutOfRange, base::format("Kein Pixel: {}, {}", x, y));
  const auto* pixel = state_->at(x, y);
  return {pixel[0], pixel[1], pixel[2]};
}

std::span<const std::uint8_t> Image::bytes() const { return {state_->pixels.get(), byteCount(width(), height())}; }

const std::vector<Colour>& Image::palette() const { return state_->palette; }

Image::State& Image::changeable()
{
  if (state_.use_count() > 1) {
    auto copy = std::make_shared<State>(width(), height());
    std::copy_n(state_->pixels.get(), byteCount(width(), height()), copy->pixels.get());
    state_ = std::move(copy);
  }
  // A picture that is drawn on has other colours than its file's table.
  state_->palette.clear();
  return *state_;
}

Image Image::resized(Size size) const
{
  checkSize(size, kMostPixels);
  std::shared_ptr<State> state;
  withLibrary("resize", [&] {
    const auto scaled = asLibraryImage(*this).resize(
        static_cast<double>(size.width) / width(), VImage::option()->set("vscale", static_cast<double>(size.height) / height()));
    // A factor in floating point may miss the size by a pixel.
    const auto whole = scaled.embed(0, 0, size.width, size.height, VImage::option()->set("extend", VIPS_EXTEND_COPY));
    state = std::make_shared<State>(size.width, size.height, pixelsOf(whole));
  });
  return Image(std::move(state));
}

Image Image::rotated() const
{
  std::shared_ptr<State> state;
  withLibrary("rotate", [&] {
    const auto turned = asLibraryImage(*this).rot90();
    state = std::make_shared<State>(turned.width(), turned.height(), pixelsOf(turned));
  });
  return Image(std::move(state));
}

void Image::fill(Colour colour) { fillRectangle({0, 0, width(), height()}, colour); }

void Image::fillRectangle(const Rectangle& bounds, Colour colour)
{
  const int right = std::min(width(), bounds.left + bounds.width), lower = std::min(height(), bounds.top + bounds.height);
  auto& drawn = changeable();
  for (int y = std::max(0, bounds.top); y < lower; ++y)
    for (int x = std::max(0, bounds.left); x < right; ++x)
      setPixel(drawn.at(x, y), colour);
}

void Image::put(const Image& picture, int left, int top)
{
  const int firstX = std::max(0, left), behindX = std::min(width(), left + picture.width());
  auto& drawn = changeable();
  for (int y = std::max(0, top); firstX < behindX && y < std::min(height(), top + picture.height()); ++y)
    std::copy_n(picture.state_->at(firstX - left, y - top), byteCount(behindX - firstX, 1), drawn.at(firstX, y));
}

void Image::fillEllipse(const Rectangle& bounds, Colour colour)
{
  const double radiusX = bounds.width / 2.0, radiusY = bounds.height / 2.0;
  if (radiusX <= 0 || radiusY <= 0)
    return;
  auto& drawn = changeable();
  for (int y = 0; y < height(); ++y)
    for (int x = 0; x < width(); ++x) {
      const double dx = (x + 0.5 - bounds.left - radiusX) / radiusX;
      const double dy = (y + 0.5 - bounds.top - radiusY) / radiusY;
      if (dx * dx + dy * dy <= 1)
        setPixel(drawn.at(x, y), colour);
    }
}

void Image::saveJpeg(std::string_view path, int qualityFactor) const
{
  const int quality = jpegQuality(qualityFactor);
  withLibrary(files::nativePath(path).native(), [&] {
    const bool keepsColours = quality >= kFullColourQuality;
    const bool isLarge = static_cast<long long>(width()) * height() > kMostPixelsInTwoPasses;
    VipsBlob* encoded = asLibraryImage(*this).jpegsave_buffer(
        VImage::option()
            ->set("Q", quality)
            ->set("strip", true)
            ->set("optimize_coding", !isLarge)
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
