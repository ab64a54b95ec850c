// Any bytes are a layout that a user has put into the program directory: it is a layout or it is none, and what is one becomes a
// page.

#include "fuzz_file.h"
#include "generator/templates/xml_layout.h"

using namespace mrd;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static const fuzz::InputFile file("layout.xml");
  file.write(data, size);

  const auto folder = templates::readLayoutFolder(file.directory());
  fuzz::require(folder.hasFiles);
  fuzz::require(folder.layouts.size() + folder.malformed.size() <= 1);

  templates::Template root;
  const bool isLoaded = templates::LadeAusDatei(root, file.path());
  fuzz::require(isLoaded == folder.malformed.empty());
  return 0;
}
