#pragma once
// The client control over a library for file transfers, in a thread of its own: no silence of a server holds up the caller.

#include "platform/ftp/client.h"

#include <memory>

namespace mrd::ftp {

class CurlClient : public Client {
public:
  /// A server that is `known`, and for which the address leaves it open, must encrypt: it could before.
  explicit CurlClient(
      TrustDecision trusts, KnownServers known = [](const std::string&) { return false; });
  /// Ends what runs.
  ~CurlClient() override;

  void Execute(std::string_view url, std::string_view operation) override;
  bool StillExecuting() override;
  void Cancel() override;
  std::string GetChunk(std::size_t size, int dataType) override;
  bool isLink(std::string_view name) const override;
  int ResponseCode() const override;
  std::string ResponseInfo() const override;
  void backToLogin() override;

private:
  struct Worker;
  std::unique_ptr<Worker> worker_;
};

} // namespace mrd::ftp
