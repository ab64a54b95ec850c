#include "platform/dao/jet_process.h"

#include "base/errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace mrd::dao {
namespace {

constexpr int kNoProgram = 127;
constexpr rlim_t kMemory = rlim_t{1} << 30, kProcessorSeconds = 60;
/// The sanitizer's bookkeeping takes address space beyond any limit.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasShadowMemory = true;
#elif defined(__has_feature)
constexpr bool kHasShadowMemory = __has_feature(address_sanitizer);
#else
constexpr bool kHasShadowMemory = false;
#endif
/// What grows with the file.
struct Bounds {
  /// What it can hold at most as records: a chain of pieces that runs in a ring could fill a disk.
  std::uint64_t bytes;
  std::uint64_t moreSeconds;
};

constexpr Bounds boundsFor(std::uint64_t fileSize)
{
  constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
  return {64 * kMegabyte + 16 * fileSize, fileSize / kMegabyte};
}

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
void restrainChild(rlim_t processorSeconds)
{
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if constexpr (!kHasShadowMemory)
    limit(RLIMIT_AS, kMemory);
  limit(RLIMIT_CPU, processorSeconds);
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_FSIZE, 0);
}

} // namespace

JetProcess::JetProcess(const std::filesystem::path& file, const JetReading& reading)
{
  std::error_code failure;
  const auto size = std::filesystem::file_size(file, failure);
  const Bounds bounds = boundsFor(failure ? 0 : size);
  deadline_ = Clock::now() + reading.wallTime + std::chrono::seconds(bounds.moreSeconds);
  mostBytes_ = bounds.bytes;
  start(reading.program.c_str(), file.c_str(), kProcessorSeconds + bounds.moreSeconds);
}

JetProcess::~JetProcess() { end(); }

void JetProcess::start(const char* program, const char* file, std::uint64_t processorSeconds)
{
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    fail("Das Leseprogramm konnte nicht gestartet werden.");
  auto environment = environmentOfReader();
  std::array<char*, 3> arguments{const_cast<char*>(program), const_cast<char*>(file), nullptr};
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  child_ = ::fork();
  if (child_ == 0) {
    restrainChild(processorSeconds);
    // What the library complains about in a damaged file can be endless.
    const bool ready =
        ::dup2(nothing, STDIN_FILENO) >= 0 && ::dup2(nothing, STDERR_FILENO) >= 0 && ::dup2(ends[1], STDOUT_FILENO) >= 0;
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

void JetProcess::waitForBytes()
{
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
    pollfd waiting{pipe_, POLLIN, 0};
    const int ready = left > 0 ? ::poll(&waiting, 1, static_cast<int>(left)) : 0;
    if (ready < 0 && errno == EINTR)
      continue;
    if (ready <= 0)
      fail("Die Datei ist beschädigt: Das Lesen findet kein Ende.");
    return;
  }
}

std::size_t JetProcess::read(char* target, std::size_t count)
{
  for (;;) {
    waitForBytes();
    const auto got = ::read(pipe_, target, count);
    if (got < 0 && errno == EINTR)
      continue;
    if (got <= 0)
      failAtEnd();
    received_ += static_cast<std::size_t>(got);
    if (received_ > mostBytes_)
      fail("Die Datei ist beschädigt: Das Lesen findet kein Ende.");
    return static_cast<std::size_t>(got);
  }
}

} // namespace mrd::dao
