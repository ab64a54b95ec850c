#pragma once
// A picture in memory. Measures are pixels. Failures are base::Error with the library's words.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace mrd::image {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour kWhite{255, 255, 255};

struct Size {
  int width = 0, height = 0;
  bool operator==(const Size&) const = default;
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
  /// First page of a picture file, upright as its camera held it, in the colours of a screen, transparency on `background`;
  /// `path` in the system's form. What is missing at the end of a damaged file stays as the library fills it. Throws
  /// FileNotFound, PathNotFound, PathFileAccess or InvalidPicture.
  static Image load(std::string_view path, Colour background = kWhite);
  /// The same, and the pixels' numbers in the colour table that the file has.
  static Image loadWithPalette(std::string_view path, Colour background = kWhite);
  /// The same picture in another size, resampled while it is read: a large photograph is never in memory as a whole.
  static Image loadResized(std::string_view path, Size size, Colour background = kWhite);
  /// Size of what load() would give, from the head of the file. Throws as load().
  static Size sizeOf(std::string_view path);

  int width() const;
  int height() const;
  Size size() const { return {width(), height()}; }
  /// Throws SubscriptOutOfRange outside of the picture.
  Colour pixel(int x, int y) const;
  /// Red, green and blue of all pixels, row by row.
  std::span<const std::uint8_t> bytes() const;
  /// Colour table of the file where loadWithPalette() found one of at most 256 entries; empty for a picture that was changed. The
  /// colours that pixels have are those of the pixels, so a transparent one has become its background.
  const std::vector<Colour>& palette() const;
  /// Numbers of the pixels in that table, row by row.
  const std::vector<std::uint8_t>& numbers() const;

  /// The picture in another size, resampled.
  Image resized(Size size) const;
  /// Turned by 90 degrees clockwise.
  Image rotated() const;

  void fill(Colour colour);
  /// A filled ellipse inside the rectangle: a pixel belongs to it when its centre lies within the curve.
  void fillEllipse(const Rectangle& bounds, Colour colour);
  /// A filled rectangle as far as it lies inside the picture; one without an extent draws nothing.
  void fillRectangle(const Rectangle& bounds, Colour colour);
  /// A line of text from the upper left corner of the rectangle on, cut off at its edges. Letters of a height of `heightPx` with
  /// what hangs below the line; the line stands in the middle of the rectangle's height. Throws InvalidPicture where the library
  /// cannot draw text.
  void drawText(std::string_view text, const Rectangle& bounds, int heightPx, Colour colour);
  /// Puts another picture over this one, its upper left corner at `left` and `top`; what lies outside is cut off.
  void put(const Image& picture, int left, int top);

  /// Writes a JPEG without metadata. `qualityFactor` runs from 2 (best) to 255 (smallest), see jpegQuality(). The file appears
  /// complete or not at all. Throws InvalidPicture, PathNotFound, PathFileAccess or DiskFull.
  void saveJpeg(std::string_view path, int qualityFactor) const;

private:
  struct State;
  explicit Image(std::shared_ptr<State> state);
  /// The picture's own pixels, to draw on: a copy while another picture shares them.
  State& changeable();
  std::shared_ptr<State> state_;
};

/// Quality 1 to 100 of today's encoders for a quality factor 2 to 255, which grows with the compression: a straight line from
/// 100 to 1, `100 - (factor - 2) * 99 / 253`. It gives the dialogs' default of 35 a quality of 87, without visible loss in a
/// photograph, and the slider's far end of 100 a quality of 62, small and visibly so. A factor out of its range counts as its
/// end.
int jpegQuality(int qualityFactor);

} // namespace mrd::image
