#pragma once

#include "platform/ftp/session.h"

#include <optional>

namespace mrd::ftp {

/// SFTP: the protocol has no current directory, so it is kept here.
class SftpSession : public Session {
public:
  SftpSession(const Address& address, ConnectionEvents events) : Session(address, std::move(events)) {}
  void backToLogin() override;

protected:
  SessionResult changeDirectory(const std::string& directory) override;
  SessionResult makeDirectory(const std::string& directory) override;
  SessionResult list() override;
  SessionResult put(const std::string& file, const std::string& name) override;
  SessionResult remove(const std::string& name) override;

private:
  TransferOutcome run(Transfer transfer);
  SessionResult command(const std::string& line);
  SessionResult readDirectory(const std::string& directory);
  TransferOutcome send(const std::string& file, const std::string& path);
  SessionResult replaced(const std::string& part, const std::string& path);
  bool makeLogin(SessionResult& failure);
  std::string pathOf(const std::string& name) const;

  bool isConnected_ = false, renameReplaces_ = true, usesPartFiles_ = true;
  /// From the root; empty before the first connection, where it is the login's.
  std::string directory_;
  /// The listing that the last `cd` had to read to know that there is a directory.
  std::optional<SessionResult> listed_;
  DirectoryNames names_;
};

} // namespace mrd::ftp
