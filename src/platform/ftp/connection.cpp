#include "platform/ftp/connection.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/path.h"
#include "platform/ftp/endings.h"
#include "platform/ftp/explanations.h"
#include "platform/ftp/fingerprint.h"
#include "platform/ftp/server_text.h"
#include "platform/ftp/sockets.h"
#include "platform/ftp/user_key.h"

#include <algorithm>
#include <array>
#include <curl/curl.h>
#include <fstream>
#include <utility>

namespace mrd::ftp {
namespace {

constexpr long kConnectSeconds = 120, kAnswerSeconds = 300;
/// A listing without end must not fill the memory.
constexpr std::size_t kLongestListing = std::size_t{64} * 1024 * 1024;
constexpr int kShortestSleepMs = 4, kLongestSleepMs = 64;

void initialiseLibrary()
{
  static const CURLcode done = curl_global_init(CURL_GLOBAL_DEFAULT);
  static_cast<void>(done);
}

bool isSftp(const Address& address) { return address.protocol == Protocol::Sftp; }

class CommandList {
public:
  explicit CommandList(const std::vector<std::string>& commands)
  {
    for (const auto& command : commands)
      list_ = curl_slist_append(list_, command.c_str());
  }
  ~CommandList() { curl_slist_free_all(list_); }
  CommandList(const CommandList&) = delete;
  CommandList& operator=(const CommandList&) = delete;
  curl_slist* get() const { return list_; }

private:
  curl_slist* list_ = nullptr;
};

} // namespace

Reply TransferOutcome::reply(std::string_view command) const
{
  const auto found =
      std::find_if(replies.rbegin(), replies.rend(), [&](const Reply& r) { return r.command.starts_with(command); });
  return found == replies.rend() ? Reply{} : *found;
}

struct Connection::State {
  State(Address whom, ConnectionEvents told)
      : address(std::move(whom)), events(std::move(told)), sockets(events.stateChanged), talk(events.stateChanged)
  {
    initialiseLibrary();
    multi = curl_multi_init();
    easy = curl_easy_init();
  }
  ~State()
  {
    curl_easy_cleanup(easy);
    curl_multi_cleanup(multi);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  Address address;
  ConnectionEvents events;
  std::string Sprache;
  CURLM* multi = nullptr;
  CURL* easy = nullptr;
  std::array<char, CURL_ERROR_SIZE> errorText{};
  std::string loginDirectory = "/";

  /// Fingerprint that the user trusts, and what the server showed in this transfer.
  std::string trusted, shown;

  Sockets sockets;

  // The transfer at hand.
  Talk talk;
  bool mayConnect = false;
  bool moved = false;
  std::ifstream upload;
  TransferOutcome outcome;

  // What the library calls.
  static int onDebug(CURL*, curl_infotype type, char* data, size_t size, void* self);
  static size_t onData(char* data, size_t size, size_t count, void* self);
  static size_t onRead(char* buffer, size_t size, size_t count, void* self);
  static int onResolve(void*, void*, void* self);
  static curl_socket_t onOpenSocket(void* self, curlsocktype, curl_sockaddr* where);
  static int onCloseSocket(void* self, curl_socket_t socket);
  static int onProgress(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t);
  static int onHostKey(void* self, int type, const char* key, size_t size);
  static CURLcode onTls(CURL*, void* context, void* self);

  void readLastWords(int control);
  void setAddress(const Transfer& transfer);
  void setSecurity();
  void setCallbacks();
  void setKind(const Transfer& transfer);
  CURLcode drive();
  CURLcode perform(const Transfer& transfer);
  TransferOutcome runOnce(const Transfer& transfer);
  std::string explanation(int code) const;
};

/// A server that takes no more of a file closes the data connection and says why on the other one, which the library gives up
/// without listening. What is encrypted is not understood here, and left.
void Connection::State::readLastWords(int control)
{
  if (sockets.isCancelled() || !talk.isStoring())
    return;
  const auto line = Sockets::lastWords(control);
  if (!line.empty() && (line.front() == '4' || line.front() == '5'))
    talk.answer(line);
}

int Connection::State::onDebug(CURL*, curl_infotype type, char* data, size_t size, void* self)
{
  auto& state = *static_cast<State*>(self);
  state.moved = state.moved || type != CURLINFO_TEXT;
  if (type == CURLINFO_HEADER_OUT)
    state.talk.command({data, size});
  if (type == CURLINFO_HEADER_IN)
    state.talk.answer({data, size});
  return 0;
}

size_t Connection::State::onData(char* data, size_t size, size_t count, void* self)
{
  auto& received = static_cast<State*>(self)->outcome.data;
  if (received.size() + size * count > kLongestListing)
    return 0;
  received.append(data, size * count);
  return size * count;
}

size_t Connection::State::onRead(char* buffer, size_t size, size_t count, void* self)
{
  auto& upload = static_cast<State*>(self)->upload;
  upload.read(buffer, static_cast<std::streamsize>(size * count));
  return upload.bad() ? CURL_READFUNC_ABORT : static_cast<size_t>(upload.gcount());
}

int Connection::State::onResolve(void*, void*, void* self)
{
  auto& state = *static_cast<State*>(self);
  if (!state.talk.hasCommand() && state.mayConnect)
    state.events.stateChanged(ftp::State::ResolvingHost);
  return 0;
}

/// A socket before any command of the transfer is a control connection: data connections are opened by a command's answer.
curl_socket_t Connection::State::onOpenSocket(void* self, curlsocktype, curl_sockaddr* where)
{
  auto& state = *static_cast<State*>(self);
  const bool mayControl = !state.talk.hasCommand();
  if (mayControl && !state.mayConnect) {
    state.outcome.lacksConnection = !state.sockets.isCancelled();
    return CURL_SOCKET_BAD;
  }
  return state.sockets.open(where->family, where->socktype, where->protocol, mayControl);
}

int Connection::State::onCloseSocket(void* self, curl_socket_t socket)
{
  auto& state = *static_cast<State*>(self);
  if (state.sockets.isControl(socket))
    state.readLastWords(socket);
  state.sockets.close(socket);
  return 0;
}

int Connection::State::onProgress(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
  return static_cast<State*>(self)->sockets.isCancelled() ? 1 : 0;
}

int Connection::State::onHostKey(void* self, int, const char* key, size_t size)
{
  auto& state = *static_cast<State*>(self);
  state.shown = fingerprintOfKey({key, size});
  return state.shown == state.trusted ? CURLKHMATCH_OK : CURLKHMATCH_MISMATCH;
}

CURLcode Connection::State::onTls(CURL*, void* context, void* self)
{
  auto& state = *static_cast<State*>(self);
  watchCertificates(context, {&state.trusted, &state.shown});
  return CURLE_OK;
}

void Connection::State::setAddress(const Transfer& transfer)
{
  const auto host = base::contains(address.host, ":") ? "[" + address.host + "]" : address.host;
  const std::string_view scheme = isSftp(address) ? "sftp" : address.protocol == Protocol::FtpImplicitTls ? "ftps" : "ftp";
  const auto path = escapedPath(transfer.path);
  // Behind the host stands the divider; a path from the root brings its own slash.
  const auto url = base::format("{}://{}:{}{}{}", scheme, host, address.port, path.starts_with('/') ? "" : "/", path);
  curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
  curl_easy_setopt(easy, CURLOPT_USERNAME, address.user.c_str());
  curl_easy_setopt(easy, CURLOPT_PASSWORD, address.password.c_str());
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "ftp,ftps,sftp");
  // The address alone decides where the data goes.
  curl_easy_setopt(easy, CURLOPT_PROXY, "");
  curl_easy_setopt(easy, CURLOPT_NETRC, long{CURL_NETRC_IGNORED});
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(easy, CURLOPT_SERVER_RESPONSE_TIMEOUT, kAnswerSeconds);
  curl_easy_setopt(easy, CURLOPT_TCP_KEEPALIVE, 1L);
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  // A name server that does not answer holds up no end: the thread that waits for it is left to itself.
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(easy, CURLOPT_FTP_FILEMETHOD, long{CURLFTPMETHOD_NOCWD});
  const auto key = isSftp(address) ? usersKey() : std::string();
  const long keys = CURLSSH_AUTH_AGENT | (key.empty() ? 0 : CURLSSH_AUTH_PUBLICKEY);
  curl_easy_setopt(easy, CURLOPT_SSH_AUTH_TYPES, CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD | keys);
  if (!key.empty())
    curl_easy_setopt(easy, CURLOPT_SSH_PRIVATE_KEYFILE, key.c_str());
}

void Connection::State::setSecurity()
{
  switch (address.protocol) {
  case Protocol::FtpTryTls:
    // Who has shown a certificate that the user trusts can encrypt, also when the connection is made again.
    curl_easy_setopt(easy, CURLOPT_USE_SSL, trusted.empty() ? long{CURLUSESSL_TRY} : long{CURLUSESSL_ALL});
    break;
  case Protocol::FtpExplicitTls:
  case Protocol::FtpImplicitTls:
    curl_easy_setopt(easy, CURLOPT_USE_SSL, long{CURLUSESSL_ALL});
    break;
  default:
    break;
  }
  // Servers want data connections to resume the session of the control connection. The tickets of version 1.3 are for one use,
  // and the library then offers those of an earlier data connection, which such servers refuse.
  curl_easy_setopt(easy, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2} | long{CURL_SSLVERSION_MAX_TLSv1_2});
  // A certificate that the user trusts is known by its fingerprint, whatever name it bears.
  curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, trusted.empty() ? 2L : 0L);
  curl_easy_setopt(easy, CURLOPT_SSL_CTX_FUNCTION, onTls);
  curl_easy_setopt(easy, CURLOPT_SSL_CTX_DATA, this);
  curl_easy_setopt(easy, CURLOPT_SSH_HOSTKEYFUNCTION, onHostKey);
  curl_easy_setopt(easy, CURLOPT_SSH_HOSTKEYDATA, this);
}

void Connection::State::setCallbacks()
{
  curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, errorText.data());
  curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, onDebug);
  curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, onData);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy, CURLOPT_READFUNCTION, onRead);
  curl_easy_setopt(easy, CURLOPT_READDATA, this);
  curl_easy_setopt(easy, CURLOPT_RESOLVER_START_FUNCTION, onResolve);
  curl_easy_setopt(easy, CURLOPT_RESOLVER_START_DATA, this);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, onOpenSocket);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, onCloseSocket);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
  curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, onProgress);
  curl_easy_setopt(easy, CURLOPT_XFERINFODATA, this);
}

void Connection::State::setKind(const Transfer& transfer)
{
  switch (transfer.kind) {
  case TransferKind::Nothing:
    curl_easy_setopt(easy, CURLOPT_NOBODY, 1L);
    break;
  case TransferKind::List:
    if (!transfer.listCommand.empty())
      curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, transfer.listCommand.c_str());
    break;
  case TransferKind::Upload:
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(transfer.size));
    break;
  case TransferKind::Size:
    // Reading on from the end gives nothing where the file has just this size.
    curl_easy_setopt(easy, CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(transfer.size));
    break;
  }
}

/// The library can hold an answer back that it has read already, and then no socket wakes it: the first sleeps are short.
CURLcode Connection::State::drive()
{
  int running = 1;
  int sleepMs = 0;
  while (true) {
    moved = false;
    if (curl_multi_perform(multi, &running) != CURLM_OK)
      return CURLE_FAILED_INIT;
    if (running == 0)
      break;
    if (sockets.isCancelled())
      return CURLE_ABORTED_BY_CALLBACK;
    sleepMs = moved ? 0 : std::clamp(sleepMs * 2, kShortestSleepMs, kLongestSleepMs);
    curl_multi_poll(multi, nullptr, 0, sleepMs, nullptr);
  }
  int left = 0;
  const CURLMsg* const message = curl_multi_info_read(multi, &left);
  return message == nullptr ? CURLE_FAILED_INIT : message->data.result;
}

CURLcode Connection::State::perform(const Transfer& transfer)
{
  const CommandList before(transfer.before), after(transfer.after);
  curl_easy_reset(easy);
  errorText[0] = '\0';
  setAddress(transfer);
  setSecurity();
  setCallbacks();
  setKind(transfer);
  curl_easy_setopt(easy, CURLOPT_QUOTE, before.get());
  curl_easy_setopt(easy, CURLOPT_POSTQUOTE, after.get());
  curl_multi_add_handle(multi, easy);
  const CURLcode ending = sockets.isCancelled() ? CURLE_ABORTED_BY_CALLBACK : drive();
  curl_multi_remove_handle(multi, easy);
  return ending;
}

/// Only what the server said can hold the password. In a text of our own the gap would tell it.
std::string Connection::State::explanation(int code) const
{
  if (isServersWord(code, talk))
    return outcome.words;
  const auto words = wordsFor(code);
  return words ? textOf(*words, Sprache, {address.host}) : shownText(errorText.data(), address.password);
}

TransferOutcome Connection::State::runOnce(const Transfer& transfer)
{
  outcome = {};
  talk.begin();
  shown.clear();
  mayConnect = transfer.mayConnect;
  if (transfer.kind == TransferKind::Upload) {
    upload = std::ifstream(files::nativePath(transfer.file), std::ios::binary);
    if (!upload)
      throw base::Error(base::ErrorNumber::PathFileAccess, textOf(Words::FileUnreadable, Sprache, {transfer.file}));
  }
  const CURLcode ending = perform(transfer);
  upload.close();
  outcome.words = shownText(base::decodeText(talk.last().text), address.password);
  outcome.lacksRoom = tellsOfNoRoom(ending, talk);
  if (ending == CURLE_OK) {
    char* path = nullptr;
    if (curl_easy_getinfo(easy, CURLINFO_FTP_ENTRY_PATH, &path) == CURLE_OK && path != nullptr && *path != '\0')
      loginDirectory = path;
  } else {
    outcome.code = sockets.isCancelled() ? code::kCancelled : codeOfEnding(ending, talk);
    outcome.info = explanation(outcome.code);
  }
  outcome.replies = talk.take();
  return std::move(outcome);
}

Connection::Connection(Address address, ConnectionEvents events)
    : state_(std::make_unique<State>(std::move(address), std::move(events)))
{
}

Connection::~Connection() = default;

TransferOutcome Connection::run(const Transfer& transfer)
{
  auto outcome = state_->runOnce(transfer);
  if (outcome.code != code::kNotTrusted || state_->shown.empty() || state_->shown == state_->trusted)
    return outcome;
  const bool isHostKey = isSftp(state_->address);
  const auto problem = isHostKey ? "" : shownText(state_->errorText.data(), state_->address.password);
  const auto fingerprint = state_->shown;
  if (!state_->events.trusts({state_->address.server(), fingerprint, problem, isHostKey}))
    return outcome;
  state_->trusted = fingerprint;
  return state_->runOnce(transfer);
}

void Connection::speak(const std::string& Sprache) { state_->Sprache = Sprache; }

const std::string& Connection::Sprache() const { return state_->Sprache; }

const std::string& Connection::loginDirectory() const { return state_->loginDirectory; }

void Connection::cancel()
{
  state_->sockets.cancel();
  // Wakes the library also where it waits for an answer by itself.
  curl_multi_wakeup(state_->multi);
}

void Connection::resume() { state_->sockets.resume(); }

} // namespace mrd::ftp
