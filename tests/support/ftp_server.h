#pragma once
// A file server on loopback that lasts as long as a test.

#include "support/temporary.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace mrd::support {

class FtpServer {
public:
  /// `kind` and `faults` as tests/support/ftp_server.py knows them.
  explicit FtpServer(const std::string& kind, const std::vector<std::string>& faults = {});
  ~FtpServer();
  FtpServer(const FtpServer&) = delete;
  FtpServer& operator=(const FtpServer&) = delete;

  /// What the server shows as its root.
  const TemporaryDirectory& root() const { return root_; }
  /// Host and port.
  std::string server() const { return "127.0.0.1:" + std::to_string(port_); }
  int port() const { return port_; }
  const std::string& user() const { return user_; }
  const std::string& password() const { return password_; }
  /// Where files can be written, empty or with a slash in front.
  const std::string& directory() const { return directory_; }
  const std::string& home() const { return home_; }
  /// The commands that a scripted server got, one a line.
  std::vector<std::string> log() const;
  /// How many of them begin so.
  int count(std::string_view command) const;
  void stop();

private:
  TemporaryDirectory root_, work_;
  pid_t process_ = -1;
  int input_ = -1, port_ = 0;
  std::string user_, password_, directory_, home_;
};

} // namespace mrd::support
