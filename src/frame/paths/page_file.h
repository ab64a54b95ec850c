#pragma once
// What the file of a page is called, and the address before it in links from outside of the site.

#include <string>
#include <string_view>

namespace mrd::paths {

/// The file name pattern of a page that was given none: its number.
inline constexpr std::string_view kDefaultPattern = "*.htm";

/// What the links to a page name: its pattern, kDefaultPattern for an empty one, with `id` for every "*". An address of the web
/// in the place of a pattern stays one.
std::string fileOfPattern(std::string_view pattern, std::string_view id);
/// The pattern of the file that a run writes for a page. One whose pattern is an address of the web is linked there, and still
/// has a file of its own, named by its number. What begins with "http" in these letters counts as an address.
std::string_view writtenPattern(std::string_view pattern);

/// The site's address as it stands before links: with "/" at its end, and with "http://" before it unless it begins with "http"
/// in any letters.
std::string basislinkOf(std::string_view tbbasisurl);

} // namespace mrd::paths
