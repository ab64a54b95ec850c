#include "platform/ftp/sockets.h"

#include <array>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace mrd::ftp {
namespace {

constexpr int kLastWordsMs = 300;

} // namespace

int Sockets::open(int family, int type, int protocol, bool mayControl)
{
  const int socket = ::socket(family, type | SOCK_CLOEXEC, protocol);
  if (socket < 0)
    return socket;
  {
    const std::lock_guard guard(lock_);
    if (isCancelled_) {
      ::close(socket);
      return -1;
    }
    sockets_.insert(socket);
  }
  if (mayControl && controls_.insert(socket).second && controls_.size() == 1) {
    stateChanged_(State::HostResolved);
    stateChanged_(State::Connecting);
  }
  return socket;
}

void Sockets::close(int socket)
{
  const bool endsConnection = controls_.erase(socket) > 0 && controls_.empty();
  if (endsConnection)
    stateChanged_(State::Disconnecting);
  {
    const std::lock_guard guard(lock_);
    sockets_.erase(socket);
    // Under the lock: its number may be another socket's the next moment.
    ::close(socket);
  }
  if (endsConnection)
    stateChanged_(State::Disconnected);
}

void Sockets::cancel()
{
  const std::lock_guard guard(lock_);
  isCancelled_ = true;
  for (const int socket : sockets_)
    ::shutdown(socket, SHUT_RDWR);
}

std::string Sockets::lastWords(int socket)
{
  pollfd waiting{socket, POLLIN, 0};
  std::array<char, 512> buffer{};
  if (::poll(&waiting, 1, kLastWordsMs) <= 0)
    return "";
  const auto count = ::recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
  const std::string_view words(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  return std::string(words.substr(0, words.find('\n')));
}

} // namespace mrd::ftp
