#include "platform/image/memory_share.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace mrd::image {
namespace {

TEST(MemoryShares, wait_for_each_other_when_they_are_large)
{
  constexpr long long kMost = 1'000'000'000;
  std::atomic<int> working = 0, together = 0;
  std::vector<std::thread> threads;
  for (int n = 0; n < 4; ++n)
    threads.emplace_back([&] {
      const MemoryShare share(kMost);
      const MemoryShare second(kMost); // The thread has one already.
      together = std::max<int>(together, ++working);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      --working;
    });
  for (auto& thread : threads)
    thread.join();

  EXPECT_EQ(together, 1);
}

TEST(MemoryShares, of_small_pictures_stand_side_by_side)
{
  const MemoryShare mine(1000);
  std::thread([] { const MemoryShare other(1000); }).join();
}

} // namespace
} // namespace mrd::image
