#pragma once
// The reading program as a child with limits, and the bytes that it writes. For the sources of this folder only.

#include "platform/dao/jet_file.h"

#include <array>
#include <cstdint>
#include <sys/types.h>
#include <utility>

namespace mrd::dao {

/// Ends the child, whatever it is doing, when it goes out of scope. Failures are base::Error (NotADatabase).
class JetProcess {
public:
  JetProcess(const std::filesystem::path& file, const JetReading& reading);
  ~JetProcess();
  JetProcess(const JetProcess&) = delete;
  JetProcess& operator=(const JetProcess&) = delete;

  std::uint64_t number(std::size_t bytes);
  std::string text();
  /// Throws when the next bytes are others.
  void greeting();

private:
  void start(const char* program, const char* file);
  void fill();
  void take(char* target, std::size_t count);
  [[noreturn]] void failAtEnd();
  void end();

  using Clock = std::chrono::steady_clock;
  pid_t child_ = -1;
  int pipe_ = -1;
  Clock::time_point deadline_;
  std::uint64_t received_ = 0;
  std::array<char, 65536> buffer_{};
  std::size_t begin_ = 0, end_ = 0;
};

} // namespace mrd::dao
