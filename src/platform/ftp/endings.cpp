#include "platform/ftp/endings.h"

#include "platform/ftp/client.h"

#include <algorithm>
#include <array>
#include <curl/curl.h>

namespace mrd::ftp {
namespace {

struct CodeOfEnding {
  CURLcode ending;
  int code;
};

/// Endings that are no refusal by the server. Whatever is not listed leaves the connection in doubt.
constexpr std::array kCodes{
    CodeOfEnding{CURLE_COULDNT_RESOLVE_HOST, code::kHostNotFound},
    CodeOfEnding{CURLE_COULDNT_CONNECT, code::kCannotConnect},
    CodeOfEnding{CURLE_OPERATION_TIMEDOUT, code::kTimedOut},
    CodeOfEnding{CURLE_LOGIN_DENIED, code::kLoginDenied},
    CodeOfEnding{CURLE_PEER_FAILED_VERIFICATION, code::kNotTrusted},
    CodeOfEnding{CURLE_USE_SSL_FAILED, code::kNoEncryption},
    CodeOfEnding{CURLE_SSL_CONNECT_ERROR, code::kNoEncryption},
    CodeOfEnding{CURLE_ABORTED_BY_CALLBACK, code::kCancelled},
    CodeOfEnding{CURLE_QUOTE_ERROR, code::kRefused},
    CodeOfEnding{CURLE_UPLOAD_FAILED, code::kRefused},
    CodeOfEnding{CURLE_REMOTE_DISK_FULL, code::kRefused},
    CodeOfEnding{CURLE_REMOTE_ACCESS_DENIED, code::kRefused},
    CodeOfEnding{CURLE_REMOTE_FILE_NOT_FOUND, code::kRefused},
    CodeOfEnding{CURLE_REMOTE_FILE_EXISTS, code::kRefused},
    CodeOfEnding{CURLE_FTP_COULDNT_RETR_FILE, code::kRefused},
    CodeOfEnding{CURLE_BAD_DOWNLOAD_RESUME, code::kNotConfirmed},
    CodeOfEnding{CURLE_WRITE_ERROR, code::kTooLong},
};

} // namespace

int codeOfEnding(int ending, const Talk& talk)
{
  const auto* const known = std::find_if(kCodes.begin(), kCodes.end(), [&](const CodeOfEnding& c) { return c.ending == ending; });
  const int number = known == kCodes.end() ? code::kConnectionLost : known->code;
  const Reply last = talk.last();
  if (last.isGoodbye())
    return last.command.empty() ? code::kCannotConnect : code::kConnectionLost;
  // What the server refuses behind a complete transfer, for example because its disk is full, is no loss of the connection.
  if (number == code::kConnectionLost && last.isRefused())
    return code::kRefused;
  // A data connection that is not encrypted for once says nothing of the server, who was able to before.
  if (number == code::kNoEncryption && talk.isBehindLogin())
    return code::kConnectionLost;
  return number;
}

bool tellsOfNoRoom(int ending, const Talk& talk)
{
  constexpr int kNoRoom = 452, kNoQuota = 552;
  const int last = talk.last().last;
  return ending == CURLE_REMOTE_DISK_FULL || last == kNoRoom || last == kNoQuota;
}

bool isServersWord(int code, const Talk& talk)
{
  return (code == code::kRefused || code == code::kLoginDenied) && talk.last().isRefused();
}

} // namespace mrd::ftp
