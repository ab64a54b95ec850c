#include "platform/image/memory_share.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace mrd::image {
namespace {

/// All pictures at a time; with the program itself they stay below half a gigabyte.
constexpr long long kAll = 400'000'000;

std::mutex mutex;
std::condition_variable freed;
long long taken = 0;
thread_local bool hasShare = false;

} // namespace

MemoryShare::MemoryShare(long long bytes) : bytes_(hasShare ? 0 : std::clamp(bytes, 1LL, kAll))
{
  if (bytes_ == 0)
    return;
  std::unique_lock lock(mutex);
  freed.wait(lock, [this] { return taken + bytes_ <= kAll; });
  taken += bytes_;
  hasShare = true;
}

MemoryShare::~MemoryShare()
{
  if (bytes_ == 0)
    return;
  {
    const std::lock_guard lock(mutex);
    taken -= bytes_;
  }
  hasShare = false;
  freed.notify_all();
}

} // namespace mrd::image
