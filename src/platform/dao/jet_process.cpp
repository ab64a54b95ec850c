#include "platform/dao/jet_process.h"

#include "base/errors.h"
#include "platform/dao/jet_wire.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mrd::dao {
namespace {

constexpr int kNoProgram = 127;
constexpr rlim_t kMemory = rlim_t{1} << 30, kProcessorSeconds = 60;
/// More than the largest file of the format can hold.
constexpr std::uint64_t kMostBytes = std::uint64_t{6} << 30;
/// Variables that change how the library reads.
constexpr std::array<std::string_view, 4> kForeignSettings{"MDBICONV=", "MDBOPTS=", "MDB_JET3_CHARSET=", "MDBPATH="};

[[noreturn]] void fail(const std::string& reason) { throw base::Error(base::ErrorNumber::NotADatabase, reason); }

std::vector<char*> environmentOfReader()
{
  std::vector<char*> out;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    if (std::none_of(kForeignSettings.begin(), kForeignSettings.end(), [&](auto name) { return text.starts_with(name); }))
      out.push_back(*entry);
  }
  out.push_back(nullptr);
  return out;
}

void limit(int resource, rlim_t value)
{
  const rlimit bounds{value, value};
  ::setrlimit(static_cast<__rlimit_resource>(resource), &bounds);
}

/// Between fork and exec only calls that are safe after a fork in a program with threads.
void restrainChild()
{
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#ifndef __SANITIZE_ADDRESS__
  limit(RLIMIT_AS, kMemory); // the sanitizer's shadow memory would not fit
#endif
  limit(RLIMIT_CPU, kProcessorSeconds);
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_FSIZE, 0);
}

} // namespace

JetProcess::JetProcess(const std::filesystem::path& file, const JetReading& reading) : deadline_(Clock::now() + reading.wallTime)
{
  start(reading.program.c_str(), file.c_str());
}

JetProcess::~JetProcess() { end(); }

void JetProcess::start(const char* program, const char* file)
{
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    fail("Das Leseprogramm konnte nicht gestartet werden.");
  auto environment = environmentOfReader();
  std::array<char*, 3> arguments{const_cast<char*>(program), const_cast<char*>(file), nullptr};
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  child_ = ::fork();
  if (child_ == 0) {
    restrainChild();
    // What the library complains about in a damaged file can be endless.
    const bool ready = ::dup2(nothing, STDIN_FILENO) >= 0 && ::dup2(nothing, STDERR_FILENO) >= 0 && ::dup2(ends[1], STDOUT_FILENO) >= 0;
    if (ready)
      ::execve(program, arguments.data(), environment.data());
    ::_exit(kNoProgram);
  }
  ::close(nothing);
  ::close(ends[1]);
  pipe_ = ends[0];
  if (child_ < 0) {
    end();
    fail("Das Leseprogramm konnte nicht gestartet werden.");
  }
}

void JetProcess::end()
{
  if (pipe_ >= 0)
    ::close(std::exchange(pipe_, -1));
  if (child_ <= 0)
    return;
  ::kill(child_, SIGKILL);
  while (::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
}

void JetProcess::failAtEnd()
{
  int status = 0;
  while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) {
  }
  child_ = -1;
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNoProgram)
    fail("Das Leseprogramm für alte Datenbanken (mrd-jet-reader) fehlt.");
  fail("Die Datei ist beschädigt und kann nicht gelesen werden.");
}

void JetProcess::fill()
{
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
  pollfd waiting{pipe_, POLLIN, 0};
  const int ready = left > 0 ? ::poll(&waiting, 1, static_cast<int>(left)) : 0;
  if (ready < 0 && errno == EINTR)
    return;
  if (ready <= 0)
    fail("Die Datei ist beschädigt: Das Lesen findet kein Ende.");
  const auto count = ::read(pipe_, buffer_.data(), buffer_.size());
  if (count < 0 && errno == EINTR)
    return;
  if (count <= 0)
    failAtEnd();
  begin_ = 0;
  end_ = static_cast<std::size_t>(count);
  received_ += end_;
  if (received_ > kMostBytes)
    fail("Die Datei ist beschädigt: Das Lesen findet kein Ende.");
}

void JetProcess::take(char* target, std::size_t count)
{
  while (count > 0) {
    if (begin_ == end_) {
      fill();
      continue;
    }
    const auto part = std::min(count, end_ - begin_);
    std::memcpy(target, buffer_.data() + begin_, part);
    begin_ += part;
    target += part;
    count -= part;
  }
}

std::uint64_t JetProcess::number(std::size_t bytes)
{
  std::array<unsigned char, 8> raw{};
  take(reinterpret_cast<char*>(raw.data()), bytes);
  std::uint64_t out = 0;
  for (std::size_t i = bytes; i-- > 0;)
    out = out << 8 | raw[i];
  return out;
}

std::string JetProcess::text()
{
  const auto length = number(4);
  if (length > wire::kLongestText)
    fail("Die Datei ist beschädigt: Ein Text ist zu lang.");
  // Grows with what really comes.
  std::string out;
  while (out.size() < length) {
    const auto old = out.size();
    out.resize(std::min<std::size_t>(length, old + buffer_.size()));
    take(out.data() + old, out.size() - old);
  }
  return storedText(out);
}

void JetProcess::greeting()
{
  std::string start(wire::kGreeting.size(), '\0');
  take(start.data(), start.size());
  if (start != wire::kGreeting)
    fail("Das Leseprogramm für alte Datenbanken gehört zu einer anderen Version.");
}

} // namespace mrd::dao
