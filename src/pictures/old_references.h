#pragma once
// References to pictures that lead to another machine, in a project that came from there.

#include "pictures/picture_folder.h"
#include "platform/dao/database.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pictures {

/// A picture that a page refers to and that is nowhere.
struct MissingPicture {
  /// The page's number, or the key of a setting.
  std::string place;
  /// The reference as it is read there.
  std::string reference;
};

struct TurnedReferences {
  /// References that lead to this machine now, and files that were copied for them.
  std::size_t turned = 0, copied = 0;
  /// Each once.
  std::vector<MissingPicture> missing;
  /// Pictures that were found and could not be copied, each with the reason.
  std::vector<std::string> failed;
};

/// Whether there are references that neither lead to a file of this machine nor have their picture in `pix` of the export
/// directory (with a separator at its end).
bool needPictureFolder(dao::Database& db, std::string_view exportPath);

/// Copies what `folder` has into `pix`, and turns the references to it, in one transaction: those in bodies and scripts of pages,
/// in the head and of the head picture of the i-mode edition. A reference that leads to a file of this machine stays as it is,
/// and so does one whose picture is not found; of the texts nothing but references is changed. Throws base::Error.
TurnedReferences turnOldReferences(dao::Database& db, std::string_view exportPath, const PictureFolder& folder);

} // namespace mrd::pictures
