#pragma once
// Pictures and links of a finished page that is text: found by the letters "src" and "href", wherever they stand.

#include "frame/paths/paths.h"
#include "frame/project/file_register.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace mrd::generator {

class TextPictures {
public:
  /// `tbbasisurl` gets a "/" at its end with the first link that takes it.
  TextPictures(const paths::ProgramFiles& program, std::string exportpfad, project::FileRegister& fileRegister,
               std::string& tbbasisurl)
      : program_(program), exportpfad_(std::move(exportpfad)), register_(fileRegister), tbbasisurl_(tbbasisurl)
  {
  }

  /// Both passes: pictures, then links. Copies and enters what is referred to; each new value stands behind `basislink`.
  std::string HTMBilderAnpassen(std::string_view text, std::string_view basislink);

private:
  std::string pictureValue(std::string_view value, std::string_view basislink);
  std::string linkValue(std::string_view value, std::string_view basislink);
  std::string bringPicture(std::string_view value);
  bool bringFromLayout(std::string_view fileName) const;

  const paths::ProgramFiles& program_;
  const std::string exportpfad_;
  project::FileRegister& register_;
  std::string& tbbasisurl_;
  /// New references of the values whose copies were there when they were met: nothing is left to be done for them, and a menu
  /// brings the same picture with each of its rows.
  std::map<std::string, std::string, std::less<>> settled_;
};

} // namespace mrd::generator
