#include "platform/image/second_reader.h"

#include "base/text.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace mrd::image {
namespace {

/// More than any head has, and any metafile's mark.
constexpr std::size_t kHeadBytes = 32;

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count)
{
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i)
    value = value << 8 | (at + i <= bytes.size() ? static_cast<unsigned char>(bytes[at + i - 1]) : 0);
  return value;
}

bool isBitmap(std::string_view head) { return head.starts_with("BM"); }

bool isBitmapWithoutFileHead(std::string_view head)
{
  constexpr std::uint32_t kSizeOfHead = 40, kPlanes = 1;
  return number(head, 0, 4) == kSizeOfHead && number(head, 12, 2) == kPlanes;
}

bool isIcon(std::string_view head) { return number(head, 0, 4) == 0x10000 && number(head, 4, 2) > 0; }

/// The reader knows two versions by their content. For others it asks the name, and must not be led elsewhere by that.
bool isPcx(std::string_view head, std::string_view name)
{
  constexpr std::uint32_t kVersionWithTable = 2, kLastVersion = 5, kRunLengths = 1;
  const auto version = number(head, 1, 1);
  const bool isKnown = version == kVersionWithTable || version == kLastVersion;
  const bool isNamed = version > kVersionWithTable && version < kLastVersion && base::lower(name).ends_with(".pcx");
  return head.starts_with('\x0A') && (isKnown || isNamed) && number(head, 2, 1) == kRunLengths;
}

constexpr std::uint32_t kPlaceable = 0x9AC6CDD7;
constexpr std::size_t kPlaceableHead = 22, kMetafileHead = 18;

std::size_t metafileAt(std::string_view head) { return number(head, 0, 4) == kPlaceable ? kPlaceableHead : 0; }

bool isMetafile(std::string_view head)
{
  constexpr std::uint32_t kInFile = 1, kOnDisk = 2, kHeadInWords = 9;
  const auto at = metafileAt(head), kind = std::size_t{number(head, at, 2)};
  return (kind == kInFile || kind == kOnDisk) && number(head, at + 2, 2) == kHeadInWords;
}

/// Whether one record stands behind the other up to the one that ends the file.
bool hasWholeRecords(std::ifstream& file, std::string_view head)
{
  constexpr std::size_t kRecordHead = 6, kWord = 2, kLeastWords = 3;
  for (std::uint64_t at = metafileAt(head) + kMetafileHead;;) {
    std::array<char, kRecordHead> record{};
    file.seekg(static_cast<std::streamoff>(at));
    if (!file.read(record.data(), record.size()))
      return false;
    const std::string_view bytes(record.data(), record.size());
    const auto words = number(bytes, 0, 4);
    if (words < kLeastWords)
      return false;
    if (number(bytes, 4, 2) == 0)
      return true;
    at += std::uint64_t{words} * kWord;
  }
}

} // namespace

bool isForSecondReader(const std::string& name)
{
  std::ifstream file(name, std::ios::binary);
  std::array<char, kHeadBytes> bytes{};
  file.read(bytes.data(), bytes.size());
  const std::string_view head(bytes.data(), static_cast<std::size_t>(file.gcount()));
  if (isMetafile(head)) {
    file.clear();
    return hasWholeRecords(file, head);
  }
  return isBitmap(head) || isBitmapWithoutFileHead(head) || isIcon(head) || isPcx(head, name);
}

} // namespace mrd::image
