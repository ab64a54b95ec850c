#pragma once
// What servers answer to a request for a directory's content, as plain names.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::ftp {

enum class ListingForm {
  /// Facts, a blank and the name (RFC 3659).
  Facts,
  /// Columns for people, as the servers of Unix and DOS systems write them.
  Columns,
};

struct ListingEntry {
  std::string name;
  bool isDirectory = false;
  /// What it leads to, a file or a directory, is not known.
  bool isLink = false;
  bool operator==(const ListingEntry&) const = default;
};

/// The entries of a listing, in its order. The directory itself and its parent are left out, and so is what can be no name in a
/// directory: with a separator or a control character in it. Bytes that are not UTF-8 are read as Windows-1252.
std::vector<ListingEntry> parseListing(std::string_view text, ListingForm form);

/// One entry a line, each ended by CR LF; a "/" behind the name of a directory.
std::string asLines(const std::vector<ListingEntry>& entries);
/// The names of the symbolic links.
std::vector<std::string> linksOf(const std::vector<ListingEntry>& entries);

} // namespace mrd::ftp
