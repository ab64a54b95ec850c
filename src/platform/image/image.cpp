#include "platform/image/image.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/memory_share.h"
#include "platform/image/palette.h"
#include "platform/image/state.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

namespace mrd::image {
namespace {

using base::Error;
using base::ErrorNumber;

/// A picture that is made small while it is read may have more pixels than one that is read as a whole, but there must be an end:
/// a few bytes can pretend to any size.
constexpr long long kMostPixelsOfFile = 300'000'000;
/// What a single picture may need while it is read, with what it becomes.
constexpr long long kMostBytes = 430'000'000;
/// A file of a picture with a colour table is rarely larger than its pixels, a byte each.
constexpr long long kMostBytesWithTable = kMostPixels;

void setPixel(std::uint8_t* pixel, Colour colour)
{
  pixel[0] = colour.red;
  pixel[1] = colour.green;
  pixel[2] = colour.blue;
}

/// A picture's file as the machine names it.
std::string nativeFile(std::string_view path)
{
  auto file = files::nativePath(path).native();
  if (files::fileSize(path) == 0)
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: Die Datei ist leer.", file));
  return file;
}

/// Throws InvalidPicture for a picture that even the reader that makes it small could not take.
Head headOf(const std::string& file)
{
  const auto head = codec().headOf(file);
  checkSize(head.size, head.bytesToReduce > kMostBytes ? 0 : kMostPixelsOfFile);
  return head;
}

long long bytesOf(Size size) { return static_cast<long long>(byteCount(size.width, size.height)); }

RasterView viewOf(const Image& picture) { return {picture.size(), picture.bytes().data()}; }

/// Numbers of the pixels; none where the file gives them to other pixels, or not to all.
std::vector<std::uint8_t> numbersOf(const std::string& numbered, Size size)
{
  try {
    const MemoryShare share(static_cast<long long>(numbered.size()) + bytesOf(size));
    const auto red = codec().redOf(numbered);
    if (red.size == size)
      return {red.bytes.get(), red.bytes.get() + bytesOf(size) / kBands};
  } catch (const Error&) {
    // A picture that can be read without its numbers is still a picture.
  }
  return {};
}

} // namespace

Pixels newPixels(int width, int height)
{
  checkSize({width, height}, kMostPixels);
  Pixels pixels(static_cast<std::uint8_t*>(std::calloc(byteCount(width, height), 1)));
  if (!pixels)
    throw Error(ErrorNumber::InvalidPicture, base::format("Der Speicher reicht nicht für {} x {} Pixel.", width, height));
  return pixels;
}

void Image::State::take(ColourTable table)
{
  auto found = numbersOf(table.numbered, {width, height});
  std::vector<bool> isSeen(table.colours.size());
  for (std::size_t at = 0; at < found.size(); ++at) {
    const auto* const pixel = pixels.get() + kBands * at;
    const Colour colour{pixel[0], pixel[1], pixel[2]};
    const auto number = found[at];
    if (number >= isSeen.size() || (isSeen[number] && table.colours[number] != colour))
      return;
    isSeen[number] = true;
    table.colours[number] = colour;
  }
  if (found.empty())
    return;
  numbers = std::move(found);
  palette = std::move(table.colours);
}

Image::Image(std::shared_ptr<State> state) : state_(std::move(state)) {}

Size Image::sizeOf(std::string_view path) { return headOf(nativeFile(path)).size; }

Image Image::load(std::string_view path, Colour background)
{
  const auto file = nativeFile(path);
  const auto head = headOf(file);
  const auto bytes = head.bytesToRead + bytesOf(head.size);
  checkSize(head.size, bytes > kMostBytes ? 0 : kMostPixels);
  const MemoryShare share(bytes);
  return Image(std::make_shared<State>(codec().read(file, background)));
}

Image Image::loadWithPalette(std::string_view path, Colour background)
{
  auto picture = load(path, background);
  if (files::fileSize(path) > kMostBytesWithTable)
    return picture;
  if (auto table = readColourTable(files::readFile(path)))
    picture.state_->take(*std::move(table));
  return picture;
}

Image Image::loadResized(std::string_view path, Size size, Colour background)
{
  checkSize(size, kMostPixels);
  const auto file = nativeFile(path);
  const auto head = headOf(file);
  try {
    const MemoryShare share(head.bytesToReduce + bytesOf(size));
    return Image(std::make_shared<State>(codec().readReduced(file, size, background)));
  } catch (const Error&) {
    // The short way knows no loader by name and gives up on a broken colour profile; the long one tells what else is wrong.
    return load(path, background).resized(size);
  }
}

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

const std::vector<std::uint8_t>& Image::numbers() const { return state_->numbers; }

Image::State& Image::changeable()
{
  if (state_.use_count() > 1) {
    auto copy = std::make_shared<State>(width(), height());
    std::copy_n(state_->pixels.get(), byteCount(width(), height()), copy->pixels.get());
    state_ = std::move(copy);
  }
  // A picture that is drawn on has other colours than its file's table.
  state_->palette.clear();
  state_->numbers.clear();
  return *state_;
}

Image Image::resized(Size size) const
{
  checkSize(size, kMostPixels);
  return Image(std::make_shared<State>(codec().resized(viewOf(*this), size)));
}

Image Image::rotated() const { return Image(std::make_shared<State>(codec().rotated(viewOf(*this)))); }

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
  files::writeFileAtomically(path, codec().encodeJpeg(viewOf(*this), jpegQuality(qualityFactor)));
}

int jpegQuality(int qualityFactor)
{
  constexpr int kBest = 2, kSmallest = 255;
  const int factor = std::clamp(qualityFactor, kBest, kSmallest);
  return static_cast<int>(std::lround(100.0 - (factor - kBest) * 99.0 / (kSmallest - kBest)));
}

} // namespace mrd::image
