#include "platform/image/palette.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace mrd::image {
namespace {

using Bytes = std::string_view;
constexpr std::size_t kMostEntries = 256;

std::uint32_t byteAt(Bytes bytes, std::size_t at) { return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0; }

std::uint32_t littleEndian(Bytes bytes, std::size_t at, std::size_t count)
{
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i)
    value = value << 8 | byteAt(bytes, at + i - 1);
  return value;
}

std::uint32_t bigEndian(Bytes bytes, std::size_t at, std::size_t count)
{
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i)
    value = value << 8 | byteAt(bytes, at + i);
  return value;
}

/// Where red, green and blue of the first entry stand behind the table's beginning, and how far the entries are apart.
struct EntryForm {
  std::size_t red, green, blue, distance;
};
constexpr EntryForm kRgb{0, 1, 2, 3}, kBgr{2, 1, 0, 3}, kBgrx{2, 1, 0, 4};

/// Where a file has its table; no entries where it has none.
struct Place {
  std::size_t at = 0, count = 0;
  EntryForm form = kRgb;

  std::size_t end() const
  {
    return count == 0 ? at : at + (count - 1) * form.distance + std::max({form.red, form.green, form.blue}) + 1;
  }
};

bool isWhole(const Place& place, Bytes bytes)
{
  return place.count > 0 && place.count <= kMostEntries && place.at < bytes.size() && place.end() <= bytes.size();
}

std::vector<Colour> colours(const Place& place, Bytes bytes)
{
  std::vector<Colour> out;
  const auto channel = [&](std::size_t at) { return static_cast<std::uint8_t>(byteAt(bytes, at)); };
  for (auto at = place.at; out.size() < place.count; at += place.form.distance)
    out.push_back({channel(at + place.form.red), channel(at + place.form.green), channel(at + place.form.blue)});
  return out;
}

/// Entry n gets red n, and no two of them are grey: a reader would make one channel of a grey table.
void number(const Place& place, std::string& bytes)
{
  for (std::size_t n = 0; n < place.count; ++n) {
    const auto at = place.at + n * place.form.distance;
    bytes[at + place.form.red] = static_cast<char>(n);
    bytes[at + place.form.green] = static_cast<char>(kMostEntries - 1 - n);
    bytes[at + place.form.blue] = 0;
  }
}

// --- GIF: https://www.w3.org/Graphics/GIF/spec-gif89a.txt

std::size_t gifTableSize(std::uint32_t flags) { return (flags & 0x80) != 0 ? std::size_t{2} << (flags & 7) : 0; }

std::size_t behindSubBlocks(Bytes bytes, std::size_t at)
{
  while (byteAt(bytes, at) != 0)
    at += 1 + byteAt(bytes, at);
  return at + 1;
}

constexpr std::size_t kGifHead = 13, kGifImageHead = 10;
constexpr std::uint32_t kGifExtension = 0x21, kGifImage = 0x2C;

/// Calls `visit` with the place of each extension before the first image. Returns where that begins.
template <class Visit>
std::size_t passGifExtensions(Bytes bytes, Visit visit)
{
  auto at = kGifHead + 3 * gifTableSize(byteAt(bytes, 10));
  for (; byteAt(bytes, at) == kGifExtension; at = behindSubBlocks(bytes, at + 2))
    visit(at);
  return at;
}

Place ofGif(Bytes bytes)
{
  const auto at = passGifExtensions(bytes, [](std::size_t) {});
  const auto local = byteAt(bytes, at) == kGifImage ? gifTableSize(byteAt(bytes, at + 9)) : 0;
  return local > 0 ? Place{at + kGifImageHead, local} : Place{kGifHead, gifTableSize(byteAt(bytes, 10))};
}

std::string gifWithoutTransparency(Bytes bytes)
{
  constexpr std::uint32_t kGraphicControl = 0xF9, kTransparent = 1;
  std::string out(bytes);
  passGifExtensions(bytes, [&](std::size_t at) {
    if (byteAt(bytes, at + 1) == kGraphicControl && byteAt(bytes, at + 2) != 0)
      out[at + 3] = static_cast<char>(byteAt(bytes, at + 3) & ~kTransparent);
  });
  return out;
}

// --- PNG: https://www.w3.org/TR/png/

constexpr std::size_t kPngSignature = 8, kPngBeforeData = 8, kPngAroundData = 12;
constexpr Bytes kPngTable = "PLTE";

template <class Visit>
void forEachPngChunk(Bytes bytes, Visit visit)
{
  for (auto at = kPngSignature; at + kPngAroundData <= bytes.size();) {
    const auto size = kPngAroundData + bigEndian(bytes, at, 4);
    visit(at, bytes.substr(at, size));
    at += size;
  }
}

Place ofPng(Bytes bytes)
{
  constexpr std::size_t kColourTypeAt = 25;
  constexpr std::uint32_t kIndexed = 3;
  Place place;
  if (byteAt(bytes, kColourTypeAt) == kIndexed)
    forEachPngChunk(bytes, [&](std::size_t at, Bytes chunk) {
      if (place.count == 0 && chunk.substr(4, 4) == kPngTable)
        place = {at + kPngBeforeData, bigEndian(bytes, at, 4) / 3};
    });
  return place;
}

/// https://www.w3.org/TR/png/#D-CRCAppendix, bit by bit: a table of colours is short.
std::uint32_t pngCheckSum(Bytes bytes)
{
  constexpr std::uint32_t kPolynomial = 0xEDB88320, kOnes = 0xFFFFFFFF;
  std::uint32_t sum = kOnes;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit)
      sum = (sum & 1) != 0 ? sum >> 1 ^ kPolynomial : sum >> 1;
  }
  return sum ^ kOnes;
}

/// Chunks that a reader can do without, among them those of transparency and colour space, begin with a small letter.
std::string pngOfPixelsAlone(Bytes bytes)
{
  constexpr std::uint32_t kSmallLetter = 0x20;
  std::string out(bytes.substr(0, kPngSignature));
  forEachPngChunk(bytes, [&](std::size_t, Bytes chunk) {
    if ((byteAt(chunk, 4) & kSmallLetter) == 0)
      out += chunk;
  });
  return out;
}

void finishPng(std::string& bytes, const Place& place)
{
  const auto at = place.at - kPngTable.size();
  const auto sum = pngCheckSum(Bytes(bytes).substr(at, place.end() - at));
  for (std::size_t i = 0; i < 4 && place.end() + i < bytes.size(); ++i)
    bytes[place.end() + i] = static_cast<char>(sum >> (24 - 8 * i));
}

// --- BMP

Place ofBmp(Bytes bytes)
{
  constexpr std::size_t kFileHead = 14;
  constexpr std::uint32_t kOldHead = 12;
  const auto head = littleEndian(bytes, kFileHead, 4);
  const bool isOld = head == kOldHead;
  const auto bits = littleEndian(bytes, kFileHead + (isOld ? 10 : 14), 2);
  if (bits < 1 || bits > 8)
    return {};
  const auto used = isOld ? 0 : littleEndian(bytes, kFileHead + 32, 4);
  return {kFileHead + head, used != 0 ? used : std::size_t{1} << bits, isOld ? kBgr : kBgrx};
}

// --- PCX

Place ofPcx(Bytes bytes)
{
  constexpr std::size_t kTable = 3 * kMostEntries, kHead = 128;
  constexpr std::uint32_t kTableMark = 12;
  const bool is256 = byteAt(bytes, 3) == 8 && byteAt(bytes, 65) == 1;
  if (!is256 || bytes.size() < kHead + 1 + kTable || byteAt(bytes, bytes.size() - kTable - 1) != kTableMark)
    return {};
  return {bytes.size() - kTable, kMostEntries};
}

// --- TIFF, revision 6.0

using Number = std::uint32_t (*)(Bytes, std::size_t at, std::size_t count);

/// Place of the table among the fields of the first picture. Its values have two bytes, of which the lower ones count only in
/// old files that have nothing in the higher ones.
Place ofTiff(Bytes bytes, Number read, std::size_t higherByte)
{
  constexpr std::size_t kField = 12, kValue = 8;
  constexpr std::uint32_t kKind = 262, kKindOfTables = 3, kTable = 320;
  const std::size_t directory = read(bytes, 4, 4);
  bool hasTable = false;
  Place place;
  for (std::size_t i = 0; i < read(bytes, directory, 2); ++i) {
    const auto field = directory + 2 + i * kField;
    const auto tag = read(bytes, field, 2);
    if (tag == kKind)
      hasTable = read(bytes, field + kValue, 2) == kKindOfTables;
    if (tag == kTable)
      place = {read(bytes, field + kValue, 4), read(bytes, field + 4, 4) / 3};
  }
  if (!hasTable || place.count > kMostEntries)
    return {};
  const auto table = bytes.substr(std::min(place.at, bytes.size()), 6 * place.count);
  bool isOld = true;
  for (auto at = higherByte; at < table.size(); at += 2)
    isOld = isOld && table[at] == 0;
  const auto first = isOld ? 1 - higherByte : higherByte;
  place.form = {first, first + 2 * place.count, first + 4 * place.count, 2};
  return place;
}

Place ofLittleTiff(Bytes bytes) { return ofTiff(bytes, littleEndian, 1); }
Place ofBigTiff(Bytes bytes) { return ofTiff(bytes, bigEndian, 0); }

// --- all

struct Kind {
  Bytes beginning;
  Place (*find)(Bytes);
  /// The file without what would make a pixel transparent or give it another colour.
  std::string (*bare)(Bytes) = [](Bytes bytes) { return std::string(bytes); };
  void (*finish)(std::string&, const Place&) = [](std::string&, const Place&) {};
};
constexpr std::array kKinds{
    Kind{"GIF8", ofGif, gifWithoutTransparency},
    Kind{"\x89PNG", ofPng, pngOfPixelsAlone, finishPng},
    Kind{"BM", ofBmp},
    Kind{"\x0A\x05\x01", ofPcx},
    Kind{{"II*\0", 4}, ofLittleTiff},
    Kind{{"MM\0*", 4}, ofBigTiff},
};

} // namespace

std::optional<ColourTable> readColourTable(std::string_view bytes)
{
  const auto kind = std::ranges::find_if(kKinds, [&](const Kind& k) { return bytes.starts_with(k.beginning); });
  if (kind == kKinds.end())
    return std::nullopt;
  const auto place = kind->find(bytes);
  if (!isWhole(place, bytes))
    return std::nullopt;
  ColourTable table{colours(place, bytes), kind->bare(bytes)};
  const auto numbered = kind->find(table.numbered);
  if (!isWhole(numbered, table.numbered))
    return std::nullopt;
  number(numbered, table.numbered);
  kind->finish(table.numbered, numbered);
  return table;
}

} // namespace mrd::image
