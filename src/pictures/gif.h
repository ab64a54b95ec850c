#pragma once
// GIF files, which the picture library is not asked to write: a plain form that telephones and old programs read.

#include "platform/image/image.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrd::pictures {

/// A picture by numbers of colours in a table.
struct IndexedPicture {
  int width = 0, height = 0;
  std::array<image::Colour, 256> palette{};
  /// A number for each pixel, row by row.
  std::vector<std::uint8_t> pixels;
};

/// Every pixel as the nearest colour (least squared distance, the first of two) of a cube of 5 levels a channel, red outermost;
/// the other 131 entries are black. A picture that still has the colour table of its file keeps the table and its numbers.
IndexedPicture indexed(const image::Image& picture);

/// The writer: GIF87a, one table of 256 colours, codes that are always 9 bits wide. The dictionary is cleared at every row and
/// before it would need a tenth bit.
class GIF {
public:
  /// Writes the file, an older one is replaced. False, and no file, for a picture that the format cannot hold (a side of more
  /// than 65,535 pixels). Throws base::Error when the file cannot be written.
  static bool SaveGIF(const image::Image& bild, std::string_view dateiname);
  /// The bytes of the file; the sides are 1 to 65,535.
  static std::string bytesOf(const IndexedPicture& picture);

private:
  static constexpr std::size_t kCodes = 512, kColours = 256;

  void writeHead(const IndexedPicture& picture);
  void writeNumber(int number);
  void codeRow(const std::uint8_t* row, int width);
  void ClearTable();
  void StartClear();
  void PutCode(std::uint16_t code);
  void PutBits(std::uint16_t code, int bits);
  void flush();
  void writeBlock();

  /// The code of a known string and one pixel more; 0 for none.
  std::uint16_t& longer(std::uint16_t code, std::uint8_t pixel) { return dictionary_[code * kColours + pixel]; }

  std::string out_;
  std::vector<std::uint16_t> dictionary_ = std::vector<std::uint16_t>(kCodes * kColours);
  /// Places of the dictionary that are in use, so that clearing costs no more than filling did.
  std::vector<std::size_t> used_;
  std::uint16_t nextCode_ = 0;
  std::string block_;
  unsigned bitBuffer_ = 0;
  int bitCount_ = 0;
};

} // namespace mrd::pictures
