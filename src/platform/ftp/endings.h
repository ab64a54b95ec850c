#pragma once
// What the end of a transfer means: from the library's number and the server's last word to the numbers of a client.

#include "platform/ftp/replies.h"

namespace mrd::ftp {

/// `ending` is the library's number for a failure.
int codeOfEnding(int ending, const Talk& talk);

/// Whether the server has no room, or allows no more. "452" and "552" of FTP, or their like.
bool tellsOfNoRoom(int ending, const Talk& talk);

/// Whether the server's last answer explains a failure of this number.
bool isServersWord(int code, const Talk& talk);

} // namespace mrd::ftp
