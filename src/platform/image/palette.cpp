#include "platform/image/palette.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace mrd::image {
namespace {

using Palette = std::vector<Colour>;
constexpr std::size_t kMostEntries = 256;

std::uint32_t byteAt(std::string_view bytes, std::size_t at)
{
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

std::uint32_t littleEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i)
    value = value << 8 | byteAt(bytes, at + i - 1);
  return value;
}

std::uint32_t bigEndian(std::string_view bytes, std::size_t at)
{
  return byteAt(bytes, at) << 24 | byteAt(bytes, at + 1) << 16 | byteAt(bytes, at + 2) << 8 | byteAt(bytes, at + 3);
}

/// Where red, green and blue stand in an entry, and how long it is.
struct EntryForm {
  std::size_t red, green, blue, length;
};
constexpr EntryForm kRgb{0, 1, 2, 3}, kBgr{2, 1, 0, 3}, kBgrx{2, 1, 0, 4};

Palette entries(std::string_view bytes, std::size_t at, std::size_t count, const EntryForm& form)
{
  if (count > kMostEntries || at > bytes.size() || bytes.size() - at < count * form.length)
    return {};
  Palette out;
  for (; out.size() < count; at += form.length)
    out.push_back({static_cast<std::uint8_t>(byteAt(bytes, at + form.red)),
                   static_cast<std::uint8_t>(byteAt(bytes, at + form.green)),
                   static_cast<std::uint8_t>(byteAt(bytes, at + form.blue))});
  return out;
}

// --- GIF: https://www.w3.org/Graphics/GIF/spec-gif89a.txt

std::size_t gifTableSize(std::uint32_t flags) { return (flags & 0x80) != 0 ? std::size_t{2} << (flags & 7) : 0; }

std::size_t behindSubBlocks(std::string_view bytes, std::size_t at)
{
  while (byteAt(bytes, at) != 0)
    at += 1 + byteAt(bytes, at);
  return at + 1;
}

Palette ofGif(std::string_view bytes)
{
  constexpr std::size_t kHead = 13, kImageHead = 10;
  constexpr std::uint32_t kExtension = 0x21, kImage = 0x2C;
  const auto global = gifTableSize(byteAt(bytes, 10));
  auto at = kHead + 3 * global;
  while (byteAt(bytes, at) == kExtension)
    at = behindSubBlocks(bytes, at + 2);
  const auto local = byteAt(bytes, at) == kImage ? gifTableSize(byteAt(bytes, at + 9)) : 0;
  return local > 0 ? entries(bytes, at + kImageHead, local, kRgb) : entries(bytes, kHead, global, kRgb);
}

// --- PNG: https://www.w3.org/TR/png/

Palette ofPng(std::string_view bytes)
{
  constexpr std::size_t kSignature = 8, kColourTypeAt = 25, kAroundData = 12;
  constexpr std::uint32_t kIndexed = 3;
  if (byteAt(bytes, kColourTypeAt) != kIndexed)
    return {};
  for (auto at = kSignature; at + kAroundData <= bytes.size(); at += kAroundData + bigEndian(bytes, at))
    if (bytes.substr(at + 4, 4) == "PLTE")
      return entries(bytes, at + 8, bigEndian(bytes, at) / 3, kRgb);
  return {};
}

// --- BMP

Palette ofBmp(std::string_view bytes)
{
  constexpr std::size_t kFileHead = 14;
  constexpr std::uint32_t kOldHead = 12;
  const auto head = littleEndian(bytes, kFileHead, 4);
  const bool isOld = head == kOldHead;
  const auto bits = littleEndian(bytes, kFileHead + (isOld ? 10 : 14), 2);
  if (bits < 1 || bits > 8)
    return {};
  const auto used = isOld ? 0 : littleEndian(bytes, kFileHead + 32, 4);
  return entries(bytes, kFileHead + head, used != 0 ? used : std::size_t{1} << bits, isOld ? kBgr : kBgrx);
}

// --- PCX

Palette ofPcx(std::string_view bytes)
{
  constexpr std::size_t kTable = 3 * kMostEntries, kHead = 128;
  constexpr std::uint32_t kTableMark = 12;
  const bool is256 = byteAt(bytes, 3) == 8 && byteAt(bytes, 65) == 1;
  if (!is256 || bytes.size() < kHead + 1 + kTable || byteAt(bytes, bytes.size() - kTable - 1) != kTableMark)
    return {};
  return entries(bytes, bytes.size() - kTable, kMostEntries, kRgb);
}

struct Kind {
  std::string_view beginning;
  Palette (*read)(std::string_view);
};
constexpr std::array kKinds{
    Kind{"GIF8", ofGif},
    Kind{"\x89PNG", ofPng},
    Kind{"BM", ofBmp},
    Kind{"\x0A\x05\x01", ofPcx},
};

} // namespace

std::vector<Colour> readPalette(std::string_view bytes)
{
  const auto kind = std::ranges::find_if(kKinds, [&](const Kind& k) { return bytes.starts_with(k.beginning); });
  return kind != kKinds.end() ? kind->read(bytes) : Palette();
}

} // namespace mrd::image
