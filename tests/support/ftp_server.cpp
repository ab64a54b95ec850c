#include "support/ftp_server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace mrd::support {
namespace {

/// The system's own: the servers are modules of its packages.
constexpr auto kPython = "/usr/bin/python3";

std::string readLine(int descriptor)
{
  std::string line;
  char c = 0;
  while (true) {
    const auto count = ::read(descriptor, &c, 1);
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0 || c == '\n')
      return line;
    line += c;
  }
}

/// The value of a key in one flat line of JSON; the servers' values need the escape of characters beyond ASCII only.
std::string valueOf(const std::string& json, const std::string& key)
{
  const auto at = json.find("\"" + key + "\": ");
  if (at == std::string::npos)
    throw std::runtime_error("the server did not start");
  auto rest = json.substr(at + key.size() + 4);
  if (rest.front() != '"')
    return rest.substr(0, rest.find_first_of(",}"));
  rest = rest.substr(1, rest.find('"', 1) - 1);
  for (auto escape = rest.find("\\u00df"); escape != std::string::npos; escape = rest.find("\\u00df"))
    rest.replace(escape, 6, "ß");
  return rest;
}

} // namespace

FtpServer::FtpServer(const std::string& kind, const std::vector<std::string>& faults)
{
  std::array<int, 2> in{}, out{};
  if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("no pipe");
  std::vector<std::string> words{kPython, std::string(MRD_SOURCE_DIR) + "/tests/support/ftp_server.py",
                                 kind,    root_.native().string(),
                                 "--log", (work_.native() / "log").string()};
  for (const auto& fault : faults) {
    words.emplace_back("--fault");
    words.push_back(fault);
  }
  std::vector<char*> arguments;
  for (auto& word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  process_ = ::fork();
  if (process_ == 0) {
    ::dup2(in[0], STDIN_FILENO);
    ::dup2(out[1], STDOUT_FILENO);
    ::execv(kPython, arguments.data());
    ::_exit(127);
  }
  ::close(in[0]);
  ::close(out[1]);
  input_ = in[1];
  const auto line = readLine(out[0]);
  ::close(out[0]);
  port_ = std::stoi(valueOf(line, "port"));
  user_ = valueOf(line, "user");
  password_ = valueOf(line, "password");
  directory_ = valueOf(line, "directory");
  home_ = valueOf(line, "home");
}

FtpServer::~FtpServer() { stop(); }

void FtpServer::stop()
{
  if (process_ < 0)
    return;
  ::close(input_);
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = -1;
}

std::vector<std::string> FtpServer::log() const
{
  std::vector<std::string> lines;
  std::istringstream text(work_.read("log"));
  for (std::string line; std::getline(text, line);)
    lines.push_back(line);
  return lines;
}

int FtpServer::count(std::string_view command) const
{
  const auto lines = log();
  return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const auto& line) { return line.starts_with(command); }));
}

} // namespace mrd::support
