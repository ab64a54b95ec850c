#pragma once
// What the reader of old databases and the program say to each other over the pipe. Numbers are little-endian, a text is its
// length (four bytes) and its UTF-8 bytes:
//
//   greeting, then records until End or Failure, each one byte and
//   Table    name, number of columns (two bytes), for each column its name and its type as a statement writes it
//   Row      for each column of the last table a Field and its content: nothing, eight bytes, eight bytes of a double, a text
//   LeftOut  a text for the user: what could not be read
//   Failure  a text for the user: why nothing more comes

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace mrd::dao::wire {

inline constexpr std::string_view kGreeting = "mrd-jet 1\n";
enum class Record : std::uint8_t { Table = 'T', Row = 'R', LeftOut = 'L', Failure = 'F', End = 'E' };
enum class Field : std::uint8_t { Null = 0, Integer = 1, Double = 2, Text = 3 };
/// No field of a project comes near this.
inline constexpr std::size_t kLongestText = std::size_t{128} << 20;
inline constexpr std::size_t kMostColumns = 255;

} // namespace mrd::dao::wire
