#include "generator/work_ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace mrd::generator {
namespace {

TEST(WorkerPool, gives_each_job_s_own_result)
{
  WorkerPool pool(3);
  std::vector<std::future<int>> results;
  for (int i = 0; i < 200; ++i)
    results.push_back(pool.submit([i] { return i * i; }));

  for (int i = 0; i < 200; ++i)
    EXPECT_EQ(results[static_cast<std::size_t>(i)].get(), i * i);
}

TEST(WorkerPool, hands_an_exception_to_the_one_who_waits)
{
  WorkerPool pool(1);
  auto failing = pool.submit([]() -> int { throw std::runtime_error("kaputt"); });
  auto after = pool.submit([] { return 1; });

  EXPECT_THROW(failing.get(), std::runtime_error);
  EXPECT_EQ(after.get(), 1);
}

TEST(WorkerPool, drops_what_has_not_begun_when_it_ends)
{
  std::atomic<int> done = 0;
  std::promise<void> begun;
  std::promise<void> goOn;
  std::vector<std::future<void>> results;
  {
    WorkerPool pool(1);
    results.push_back(pool.submit([&] {
      begun.set_value();
      goOn.get_future().wait();
    }));
    begun.get_future().wait();
    for (int i = 0; i < 100; ++i)
      results.push_back(pool.submit([&] { ++done; }));
    // The pool ends while its one thread is busy: asked to stop first, then let go.
    std::jthread release([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      goOn.set_value();
    });
    release.detach();
  }

  EXPECT_EQ(done, 0);
}

} // namespace
} // namespace mrd::generator
