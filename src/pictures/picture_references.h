#pragma once
// Local references to pictures in a text of HTML, by their places.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pictures {

struct PictureReference {
  /// The reference in the text, without what stands around it in a script's call.
  std::size_t begin = 0, end = 0;
  /// Whether a blank in its place would end the value.
  bool endsAtBlank = false;
  /// The reference with its character references read, and the path that it means, in the system's form.
  std::string written, path;
};

/// In the order of the text: images, backgrounds, links to pictures, and `file:` references to pictures anywhere in attributes.
/// References to the web and with other schemes are none.
std::vector<PictureReference> pictureReferences(std::string_view html);

/// Whether the path begins at a root, a drive or a server.
bool isAbsolutePath(std::string_view path);

} // namespace mrd::pictures
