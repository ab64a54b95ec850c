#include "platform/ftp/curl_client.h"

#include "platform/ftp/explanations.h"
#include "platform/ftp/session.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>

namespace mrd::ftp {
namespace {

using namespace std::chrono_literals;

/// How long StillExecuting() sleeps at most: short enough for a window to stay alive.
constexpr auto kMoment = 20ms;
constexpr auto kPatienceOfCancel = 5s;

/// A server that was not reached can be reached the next moment; these are answers that stay.
bool isFinal(int code)
{
  return code == code::kHostNotFound || code == code::kLoginDenied || code == code::kNotTrusted || code == code::kNoEncryption;
}

bool isNoWay(int code) { return code == code::kCannotConnect || code == code::kTimedOut; }

} // namespace

struct CurlClient::Worker {
  Worker(TrustDecision decision, KnownServers servers)
      : trusts(std::move(decision)), isKnown(std::move(servers)), thread([this] { work(); })
  {
  }
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  void work();
  /// Throws base::Error while a command runs.
  void prepareForCommand(std::string_view Sprache);
  void begin(Operation operation);
  SessionResult carryOut(Session& current, const Operation& operation);
  void replaceSession(Address address);
  void post(State state);
  bool ask(const ServerIdentity& identity);
  ConnectionEvents events();

  TrustDecision trusts;
  KnownServers isKnown;

  // Shared, under the lock.
  std::mutex lock;
  std::condition_variable changed;
  std::optional<Operation> job;
  bool isBusy = false, isCancelling = false, isLeaving = false;
  std::deque<State> states;
  std::optional<ServerIdentity> question;
  std::optional<bool> answer;
  SessionResult result;
  std::optional<base::Error> failure;

  /// Made and replaced by the caller's thread while nothing runs, never under the lock: a session tells of its end, and may wait.
  std::unique_ptr<Session> session;

  // The caller's alone.
  std::string url, text;
  std::size_t read = 0;
  std::set<std::string, std::less<>> links;
  /// Why no command is tried before the next login.
  std::optional<base::Error> refusal;

  /// Last: it runs as soon as it is made.
  std::thread thread;
};

CurlClient::Worker::~Worker()
{
  {
    const std::lock_guard guard(lock);
    isLeaving = true;
  }
  changed.notify_all();
  if (session)
    session->cancel();
  thread.join();
}

void CurlClient::Worker::replaceSession(Address address)
{
  if (address.protocol == Protocol::FtpTryTls && isKnown(address.server()))
    address.protocol = Protocol::FtpExplicitTls;
  // No farewell is waited for: the old server may be silent.
  if (session)
    session->cancel();
  session = makeSession(address, events());
}

void CurlClient::Worker::prepareForCommand(std::string_view Sprache)
{
  const std::lock_guard guard(lock);
  if (isBusy)
    throw clientError(code::kStillExecuting, textOf(Words::StillExecuting, Sprache));
  result = {};
  failure.reset();
}

void CurlClient::Worker::begin(Operation operation)
{
  const std::lock_guard guard(lock);
  job = std::move(operation);
  isBusy = true;
  isCancelling = false;
  changed.notify_all();
}

void CurlClient::Worker::post(State state)
{
  const std::lock_guard guard(lock);
  states.push_back(state);
}

/// The question is answered on the caller's thread, within StillExecuting().
bool CurlClient::Worker::ask(const ServerIdentity& identity)
{
  std::unique_lock guard(lock);
  answer.reset();
  question = identity;
  changed.notify_all();
  changed.wait(guard, [&] { return answer.has_value() || isCancelling || isLeaving; });
  question.reset();
  return answer.value_or(false);
}

ConnectionEvents CurlClient::Worker::events()
{
  return {[this](State state) { post(state); }, [this](const ServerIdentity& identity) { return ask(identity); }};
}

SessionResult CurlClient::Worker::carryOut(Session& current, const Operation& operation)
{
  try {
    return current.carryOut(operation);
  } catch (const base::Error& error) {
    return {error.number(), error.description()};
  } catch (const std::exception& error) {
    return {code::kConnectionLost, error.what()};
  }
}

void CurlClient::Worker::work()
{
  // A peer that is gone is told by the write itself.
  sigset_t pipes;
  sigemptyset(&pipes);
  sigaddset(&pipes, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipes, nullptr);

  std::unique_lock guard(lock);
  while (true) {
    changed.wait(guard, [&] { return job.has_value() || isLeaving; });
    if (isLeaving)
      return;
    const Operation operation = std::move(*job);
    job.reset();
    guard.unlock();
    auto ended = carryOut(*session, operation);
    guard.lock();
    result = std::move(ended);
    states.push_back(result.code == code::kNone ? State::Completed : State::Failed);
    if (isNoWay(result.code))
      failure = clientError(result.code, result.info);
    isBusy = false;
    changed.notify_all();
  }
}

CurlClient::CurlClient(TrustDecision trusts, KnownServers known)
    : worker_(std::make_unique<Worker>(std::move(trusts), std::move(known)))
{
}

CurlClient::~CurlClient() = default;

void CurlClient::Execute(std::string_view url, std::string_view operation)
{
  auto& w = *worker_;
  w.prepareForCommand(Sprache);
  const bool isSameAddress = w.session && w.url == url;
  w.text.clear();
  w.read = 0;
  if (isSameAddress && w.refusal)
    throw *w.refusal;
  auto parsed = parseOperation(operation, Sprache);
  if (!isSameAddress) {
    w.replaceSession(parseAddress(url, Sprache));
    w.url = url;
    w.refusal.reset();
  }
  w.session->resume();
  w.begin(std::move(parsed));
}

bool CurlClient::StillExecuting()
{
  auto& w = *worker_;
  std::unique_lock guard(w.lock);
  w.changed.wait_for(guard, kMoment, [&] { return !w.isBusy || w.question; });
  while (!w.states.empty()) {
    const State state = w.states.front();
    w.states.pop_front();
    guard.unlock();
    StateChanged(state);
    guard.lock();
  }
  if (w.question && !w.answer) {
    const auto question = *w.question;
    guard.unlock();
    const bool isTrusted = w.trusts(question);
    guard.lock();
    w.answer = isTrusted;
    w.changed.notify_all();
  }
  if (w.isBusy)
    return true;
  if (isFinal(w.result.code))
    w.refusal = clientError(w.result.code, w.result.info);
  if (!w.result.text.empty())
    w.text = std::exchange(w.result.text, {});
  w.links.insert(w.result.links.begin(), w.result.links.end());
  if (const auto failure = std::exchange(w.failure, std::nullopt))
    throw *failure;
  return false;
}

void CurlClient::Cancel()
{
  auto& w = *worker_;
  std::unique_lock guard(w.lock);
  if (!w.isBusy)
    return;
  w.isCancelling = true;
  w.changed.notify_all();
  guard.unlock();
  w.session->cancel();
  guard.lock();
  w.changed.wait_for(guard, kPatienceOfCancel, [&] { return !w.isBusy; });
}

std::string CurlClient::GetChunk(std::size_t size, int)
{
  auto& w = *worker_;
  std::size_t end = std::min(w.read + size, w.text.size());
  // A character of several bytes is not divided.
  while (end < w.text.size() && end > w.read && (static_cast<unsigned char>(w.text[end]) & 0xC0) == 0x80)
    --end;
  auto piece = w.text.substr(w.read, end - w.read);
  w.read = end;
  return piece;
}

bool CurlClient::isLink(std::string_view name) const { return worker_->links.contains(name); }

int CurlClient::ResponseCode() const
{
  const std::lock_guard guard(worker_->lock);
  return worker_->isBusy ? code::kNone : worker_->result.code;
}

std::string CurlClient::ResponseInfo() const
{
  const std::lock_guard guard(worker_->lock);
  return worker_->isBusy ? "" : worker_->result.info;
}

void CurlClient::backToLogin()
{
  auto& w = *worker_;
  w.refusal.reset();
  w.links.clear();
  const std::lock_guard guard(w.lock);
  if (w.session && !w.isBusy)
    w.session->backToLogin();
}

} // namespace mrd::ftp
