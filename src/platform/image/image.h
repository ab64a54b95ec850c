#pragma once
// A picture in memory. Measures are pixels. Failures are base::Error with the library's words.

#include <cstdint>
#include <memory>
#include <string_view>

namespace mrd::image {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Colour&) const = default;
};

/// A rectangle of a drawing; left and top may lie outside of the picture.
struct Rectangle {
  int left = 0, top = 0, width = 0, height = 0;
};

/// A 24-bit picture. Copies share their pixels until one of them is changed.
class Image {
public:
  /// An empty picture, black. Throws InvalidPicture for a side below 1 or more pixels than a picture can have.
  static Image create(int width, int height);
  /// First page of a picture file, upright as its camera held it, transparency on white; `path` in the system's form. What is
  /// missing at the end of a damaged file stays as the library fills it. Throws FileNotFound, PathNotFound, PathFileAccess or
  /// InvalidPicture.
  static Image load(std::string_view path);

  int width() const;
  int height() const;
  /// Throws SubscriptOutOfRange outside of the picture.
  Colour pixel(int x, int y) const;

  void fill(Colour colour);
  /// A filled ellipse inside the rectangle: a pixel belongs to it when its centre lies within the curve.
  void fillEllipse(const Rectangle& bounds, Colour colour);

  /// Writes a JPEG without metadata. `qualityFactor` runs from 2 (best) to 255 (smallest), see jpegQuality(). The file appears
  /// complete or not at all. Throws InvalidPicture, PathNotFound, PathFileAccess or DiskFull.
  void saveJpeg(std::string_view path, int qualityFactor) const;

private:
  struct State;
  explicit Image(std::shared_ptr<const State> state);
  std::shared_ptr<const State> state_;
};

/// Quality 1 to 100 of today's encoders for a quality factor 2 to 255, which grows with the compression: a straight line from
/// 100 to 1, `100 - (factor - 2) * 99 / 253`. It gives the dialogs' default of 35 a quality of 87, without visible loss in a
/// photograph, and the slider's far end of 100 a quality of 62, small and visibly so. A factor out of its range counts as its
/// end.
int jpegQuality(int qualityFactor);

} // namespace mrd::image
