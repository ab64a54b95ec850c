#pragma once
// The open sockets of one connection.

#include "platform/ftp/client.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace mrd::ftp {

/// Opens and closes sockets, and wakes who waits at them. Used by the thread that transfers, apart from cancel(). Whoever is told
/// of a state may lock what he likes: no lock of this class is held meanwhile.
class Sockets {
public:
  explicit Sockets(std::function<void(State)> stateChanged) : stateChanged_(std::move(stateChanged)) {}

  /// A new socket, or -1. `mayControl` where it is to carry the commands; of several that are tried for one host the one that is
  /// left does.
  int open(int family, int type, int protocol, bool mayControl);
  void close(int socket);
  /// Whether a socket carries the commands, as far as it is known.
  bool isControl(int socket) const { return controls_.contains(socket); }

  /// Ends every wait at a socket, and lets no other be opened; from any thread.
  void cancel();
  void resume() { isCancelled_ = false; }
  bool isCancelled() const { return isCancelled_; }

  /// A line that the server has said without being listened to; waits a moment for it. Empty where there is none.
  static std::string lastWords(int socket);

private:
  std::function<void(State)> stateChanged_;
  std::atomic<bool> isCancelled_ = false;
  std::mutex lock_;
  /// Under the lock.
  std::set<int> sockets_;
  std::set<int> controls_;
};

} // namespace mrd::ftp
