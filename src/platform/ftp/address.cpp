#include "platform/ftp/address.h"

#include "base/format.h"
#include "base/text.h"
#include "platform/ftp/client.h"
#include "platform/ftp/explanations.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace mrd::ftp {
namespace {

struct Scheme {
  /// As a user writes it.
  std::string_view typed;
  /// As addresses carry it: there "ftp" is what no scheme stands for.
  std::string_view carried;
  Protocol protocol;
  int port;
};

constexpr std::array kSchemes{
    Scheme{"", "ftp", Protocol::FtpTryTls, 21},
    Scheme{"ftp", "ftp+plain", Protocol::FtpPlain, 21},
    Scheme{"ftpes", "ftpes", Protocol::FtpExplicitTls, 21},
    Scheme{"ftps", "ftps", Protocol::FtpImplicitTls, 990},
    Scheme{"sftp", "sftp", Protocol::Sftp, 22},
};
constexpr std::string_view kSeparator = "://";

bool isPlain(char c)
{
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '.' || c == '_' ||
         c == '~';
}

int digit(char c)
{
  if (c >= '0' && c <= '9')
    return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string unescaped(std::string_view text)
{
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '%' && i + 2 < text.size() && digit(text[i + 1]) >= 0 && digit(text[i + 2]) >= 0;
    out += isEscape ? static_cast<char>(digit(text[i + 1]) * 16 + digit(text[i + 2])) : text[i];
    i += isEscape ? 2 : 0;
  }
  return out;
}

[[noreturn]] void refuse(std::string_view Sprache)
{
  // The text is not quoted: it may hold a password.
  throw clientError(static_cast<int>(base::ErrorNumber::InvalidCall), textOf(Words::InvalidAddress, Sprache));
}

bool holdsControl(std::string_view text)
{
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7f; });
}

/// Splits "host", "host:port" or "[::1]:port".
void readHost(std::string_view text, Address& address, std::string_view Sprache)
{
  const std::size_t closing = text.starts_with('[') ? text.find(']') : 0;
  if (closing == std::string_view::npos)
    refuse(Sprache);
  const std::size_t colon = text.find(':', closing);
  address.host = text.starts_with('[') ? text.substr(1, closing - 1) : text.substr(0, colon);
  if (colon != std::string_view::npos) {
    const auto port = text.substr(colon + 1);
    const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), address.port);
    if (error != std::errc() || end != port.data() + port.size() || address.port < 1 || address.port > 65535)
      refuse(Sprache);
  }
  for (const char c : address.host)
    if (static_cast<unsigned char>(c) <= ' ' || c == '/' || c == '@' || c == '%' || c == '\\')
      refuse(Sprache);
  if (address.host.empty())
    refuse(Sprache);
}

} // namespace

std::string Address::server() const { return base::format("{}:{}", host, port); }

std::string escaped(std::string_view text)
{
  std::string out;
  for (const char c : text)
    out += isPlain(c) ? std::string(1, c) : base::format("%{:02X}", static_cast<unsigned char>(c));
  return out;
}

std::string escapedPath(std::string_view path)
{
  std::string out;
  while (true) {
    const auto slash = path.find('/');
    out += escaped(path.substr(0, slash));
    if (slash == std::string_view::npos)
      return out;
    out += '/';
    path.remove_prefix(slash + 1);
  }
}

std::string addressOf(std::string_view server, std::string_view user, std::string_view password)
{
  std::string text = base::trim(server);
  std::string_view typed;
  std::string_view host = text;
  if (const auto at = text.find(kSeparator); at != std::string::npos) {
    typed = host.substr(0, at);
    host.remove_prefix(at + kSeparator.size());
  }
  host = host.substr(0, host.find('/'));
  // An unknown scheme is carried along and refused when a command meets it.
  std::string carried(typed);
  for (const auto& scheme : kSchemes)
    if (base::lower(typed) == scheme.typed)
      carried = scheme.carried;
  return carried + std::string(kSeparator) + escaped(user) + ":" + escaped(password) + "@" + std::string(host);
}

Address parseAddress(std::string_view url, std::string_view Sprache)
{
  const auto separator = url.find(kSeparator);
  const auto at = url.rfind('@');
  if (separator == std::string_view::npos || at == std::string_view::npos || at < separator)
    refuse(Sprache);
  Address address;
  bool isKnown = false;
  for (const auto& scheme : kSchemes)
    if (url.substr(0, separator) == scheme.carried) {
      address.protocol = scheme.protocol;
      address.port = scheme.port;
      isKnown = true;
    }
  const auto login = url.substr(separator + kSeparator.size(), at - separator - kSeparator.size());
  const auto colon = login.find(':');
  if (!isKnown || colon == std::string_view::npos)
    refuse(Sprache);
  address.user = unescaped(login.substr(0, colon));
  address.password = unescaped(login.substr(colon + 1));
  // They go out in a line each: what followed a line end would be a command of its own.
  if (holdsControl(address.user) || holdsControl(address.password))
    refuse(Sprache);
  readHost(url.substr(at + 1), address, Sprache);
  return address;
}

} // namespace mrd::ftp
