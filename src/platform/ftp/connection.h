#pragma once
// One connection to one server, and single transfers over it. Used by one thread, apart from cancel().

#include "platform/ftp/address.h"
#include "platform/ftp/client.h"
#include "platform/ftp/replies.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ftp {

enum class TransferKind {
  /// Only the commands before.
  Nothing,
  List,
  Upload,
  /// SFTP only: asks whether the file at `path` has `size` bytes.
  Size,
};

struct Transfer {
  TransferKind kind = TransferKind::Nothing;
  /// Path on the server; for FTP relative to the current directory, for SFTP from the root. Empty for the directory itself.
  std::string path = {};
  /// Commands before and after, sent as they are. Behind a "*" stands one that may be refused.
  std::vector<std::string> before = {}, after = {};
  /// What asks for a listing, where it is not LIST.
  std::string listCommand = {};
  /// Local file of an upload, in the system's form of a path, and its size.
  std::string file = {};
  std::uintmax_t size = 0;
  /// Whether a connection is made where there is none.
  bool mayConnect = false;
};

struct TransferOutcome {
  int code = code::kNone;
  std::string info = {};
  /// The server's last answer as it may be shown, whatever it says.
  std::string words = {};
  /// Bytes that the server sent.
  std::string data = {};
  std::vector<Reply> replies = {};
  /// Nothing was done, because there is no connection any more.
  bool lacksConnection = false;
  /// The server has no room, or allows no more: what it has already is to be left alone.
  bool lacksRoom = false;

  /// The last reply to a command that begins so; an empty one where it was not sent.
  Reply reply(std::string_view command) const;
};

struct ConnectionEvents {
  std::function<void(State)> stateChanged = [](State) {};
  /// Called on the connection's thread.
  TrustDecision trusts = [](const ServerIdentity&) { return false; };
};

/// A connection that its maker's library carries.
class Connection {
public:
  virtual ~Connection() = default;

  /// Runs one transfer to its end; asleep while the server is silent. A server whose identity nothing proves is asked about and,
  /// once trusted, known by its fingerprint. Throws base::Error (PathFileAccess) for a local file that cannot be read.
  virtual TransferOutcome run(const Transfer& transfer) = 0;
  /// The language of its explanations.
  virtual void speak(const std::string& Sprache) = 0;
  virtual const std::string& Sprache() const = 0;
  /// The directory of the login, known once there was a connection; "/" where the server does not tell.
  virtual const std::string& loginDirectory() const = 0;
  /// Ends what runs, now or as soon as it begins; from any thread.
  virtual void cancel() = 0;
  /// Allows transfers again after cancel().
  virtual void resume() = 0;
};

/// The library for transfers comes with some twenty-five others, which a start without publishing need not wait for. They are in
/// a module of their own, which is loaded by the first connection. Throws base::Error (code::kCannotConnect) when it is missing.
std::unique_ptr<Connection> makeConnection(const Address& address, ConnectionEvents events);

/// What the module exports under this name: a function that gives its caller a new connection.
inline constexpr const char* kConnectionFunction = "mrd_connection";
using ConnectionFunction = Connection* (*)(const Address&, ConnectionEvents);

} // namespace mrd::ftp
