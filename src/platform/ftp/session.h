#pragma once
// The five commands as a server of one protocol carries them out. Calls wait for their end.

#include "platform/ftp/connection.h"
#include "platform/ftp/listing.h"
#include "platform/ftp/operation.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ftp {

struct SessionResult {
  int code = code::kNone;
  std::string info = {};
  /// The listing that `dir` asked for.
  std::string text = {};
  /// Its symbolic links.
  std::vector<std::string> links = {};
};

/// The result of a listing in the server's form.
SessionResult listingResult(std::string_view data, ListingForm form);

class Session {
public:
  virtual ~Session() = default;

  SessionResult carryOut(const Operation& operation);
  /// The next command starts in the directory of the login.
  virtual void backToLogin() = 0;
  void cancel() { connection_->cancel(); }
  void resume() { connection_->resume(); }

protected:
  Session(const Address& address, ConnectionEvents events) : connection_(makeConnection(address, std::move(events))) {}

  virtual SessionResult changeDirectory(const std::string& directory) = 0;
  virtual SessionResult makeDirectory(const std::string& directory) = 0;
  virtual SessionResult list() = 0;
  virtual SessionResult put(const std::string& file, const std::string& name) = 0;
  virtual SessionResult remove(const std::string& name) = 0;

  const std::string& Sprache() const { return connection_->Sprache(); }

  std::unique_ptr<Connection> connection_;
  /// Whether the last `cd` was refused: what it was to protect is not touched then.
  bool isAstray_ = false;
};

/// A session of the address's protocol; connects with its first command.
std::unique_ptr<Session> makeSession(const Address& address, ConnectionEvents events);

/// Behind the name of a file that is not complete yet.
inline constexpr std::string_view kPartSuffix = ".mrd-part";

/// A directory as the root of the login sees it: "/web" is what `cd web` led to, where it was reached so.
class DirectoryNames {
public:
  /// Notes that the login's directory holds this one.
  void noteReached(const std::string& directory) { reached_ = directory; }
  /// Where "/..." leads; `login` is the login's directory.
  std::string resolve(std::string_view absolute, std::string_view login) const;

private:
  std::string reached_;
};

} // namespace mrd::ftp
