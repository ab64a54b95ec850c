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

/// A connection over libcurl.
class CurlConnection : public Connection {
public:
  CurlConnection(Address whom, ConnectionEvents told)
      : address_(std::move(whom)), events_(std::move(told)), sockets_(events_.stateChanged), talk_(events_.stateChanged)
  {
    initialiseLibrary();
    multi_ = curl_multi_init();
    easy_ = curl_easy_init();
  }
  ~CurlConnection() override
  {
    curl_easy_cleanup(easy_);
    curl_multi_cleanup(multi_);
  }
  CurlConnection(const CurlConnection&) = delete;
  CurlConnection& operator=(const CurlConnection&) = delete;

  TransferOutcome run(const Transfer& transfer) override;
  void speak(const std::string& language) override { Sprache_ = language; }
  const std::string& Sprache() const override { return Sprache_; }
  const std::string& loginDirectory() const override { return loginDirectory_; }
  void cancel() override;
  void resume() override { sockets_.resume(); }

private:
  Address address_;
  ConnectionEvents events_;
  std::string Sprache_ = {};
  CURLM* multi_ = nullptr;
  CURL* easy_ = nullptr;
  std::array<char, CURL_ERROR_SIZE> errorText_{};
  std::string loginDirectory_ = "/";

  /// Fingerprint that the user trusts, and what the server showed in this transfer.
  std::string trusted_, shown_;

  Sockets sockets_;

  // The transfer at hand.
  Talk talk_;
  bool mayConnect_ = false;
  bool moved_ = false;
  std::ifstream upload_;
  TransferOutcome outcome_;

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
void CurlConnection::readLastWords(int control)
{
  if (sockets_.isCancelled() || !talk_.isStoring())
    return;
  const auto line = Sockets::lastWords(control);
  if (!line.empty() && (line.front() == '4' || line.front() == '5'))
    talk_.answer(line);
}

int CurlConnection::onDebug(CURL*, curl_infotype type, char* data, size_t size, void* self)
{
  auto& state = *static_cast<CurlConnection*>(self);
  state.moved_ = state.moved_ || type != CURLINFO_TEXT;
  if (type == CURLINFO_HEADER_OUT)
    state.talk_.command({data, size});
  if (type == CURLINFO_HEADER_IN)
    state.talk_.answer({data, size});
  return 0;
}

size_t CurlConnection::onData(char* data, size_t size, size_t count, void* self)
{
  auto& received = static_cast<CurlConnection*>(self)->outcome_.data;
  if (received.size() + size * count > kLongestListing)
    return 0;
  received.append(data, size * count);
  return size * count;
}

size_t CurlConnection::onRead(char* buffer, size_t size, size_t count, void* self)
{
  auto& file = static_cast<CurlConnection*>(self)->upload_;
  file.read(buffer, static_cast<std::streamsize>(size * count));
  return file.bad() ? CURL_READFUNC_ABORT : static_cast<size_t>(file.gcount());
}

int CurlConnection::onResolve(void*, void*, void* self)
{
  auto& state = *static_cast<CurlConnection*>(self);
  if (!state.talk_.hasCommand() && state.mayConnect_)
    state.events_.stateChanged(State::ResolvingHost);
  return 0;
}

/// A socket before any command of the transfer is a control connection: data connections are opened by a command's answer.
curl_socket_t CurlConnection::onOpenSocket(void* self, curlsocktype, curl_sockaddr* where)
{
  auto& state = *static_cast<CurlConnection*>(self);
  const bool mayControl = !state.talk_.hasCommand();
  if (mayControl && !state.mayConnect_) {
    state.outcome_.lacksConnection = !state.sockets_.isCancelled();
    return CURL_SOCKET_BAD;
  }
  return state.sockets_.open(where->family, where->socktype, where->protocol, mayControl);
}

int CurlConnection::onCloseSocket(void* self, curl_socket_t socket)
{
  auto& state = *static_cast<CurlConnection*>(self);
  if (state.sockets_.isControl(socket))
    state.readLastWords(socket);
  state.sockets_.close(socket);
  return 0;
}

int CurlConnection::onProgress(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
  return static_cast<CurlConnection*>(self)->sockets_.isCancelled() ? 1 : 0;
}

int CurlConnection::onHostKey(void* self, int, const char* key, size_t size)
{
  auto& state = *static_cast<CurlConnection*>(self);
  state.shown_ = fingerprintOfKey({key, size});
  return state.shown_ == state.trusted_ ? CURLKHMATCH_OK : CURLKHMATCH_MISMATCH;
}

CURLcode CurlConnection::onTls(CURL*, void* context, void* self)
{
  auto& state = *static_cast<CurlConnection*>(self);
  watchCertificates(context, {&state.trusted_, &state.shown_});
  return CURLE_OK;
}

void CurlConnection::setAddress(const Transfer& transfer)
{
  const auto host = base::contains(address_.host, ":") ? "[" + address_.host + "]" : address_.host;
  const std::string_view scheme = isSftp(address_) ? "sftp" : address_.protocol == Protocol::FtpImplicitTls ? "ftps" : "ftp";
  const auto path = escapedPath(transfer.path);
  // Behind the host stands the divider; a path from the root brings its own slash.
  const auto url = base::format("{}://{}:{}{}{}", scheme, host, address_.port, path.starts_with('/') ? "" : "/", path);
  curl_easy_setopt(easy_, CURLOPT_URL, url.c_str());
  curl_easy_setopt(easy_, CURLOPT_USERNAME, address_.user.c_str());
  curl_easy_setopt(easy_, CURLOPT_PASSWORD, address_.password.c_str());
  curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "ftp,ftps,sftp");
  // The address alone decides where the data goes.
  curl_easy_setopt(easy_, CURLOPT_PROXY, "");
  curl_easy_setopt(easy_, CURLOPT_NETRC, long{CURL_NETRC_IGNORED});
  curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(easy_, CURLOPT_SERVER_RESPONSE_TIMEOUT, kAnswerSeconds);
  curl_easy_setopt(easy_, CURLOPT_TCP_KEEPALIVE, 1L);
  curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
  // A name server that does not answer holds up no end: the thread that waits for it is left to itself.
  curl_easy_setopt(easy_, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(easy_, CURLOPT_FTP_FILEMETHOD, long{CURLFTPMETHOD_NOCWD});
  const auto key = isSftp(address_) ? usersKey() : std::string();
  const long keys = CURLSSH_AUTH_AGENT | (key.empty() ? 0 : CURLSSH_AUTH_PUBLICKEY);
  curl_easy_setopt(easy_, CURLOPT_SSH_AUTH_TYPES, CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD | keys);
  if (!key.empty())
    curl_easy_setopt(easy_, CURLOPT_SSH_PRIVATE_KEYFILE, key.c_str());
}

void CurlConnection::setSecurity()
{
  switch (address_.protocol) {
  case Protocol::FtpTryTls:
    // Who has shown a certificate that the user trusts can encrypt, also when the connection is made again.
    curl_easy_setopt(easy_, CURLOPT_USE_SSL, trusted_.empty() ? long{CURLUSESSL_TRY} : long{CURLUSESSL_ALL});
    break;
  case Protocol::FtpExplicitTls:
  case Protocol::FtpImplicitTls:
    curl_easy_setopt(easy_, CURLOPT_USE_SSL, long{CURLUSESSL_ALL});
    break;
  default:
    break;
  }
  // Servers want data connections to resume the session of the control connection. The tickets of version 1.3 are for one use,
  // and the library then offers those of an earlier data connection, which such servers refuse.
  curl_easy_setopt(easy_, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2} | long{CURL_SSLVERSION_MAX_TLSv1_2});
  // A certificate that the user trusts is known by its fingerprint, whatever name it bears.
  curl_easy_setopt(easy_, CURLOPT_SSL_VERIFYHOST, trusted_.empty() ? 2L : 0L);
  curl_easy_setopt(easy_, CURLOPT_SSL_CTX_FUNCTION, onTls);
  curl_easy_setopt(easy_, CURLOPT_SSL_CTX_DATA, this);
  curl_easy_setopt(easy_, CURLOPT_SSH_HOSTKEYFUNCTION, onHostKey);
  curl_easy_setopt(easy_, CURLOPT_SSH_HOSTKEYDATA, this);
}

void CurlConnection::setCallbacks()
{
  curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, errorText_.data());
  curl_easy_setopt(easy_, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(easy_, CURLOPT_DEBUGFUNCTION, onDebug);
  curl_easy_setopt(easy_, CURLOPT_DEBUGDATA, this);
  curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, onData);
  curl_easy_setopt(easy_, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy_, CURLOPT_READFUNCTION, onRead);
  curl_easy_setopt(easy_, CURLOPT_READDATA, this);
  curl_easy_setopt(easy_, CURLOPT_RESOLVER_START_FUNCTION, onResolve);
  curl_easy_setopt(easy_, CURLOPT_RESOLVER_START_DATA, this);
  curl_easy_setopt(easy_, CURLOPT_OPENSOCKETFUNCTION, onOpenSocket);
  curl_easy_setopt(easy_, CURLOPT_OPENSOCKETDATA, this);
  curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETFUNCTION, onCloseSocket);
  curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETDATA, this);
  curl_easy_setopt(easy_, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(easy_, CURLOPT_XFERINFOFUNCTION, onProgress);
  curl_easy_setopt(easy_, CURLOPT_XFERINFODATA, this);
}

void CurlConnection::setKind(const Transfer& transfer)
{
  switch (transfer.kind) {
  case TransferKind::Nothing:
    curl_easy_setopt(easy_, CURLOPT_NOBODY, 1L);
    break;
  case TransferKind::List:
    if (!transfer.listCommand.empty())
      curl_easy_setopt(easy_, CURLOPT_CUSTOMREQUEST, transfer.listCommand.c_str());
    break;
  case TransferKind::Upload:
    curl_easy_setopt(easy_, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy_, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(transfer.size));
    break;
  case TransferKind::Size:
    // Reading on from the end gives nothing where the file has just this size.
    curl_easy_setopt(easy_, CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(transfer.size));
    break;
  }
}

/// The library can hold an answer back that it has read already, and then no socket wakes it: the first sleeps are short.
CURLcode CurlConnection::drive()
{
  int running = 1;
  int sleepMs = 0;
  while (true) {
    moved_ = false;
    if (curl_multi_perform(multi_, &running) != CURLM_OK)
      return CURLE_FAILED_INIT;
    if (running == 0)
      break;
    if (sockets_.isCancelled())
      return CURLE_ABORTED_BY_CALLBACK;
    sleepMs = moved_ ? 0 : std::clamp(sleepMs * 2, kShortestSleepMs, kLongestSleepMs);
    curl_multi_poll(multi_, nullptr, 0, sleepMs, nullptr);
  }
  int left = 0;
  const CURLMsg* const message = curl_multi_info_read(multi_, &left);
  return message == nullptr ? CURLE_FAILED_INIT : message->data.result;
}

CURLcode CurlConnection::perform(const Transfer& transfer)
{
  const CommandList before(transfer.before), after(transfer.after);
  curl_easy_reset(easy_);
  errorText_[0] = '\0';
  setAddress(transfer);
  setSecurity();
  setCallbacks();
  setKind(transfer);
  curl_easy_setopt(easy_, CURLOPT_QUOTE, before.get());
  curl_easy_setopt(easy_, CURLOPT_POSTQUOTE, after.get());
  curl_multi_add_handle(multi_, easy_);
  const CURLcode ending = sockets_.isCancelled() ? CURLE_ABORTED_BY_CALLBACK : drive();
  curl_multi_remove_handle(multi_, easy_);
  return ending;
}

/// Only what the server said can hold the password. In a text of our own the gap would tell it.
std::string CurlConnection::explanation(int code) const
{
  if (isServersWord(code, talk_))
    return outcome_.words;
  const auto words = wordsFor(code);
  return words ? textOf(*words, Sprache_, {address_.host}) : shownText(errorText_.data(), address_.password);
}

TransferOutcome CurlConnection::runOnce(const Transfer& transfer)
{
  outcome_ = {};
  talk_.begin();
  shown_.clear();
  mayConnect_ = transfer.mayConnect;
  if (transfer.kind == TransferKind::Upload) {
    upload_ = std::ifstream(files::nativePath(transfer.file), std::ios::binary);
    if (!upload_)
      throw base::Error(base::ErrorNumber::PathFileAccess, textOf(Words::FileUnreadable, Sprache_, {transfer.file}));
  }
  const CURLcode ending = perform(transfer);
  upload_.close();
  outcome_.words = shownText(base::decodeText(talk_.last().text), address_.password);
  outcome_.lacksRoom = tellsOfNoRoom(ending, talk_);
  if (ending == CURLE_OK) {
    char* path = nullptr;
    if (curl_easy_getinfo(easy_, CURLINFO_FTP_ENTRY_PATH, &path) == CURLE_OK && path != nullptr && *path != '\0')
      loginDirectory_ = path;
  } else {
    outcome_.code = sockets_.isCancelled() ? code::kCancelled : codeOfEnding(ending, talk_);
    outcome_.info = explanation(outcome_.code);
  }
  outcome_.replies = talk_.take();
  return std::move(outcome_);
}

TransferOutcome CurlConnection::run(const Transfer& transfer)
{
  auto ended = runOnce(transfer);
  if (ended.code != code::kNotTrusted || shown_.empty() || shown_ == trusted_)
    return ended;
  const bool isHostKey = isSftp(address_);
  const auto problem = isHostKey ? "" : shownText(errorText_.data(), address_.password);
  const auto fingerprint = shown_;
  if (!events_.trusts({address_.server(), fingerprint, problem, isHostKey}))
    return ended;
  trusted_ = fingerprint;
  return runOnce(transfer);
}

void CurlConnection::cancel()
{
  sockets_.cancel();
  // Wakes the library also where it waits for an answer by itself.
  curl_multi_wakeup(multi_);
}

} // namespace
} // namespace mrd::ftp

extern "C" __attribute__((visibility("default"))) mrd::ftp::Connection* mrd_connection(const mrd::ftp::Address& address,
                                                                                       mrd::ftp::ConnectionEvents events)
{
  return std::make_unique<mrd::ftp::CurlConnection>(address, std::move(events)).release();
}
