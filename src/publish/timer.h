#pragma once

namespace mrd::publish {

/// Tells the seconds since midnight.
class Timer {
public:
  virtual ~Timer() = default;
  virtual float seconds() const = 0;
  /// Sleeps a moment, for who waits for the time to pass.
  virtual void rest() const = 0;
};

/// The machine's local time, whatever moment a run pretends to write.
class SystemTimer : public Timer {
public:
  float seconds() const override;
  void rest() const override;
};

} // namespace mrd::publish
