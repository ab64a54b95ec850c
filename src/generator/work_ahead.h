#pragma once
// Jobs done by all cores ahead of one consumer that takes their results in order.

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace mrd::generator {

/// A pool of worker threads, one for each core. Jobs that have not begun are dropped when it ends.
class WorkerPool {
public:
  explicit WorkerPool(unsigned threads = std::max(1U, std::thread::hardware_concurrency()))
  {
    for (unsigned i = 0; i < threads; ++i)
      threads_.emplace_back([this](const std::stop_token& stop) { work(stop); });
  }

  ~WorkerPool()
  {
    for (auto& thread : threads_)
      thread.request_stop();
    wake_.notify_all();
  }

  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// The job's result or its exception.
  template <class Job>
  auto submit(Job job) -> std::future<decltype(job())>
  {
    // The queue holds copyable functions and a packaged task is none: the pointer shares it with the queue's entry alone.
    auto task = std::make_shared<std::packaged_task<decltype(job())()>>(std::move(job));
    auto result = task->get_future();
    {
      const std::lock_guard lock(mutex_);
      jobs_.emplace_back([task] { (*task)(); });
    }
    wake_.notify_one();
    return result;
  }

private:
  void work(const std::stop_token& stop)
  {
    for (;;) {
      std::function<void()> job;
      {
        std::unique_lock lock(mutex_);
        if (!wake_.wait(lock, stop, [this] { return !jobs_.empty(); }) || stop.stop_requested())
          return;
        job = std::move(jobs_.front());
        jobs_.pop_front();
      }
      job();
    }
  }

  std::mutex mutex_;
  std::condition_variable_any wake_;
  std::deque<std::function<void()>> jobs_;
  // Last, so that the threads end before what they use.
  std::vector<std::jthread> threads_;
};

} // namespace mrd::generator
