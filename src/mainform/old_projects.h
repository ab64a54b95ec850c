#pragma once
// Projects of earlier versions on their way in, and what their user is told and asked.

#include "mainform/program.h"
#include "pictures/old_references.h"
#include "platform/dao/database.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::mainform {

class OldProjects {
public:
  explicit OldProjects(Program& program) : program_(program) {}

  /// Puts a project in the place of an old database, and says where that lies now. False, with message 106 or 107, when it cannot
  /// be read; all is as it was then. Throws base::Error (AccessDenied) for a file that cannot be written.
  bool convertInPlace(std::string_view path);
  /// The same into a new file; the old one is only read.
  bool convertTo(std::string_view jetFile, std::string_view target);

  /// Asks for what a converted project's references need on this machine, as far as it is not there: the export directory, which
  /// is stored, and a folder with pictures. Turns the references and lists what was not found.
  void askForPictures(dao::Database& db);

  /// Stores an export directory; without one the stored directory counts, or the program's own where it does not exist. Returns
  /// it with a separator at its end.
  std::string useExportPath(dao::Database& db, const std::optional<std::string>& directory);
  /// Turns references to pictures in `pix` and below `folder`, and lists what was not found: so many lines of it.
  pictures::TurnedReferences turnReferences(dao::Database& db, std::string_view exportPath, const pictures::PictureFolder& folder,
                                            std::size_t mostLines);

private:
  bool tellFailure(std::string_view path, const base::Error& error);
  void tellLeftOut(const std::vector<std::string>& leftOut);

  Program& program_;
};

} // namespace mrd::mainform
