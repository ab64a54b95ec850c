#pragma once

#include "platform/ftp/session.h"

#include <vector>

namespace mrd::ftp {

/// FTP, encrypted or not.
class FtpSession : public Session {
public:
  FtpSession(const Address& address, ConnectionEvents events) : Session(address, std::move(events)) {}
  void backToLogin() override;

protected:
  SessionResult changeDirectory(const std::string& directory) override;
  SessionResult makeDirectory(const std::string& directory) override;
  SessionResult list() override;
  SessionResult put(const std::string& file, const std::string& name) override;
  SessionResult remove(const std::string& name) override;

private:
  enum class Arrival { CutOff, Whole, Unknown };
  /// What became of a file.
  struct Sent {
    SessionResult result = {};
    TransferOutcome outcome = {};
    /// A server that cannot tell sizes has still taken the file.
    Arrival arrival = Arrival::CutOff;
  };

  TransferOutcome connect();
  void readFeatures(const std::string& text);
  /// Runs a transfer in the current directory, over a new connection where the old one is gone.
  TransferOutcome run(Transfer transfer);
  TransferOutcome command(const std::string& line);
  SessionResult simple(const std::string& line);
  Sent send(const std::string& file, const std::string& remoteName);
  void confirm(Sent& sent, const std::string& remoteName, std::uintmax_t size);
  TransferOutcome rename(const std::string& from, const std::string& to);
  SessionResult putDirectly(const std::string& file, const std::string& name);
  std::string encoded(std::string_view text) const;

  bool isConnected_ = false, isAtLogin_ = true;
  bool listsFacts_ = false, namesAreWindows1252_ = false, usesPartFiles_ = true;
  /// The way from the login's directory, as it was commanded.
  std::vector<std::string> way_;
  DirectoryNames names_;
};

} // namespace mrd::ftp
