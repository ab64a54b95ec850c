#include "pictures/gif.h"

#include "platform/files/files.h"

#include <algorithm>
#include <limits>

namespace mrd::pictures {
namespace {

using image::Colour;
using image::Image;

constexpr std::array<int, 5> kLevels{0, 64, 128, 192, 255};
constexpr std::size_t kLevelCount = kLevels.size();

constexpr std::uint16_t kClear = 256, kEnd = 257, kFirstFree = 258, kLastCode = 511;
constexpr int kCodeWidth = 9;
constexpr std::size_t kLongestBlock = 255;
/// Global table, 8 bits a channel, 256 entries.
constexpr char kScreenFlags = '\xF7';

/// Level of the cube that is nearest to a channel's value, the lower of two.
std::size_t nearestLevel(int value)
{
  std::size_t nearest = 0;
  for (std::size_t level = 1; level < kLevelCount; ++level)
    if (std::abs(kLevels[level] - value) < std::abs(kLevels[nearest] - value))
      nearest = level;
  return nearest;
}

using LevelTable = std::array<std::uint8_t, 256>;

LevelTable levelTable()
{
  LevelTable table{};
  for (std::size_t value = 0; value < table.size(); ++value)
    table[value] = static_cast<std::uint8_t>(nearestLevel(static_cast<int>(value)));
  return table;
}

IndexedPicture inCube(const Image& picture)
{
  IndexedPicture out{picture.width(), picture.height(), {}, {}};
  for (std::size_t at = 0; at < kLevelCount * kLevelCount * kLevelCount; ++at)
    out.palette[at] = {static_cast<std::uint8_t>(kLevels[at / (kLevelCount * kLevelCount)]),
                       static_cast<std::uint8_t>(kLevels[at / kLevelCount % kLevelCount]),
                       static_cast<std::uint8_t>(kLevels[at % kLevelCount])};
  // The squared distance is a sum over the channels, so each finds its level for itself.
  static const LevelTable levels = levelTable();
  const auto bytes = picture.bytes();
  out.pixels.reserve(bytes.size() / 3);
  for (std::size_t at = 0; at < bytes.size(); at += 3)
    out.pixels.push_back(static_cast<std::uint8_t>((levels[bytes[at]] * kLevelCount + levels[bytes[at + 1]]) * kLevelCount +
                                                   levels[bytes[at + 2]]));
  return out;
}

IndexedPicture inOwnTable(const Image& picture)
{
  IndexedPicture out{picture.width(), picture.height(), {}, picture.numbers()};
  std::ranges::copy(picture.palette(), out.palette.begin());
  return out;
}

} // namespace

IndexedPicture indexed(const Image& picture) { return picture.numbers().empty() ? inCube(picture) : inOwnTable(picture); }

bool GIF::SaveGIF(const Image& bild, std::string_view dateiname)
{
  constexpr int kLongestSide = std::numeric_limits<std::uint16_t>::max();
  if (bild.width() > kLongestSide || bild.height() > kLongestSide)
    return false;
  files::writeFileAtomically(dateiname, bytesOf(indexed(bild)));
  return true;
}

std::string GIF::bytesOf(const IndexedPicture& picture)
{
  GIF gif;
  gif.writeHead(picture);
  const auto width = static_cast<std::size_t>(picture.width);
  for (std::size_t row = 0; row < static_cast<std::size_t>(picture.height); ++row)
    gif.codeRow(picture.pixels.data() + row * width, picture.width);
  gif.PutBits(kEnd, kCodeWidth);
  gif.flush();
  constexpr char kNoMoreBlocks = 0, kTrailer = 59;
  gif.out_ += kNoMoreBlocks;
  gif.out_ += kTrailer;
  return std::move(gif.out_);
}

void GIF::writeHead(const IndexedPicture& picture)
{
  constexpr char kBackground = 0, kAspect = 0, kImageSeparator = 44, kImageFlags = 0, kCodeSize = 8;
  out_ = "GIF87a";
  writeNumber(picture.width);
  writeNumber(picture.height);
  out_ += {kScreenFlags, kBackground, kAspect};
  for (const auto& colour : picture.palette)
    out_ += {static_cast<char>(colour.red), static_cast<char>(colour.green), static_cast<char>(colour.blue)};
  out_ += kImageSeparator;
  for (const int number : {0, 0, picture.width, picture.height})
    writeNumber(number);
  out_ += {kImageFlags, kCodeSize};
}

void GIF::writeNumber(int number) { out_ += {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8 & 0xFF)}; }

void GIF::codeRow(const std::uint8_t* row, int width)
{
  StartClear();
  std::uint16_t prefix = row[0];
  for (int x = 1; x < width; ++x) {
    if (const auto known = longer(prefix, row[x]); known != 0) {
      prefix = known;
      continue;
    }
    const auto unknown = prefix;
    PutCode(unknown);
    longer(unknown, row[x]) = nextCode_;
    used_.push_back(unknown * kColours + row[x]);
    prefix = row[x];
  }
  PutCode(prefix);
}

void GIF::ClearTable()
{
  for (const auto place : used_)
    dictionary_[place] = 0;
  used_.clear();
}

void GIF::StartClear()
{
  ClearTable();
  nextCode_ = kFirstFree - 1;
  PutBits(kClear, kCodeWidth);
}

void GIF::PutCode(std::uint16_t code)
{
  if (++nextCode_ > kLastCode) {
    nextCode_ = kFirstFree;
    PutBits(kClear, kCodeWidth);
    ClearTable();
  }
  PutBits(code, kCodeWidth);
}

void GIF::PutBits(std::uint16_t code, int bits)
{
  bitBuffer_ |= static_cast<unsigned>(code) << bitCount_;
  for (bitCount_ += bits; bitCount_ >= 8; bitCount_ -= 8) {
    block_ += static_cast<char>(bitBuffer_ & 0xFF);
    bitBuffer_ >>= 8;
    if (block_.size() == kLongestBlock)
      writeBlock();
  }
}

void GIF::flush()
{
  if (bitCount_ > 0)
    PutBits(0, 8 - bitCount_);
  if (!block_.empty())
    writeBlock();
}

void GIF::writeBlock()
{
  out_ += static_cast<char>(block_.size());
  out_ += block_;
  block_.clear();
}

} // namespace mrd::pictures
