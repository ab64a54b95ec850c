#pragma once
// What the end of a transfer means: from the library's number and the server's last word to the numbers of a client.

#include "platform/ftp/replies.h"

#include <string_view>

namespace mrd::ftp {

/// `ending` is the library's number for a failure.
int codeOfEnding(int ending, const Talk& talk);

/// Whether the server has no room, or allows no more. "452" and "552" of FTP, or their like.
bool tellsOfNoRoom(int ending, const Talk& talk);

/// The server's own words for a failure of this number; empty where it said nothing about it.
std::string_view serversWord(int code, const Talk& talk);

} // namespace mrd::ftp
