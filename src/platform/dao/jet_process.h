#pragma once
// The reading program as a child with limits. For the sources of this folder only.

#include "platform/dao/jet_records.h"

#include <cstdint>

namespace mrd::dao {

/// The bytes that the child writes. Ends the child, whatever it is doing, when it goes out of scope. Failures are base::Error
/// (NotADatabase).
class JetProcess : public JetBytes {
public:
  JetProcess(const std::filesystem::path& file, const JetReading& reading);
  ~JetProcess() override;
  JetProcess(const JetProcess&) = delete;
  JetProcess& operator=(const JetProcess&) = delete;

  std::size_t read(char* target, std::size_t count) override;

private:
  void start(const char* program, const char* file, std::uint64_t processorSeconds);
  void waitForBytes();
  [[noreturn]] void failAtEnd();
  void end();

  using Clock = std::chrono::steady_clock;
  /// The child's number, -1 without one.
  int child_ = -1;
  int pipe_ = -1;
  Clock::time_point deadline_;
  std::uint64_t received_ = 0, mostBytes_ = 0;
};

} // namespace mrd::dao
