#pragma once
// The encoding of the files that browsers read without a charset declaration.

#include <string>
#include <string_view>

namespace mrd::base {

/// Windows-1252 bytes; a character that the encoding lacks becomes a decimal character reference ("&#9829;").
std::string toWindows1252(std::string_view utf8);
/// The same, appended to `out`: pages are assembled in one reused buffer.
void appendWindows1252(std::string& out, std::string_view utf8);

/// UTF-8 of Windows-1252 bytes, by the table of https://encoding.spec.whatwg.org/#windows-1252 (every byte has a character).
std::string fromWindows1252(std::string_view bytes);

/// UTF-8 of a plain text file's bytes: as they are when they are valid UTF-8 (a byte order mark dropped), else from Windows-1252.
std::string decodeText(std::string_view bytes);

} // namespace mrd::base
