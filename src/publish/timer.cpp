#include "publish/timer.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace mrd::publish {

float SystemTimer::seconds() const
{
  const auto now = std::chrono::system_clock::now();
  const std::time_t whole = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  ::localtime_r(&whole, &local);
  const auto part = now - std::chrono::floor<std::chrono::seconds>(now);
  return static_cast<float>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) + std::chrono::duration<float>(part).count();
}

void SystemTimer::rest() const { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }

} // namespace mrd::publish
