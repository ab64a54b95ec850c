#pragma once
// Bytes kept under a key in a side file that may be lost at any time.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

/// 128-bit content hash (XXH3, https://xxhash.com): equal for equal bytes, different for different ones for all practical
/// purposes.
struct ContentHash {
  std::uint64_t high = 0, low = 0;
  auto operator<=>(const ContentHash&) const = default;
};

/// Hash of several pieces of bytes, their borders included.
ContentHash contentHash(std::span<const std::string_view> pieces);

/// A cache file: a key leads to bytes that are checked against their own hash when they are read. Never throws: a file that
/// cannot be opened, is damaged or cannot be written behaves like an empty one, and a damaged one is begun anew. One thread.
class ByteStore {
public:
  /// `path` in the system's form.
  explicit ByteStore(std::string_view path);
  ~ByteStore();
  ByteStore(const ByteStore&) = delete;
  ByteStore& operator=(const ByteStore&) = delete;

  std::optional<std::string> get(const ContentHash& key);
  void put(const ContentHash& key, std::string_view bytes);
  /// Writes what was put (as the destructor does), and forgets entries that were neither read nor put since opening when
  /// `forgetUnused` is set.
  void flush(bool forgetUnused);

private:
  struct State;
  std::unique_ptr<State> state_;
};

} // namespace mrd::dao
