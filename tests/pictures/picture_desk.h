#pragma once
// A project with an export directory and a folder of photographs, for tests of what is done with pictures.

#include "frame/settings/fields.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/image/image.h"
#include "support/temporary.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace mrd::pictures {

inline std::string sample(const std::string& name)
{
  return files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "pictures" / name);
}

inline int distance(image::Colour a, image::Colour b)
{
  return std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

struct PictureDesk {
  PictureDesk()
  {
    for (const char* name : {"export", "export\\pix", "export\\imode", "export\\imode\\pix", "fotos"})
      files::makeDirectory(directory.file(name));
    fields.tbpfadexport = directory.file("export\\");
  }

  /// A photograph of this size in the folder; its upper left pixel has the colour.
  std::string photo(const std::string& name, int width, int height, image::Colour colour = {40, 80, 160}) const
  {
    auto picture = image::Image::create(width, height);
    picture.fill(colour);
    picture.saveJpeg(fotos() + name, 2);
    return fotos() + name;
  }
  std::string fotos() const { return directory.file("fotos\\"); }
  std::string pix(const std::string& name = {}) const { return directory.file("export\\pix\\" + name); }
  std::vector<std::string> pixNames() const { return files::fileNames(pix()); }

  support::TemporaryDirectory directory;
  settings::Fields fields;
};

} // namespace mrd::pictures
