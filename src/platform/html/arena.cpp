#include "platform/html/arena.h"

#include <algorithm>
#include <cstring>

namespace mrd::html {

std::string_view Arena::copy(std::string_view text)
{
  if (text.empty())
    return {};
  auto* const bytes = static_cast<char*>(allocate(text.size()));
  std::memcpy(bytes, text.data(), text.size());
  return {bytes, text.size()};
}

void* Arena::allocateInNewChunk(std::size_t bytes)
{
  const std::size_t size = std::max(bytes, nextChunk_);
  chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
  nextChunk_ = std::min(nextChunk_ * 2, std::max(nextChunk_, kLargestChunk));
  used_ += bytes;
  std::byte* const piece = chunks_.back().get();
  // A piece that fills its own chunk leaves the rest of the present one in use.
  if (size - bytes >= left_) {
    at_ = piece + bytes;
    left_ = size - bytes;
  }
  return piece;
}

} // namespace mrd::html
