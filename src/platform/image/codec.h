#pragma once
// What the picture library does for the pictures of this program. For the sources of this folder only.

#include "base/errors.h"
#include "base/format.h"
#include "platform/image/image.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace mrd::image {

/// Pixels are red, green and blue, a byte each.
inline constexpr int kBands = 3;

/// As many as a picture in memory can have: more than most cameras take, and three bytes each still leave room for a copy.
inline constexpr long long kMostPixels = 70'000'000;

/// Throws InvalidPicture for a side below 1 and for more pixels than `most`.
inline void checkSize(Size size, long long most)
{
  if (size.width < 1 || size.height < 1 || static_cast<long long>(size.width) * size.height > most)
    throw base::Error(base::ErrorNumber::InvalidPicture,
                      base::format("Ein Bild mit {} x {} Pixeln ist nicht möglich.", size.width, size.height));
}

/// Memory of the C library, which the picture library gives too.
struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
using Pixels = std::unique_ptr<std::uint8_t, Free>;

/// What the head of a file tells.
struct Head {
  /// Of the picture as it is read.
  Size size;
  /// Memory that the reader needs beside the pixels that it gives: for the picture as a whole, and when it makes it small.
  long long bytesToRead = 0, bytesToReduce = 0;
};

struct Raster {
  Size size;
  Pixels pixels;
};

/// One byte for each pixel.
struct Plane {
  Size size;
  Pixels bytes;
};

/// Pixels of somebody else.
struct RasterView {
  Size size;
  const std::uint8_t* pixels = nullptr;
};

/// Reads, resamples and writes pictures. Files are named as the machine names them. All throw InvalidPicture with the library's
/// words, and may be called on several threads at once.
class Codec {
public:
  virtual ~Codec() = default;
  /// Throws for a file whose head is no picture's.
  virtual Head headOf(const std::string& file) const = 0;
  virtual Raster read(const std::string& file, Colour background) const = 0;
  /// As read() and resized(), without the whole picture in memory. Gives up on some pictures that read() can read.
  virtual Raster readReduced(const std::string& file, Size size, Colour background) const = 0;
  /// Red of the pixels as the bytes of a file have it, whatever colour space they are in. Throws for a picture with transparent
  /// places.
  virtual Plane redOf(const std::string& bytes) const = 0;
  virtual Raster resized(RasterView picture, Size size) const = 0;
  virtual Raster rotated(RasterView picture) const = 0;
  /// How much of each pixel a line of text without line ends covers, 0 to 255, in letters of this height and what hangs below
  /// them.
  virtual Plane textLine(const std::string& text, int heightPx) const = 0;
  /// A JPEG file of this quality, 1 to 100, without metadata.
  virtual std::string encodeJpeg(RasterView picture, int quality) const = 0;
};

/// The library comes with some seventy others, and loading them takes a third of the start of a program that may never see a
/// picture. They are in a module of their own, which is loaded by the first call. Throws InvalidPicture when it is missing.
const Codec& codec();

/// What the module exports under this name: a function that gives its codec.
inline constexpr const char* kCodecFunction = "mrd_codec";
using CodecFunction = const Codec& (*)();

} // namespace mrd::image
