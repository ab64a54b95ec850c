#pragma once
// The writing side of the pipe.

#include "platform/dao/jet_wire.h"

#include <string_view>

namespace mrd::jetreader {

/// Each ends the process when nobody listens any more.
void put(dao::wire::Record record);
void put(dao::wire::Field field);
/// The lowest byte first.
void putNumber(std::uint64_t number, int bytes);
/// Behind its length in bytes, a number of four.
void putText(std::string_view text);
/// A record LeftOut; the first thousand, more tell nobody anything.
void leaveOut(std::string_view what);

} // namespace mrd::jetreader
