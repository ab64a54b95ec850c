// Any bytes are what a server answers to the request for a listing: what comes of it is names, and nothing that could leave the
// directory or drive a terminal.

#include "fuzz_file.h"
#include "platform/ftp/listing.h"

#include <algorithm>
#include <string_view>

using namespace mrd;

namespace {

bool isName(std::string_view name)
{
  return !name.empty() && name != "." && name != ".." &&
         std::ranges::none_of(name, [](unsigned char letter) { return letter < ' ' || letter == 0x7f || letter == '/'; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const auto form : {ftp::ListingForm::Facts, ftp::ListingForm::Columns}) {
    const auto entries = ftp::parseListing(text, form);
    fuzz::require(std::ranges::all_of(entries, [](const auto& entry) { return isName(entry.name); }));
    const auto lines = ftp::asLines(entries);
    fuzz::require(static_cast<std::size_t>(std::ranges::count(lines, '\n')) == entries.size());
  }
  return 0;
}
