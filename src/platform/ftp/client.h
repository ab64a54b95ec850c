#pragma once
// The client control that carries all commands to a web server's file service: one command at a time, which runs while its caller
// does something else.

#include "base/errors.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace mrd::ftp {

/// Numbers of ResponseCode() and of errors that a client throws.
namespace code {
inline constexpr int kNone = 0;
inline constexpr int kTimedOut = 12002;
/// The server's reply holds an error.
inline constexpr int kRefused = 12003;
inline constexpr int kHostNotFound = 12007;
inline constexpr int kLoginDenied = 12014;
inline constexpr int kCancelled = 12017;
inline constexpr int kCannotConnect = 12029;
inline constexpr int kConnectionLost = 12030;
inline constexpr int kNotTrusted = 12045;
inline constexpr int kNoEncryption = 12157;
/// The server has another number of bytes than the local file, or does not tell.
inline constexpr int kNotConfirmed = 12170;
/// A listing of more bytes than any directory's.
inline constexpr int kTooLong = 12171;
inline constexpr int kStillExecuting = 35764;
} // namespace code

/// An error with one of the numbers above.
inline base::Error clientError(int number, const std::string& description)
{
  return {static_cast<base::ErrorNumber>(number), description};
}

/// Numbers that StateChanged reports.
enum class State : int {
  ResolvingHost = 1,
  HostResolved = 2,
  Connecting = 3,
  Connected = 4,
  Requesting = 5,
  RequestSent = 6,
  ReceivingResponse = 7,
  ResponseReceived = 8,
  Disconnecting = 9,
  Disconnected = 10,
  Failed = 11,
  Completed = 12,
};

/// One connection, kept between commands of one address with the directory that the last `cd` led to. A connection that was lost
/// meanwhile is made again, in the same directory. All functions belong to one thread; the events come from within
/// StillExecuting().
class Client {
public:
  virtual ~Client() = default;

  /// Starts one command and returns at once:
  ///   cd DIRECTORY, mkdir DIRECTORY, dir, DELETE NAME, PUT "LOCAL FILE" NAME
  /// `url` as addressOf() gives it. The command's word ignores case. A directory that begins with "/" counts from the root of the
  /// login. Throws base::Error where it cannot start: one is running, the local file is missing, the line is no such command,
  /// or the last command had no connection and nothing is different now.
  virtual void Execute(std::string_view url, std::string_view operation) = 0;
  /// Whether the last command still runs. Waits a moment for its end, asleep. Throws base::Error, once, where the command found
  /// no way to the server.
  virtual bool StillExecuting() = 0;
  /// Ends the running command, and with it the connection.
  virtual void Cancel() = 0;
  /// The next piece of the reply, at most `size` bytes of whole characters; empty at its end. Data type 0 is text.
  virtual std::string GetChunk(std::size_t size, int dataType) = 0;
  /// Whether a listing since the login told of a symbolic link by this name. What that leads to is not known.
  virtual bool isLink(std::string_view name) const = 0;
  /// Number of the last command's error, 0 for none.
  virtual int ResponseCode() const = 0;
  /// Text of the last command's error; holds no password.
  virtual std::string ResponseInfo() const = 0;
  /// Lets the next command start in the directory of the login, and a refused login be tried again.
  virtual void backToLogin() = 0;

  /// The language of what the client says of itself, "GER" or "ENG"; from the next command on.
  std::string Sprache = "GER";
  /// Told of every change of the connection.
  std::function<void(State)> StateChanged = [](State) {};
};

/// Who a server says it is, where nothing proves it.
struct ServerIdentity {
  /// Host, colon, port.
  std::string server;
  /// "SHA256:" and the digest of the certificate or of the host key.
  std::string fingerprint;
  /// Why it is asked about: the verification's own words, or empty for a host key.
  std::string problem;
  bool isHostKey = false;
};

/// Whether a server (host, colon, port) is known by a certificate that the user trusts.
using KnownServers = std::function<bool(const std::string& server)>;

/// Decides whether a server that cannot prove its identity is the right one; called on the client's thread of use.
using TrustDecision = std::function<bool(const ServerIdentity&)>;

} // namespace mrd::ftp
