#pragma once

namespace mrd::image {

/// A share of the memory that pictures may take together. Who asks for one waits until it is free; work that needs more than
/// there is runs alone. A thread that has a share needs no second one.
class MemoryShare {
public:
  /// The pixels of one picture as it is drawn on, red, green and blue.
  static constexpr long long kBytesPerPixel = 3;

  explicit MemoryShare(long long bytes);
  ~MemoryShare();
  MemoryShare(const MemoryShare&) = delete;
  MemoryShare& operator=(const MemoryShare&) = delete;

private:
  /// 0 where the thread had a share already.
  long long bytes_;
};

} // namespace mrd::image
