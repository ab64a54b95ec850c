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
  /// An empty picture, black.
  static Image create(int width, int height);
  /// First page of a picture file; `path` in the system's form.
  static Image load(std::string_view path);

  int width() const;
  int height() const;
  Colour pixel(int x, int y) const;

  void fill(Colour colour);
  /// A filled ellipse inside the rectangle: a pixel belongs to it when its centre lies within the curve.
  void fillEllipse(const Rectangle& bounds, Colour colour);

  /// Writes a JPEG without metadata. `qualityFactor` runs from 2 (best) to 255 (smallest), see jpegQuality().
  void saveJpeg(std::string_view path, int qualityFactor) const;

private:
  struct State;
  explicit Image(std::shared_ptr<const State> state);
  std::shared_ptr<const State> state_;
};

/// Quality 1 to 100 of today's encoders for a quality factor 2 to 255: the factor grows with the compression.
int jpegQuality(int qualityFactor);

} // namespace mrd::image
