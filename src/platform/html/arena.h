#pragma once
// Memory that is handed out piece by piece and given back all at once.

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <vector>

namespace mrd::html {

/// A bump allocator. What lies in it is never destroyed, so it may only hold what needs no destructor.
class Arena {
public:
  /// The first chunk has room for `firstChunk` bytes; later ones grow.
  explicit Arena(std::size_t firstChunk = 0) : nextChunk_(firstChunk < kSmallestChunk ? kSmallestChunk : firstChunk) {}

  /// Aligned for pointers; never null.
  void* allocate(std::size_t bytes)
  {
    bytes = (bytes + kAlignment) & ~(kAlignment - 1);
    if (bytes > left_)
      return allocateInNewChunk(bytes);
    left_ -= bytes;
    used_ += bytes;
    void* const piece = at_;
    at_ += bytes;
    return piece;
  }

  template <class T>
  T* make()
  {
    static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlignment);
    return new (allocate(sizeof(T))) T();
  }

  std::string_view copy(std::string_view text);

  /// Bytes handed out so far.
  std::size_t used() const { return used_; }

private:
  static constexpr std::size_t kAlignment = 8;
  static constexpr std::size_t kSmallestChunk = 4096;
  static constexpr std::size_t kLargestChunk = std::size_t{4} << 20;

  void* allocateInNewChunk(std::size_t bytes);

  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::byte* at_ = nullptr;
  std::size_t left_ = 0;
  std::size_t used_ = 0;
  std::size_t nextChunk_;
};

} // namespace mrd::html
