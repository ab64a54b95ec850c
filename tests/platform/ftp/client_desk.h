#pragma once
// The client in front of a server, with a user who trusts it or not.

#include "platform/ftp/address.h"
#include "platform/ftp/curl_client.h"
#include "support/ftp_server.h"

#include <chrono>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace mrd::ftp {

struct ClientDesk {
  explicit ClientDesk(const support::FtpServer& theServer, const std::string& scheme = "ftp://")
      : url(addressOf(scheme + theServer.server(), theServer.user(), theServer.password()))
  {
    client.StateChanged = [this](State state) { states.push_back(state); };
  }

  /// Runs a command to its end; its response code.
  int run(const std::string& operation)
  {
    client.Execute(url, operation);
    while (client.StillExecuting()) {
    }
    return client.ResponseCode();
  }

  std::string listing()
  {
    EXPECT_EQ(run("dir"), 0) << client.ResponseInfo();
    std::string text;
    for (auto chunk = client.GetChunk(1024, 0); !chunk.empty(); chunk = client.GetChunk(1024, 0))
      text += chunk;
    return text;
  }

  int put(const std::string& file, const std::string& name) { return run("PUT \"" + file + "\" " + name); }

  std::string url;
  bool trusts = true;
  /// Whether servers are known by a certificate of theirs.
  bool areKnown = false;
  std::vector<ServerIdentity> questions;
  std::vector<State> states;
  CurlClient client{[this](const ServerIdentity& identity) {
                      questions.push_back(identity);
                      return trusts;
                    },
                    [this](const std::string&) { return areKnown; }};
};

} // namespace mrd::ftp
