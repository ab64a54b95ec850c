#pragma once
// What every generation run prepares and leaves behind, whatever the layout: directories, the file register, the files that pages
// refer to, the selection of pages, the date of the run.

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "frame/project/file_register.h"
#include "platform/dao/database.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrd::generator {

/// The page selection of a run.
struct Selection {
  /// "#" for all pages, else the id of the one page of a preview.
  std::string Lblseitenvorschauid = "#";
  /// Only the homepage and pages that were changed since the last run.
  bool opneue = false;

  bool isPreview() const { return Lblseitenvorschauid != "#"; }
};

/// The statement that selects a run's pages, `order` included for a run that is no preview ("changingdate DESC, ID").
/// Throws base::Error (TypeMismatch) when `lastgendate` is no date.
struct PageQuery {
  std::string sql;
  dao::Parameters parameters;
};
PageQuery pageQuery(const Selection& selection, const std::optional<std::string>& lastgendate, std::string_view order);

/// Whether a file name names a file inside the directory that it is written into: not empty, no separator, no drive, not "." or
/// "..".
bool staysInDirectory(std::string_view fileName);

/// Copies what a site needs beside its pages from the program directory into the export directory, and enters it.
class SiteFiles {
public:
  SiteFiles(const paths::ProgramFiles& program, std::string exportpfad, project::FileRegister& fileRegister)
      : program_(program), exportpfad_(std::move(exportpfad)), register_(fileRegister)
  {
  }

  /// The banner, from either place of the program directory; none is no failure.
  void bringBanner() { bringPicture("mrdbanner.gif"); }
  /// A picture of a layout, from either place of the program directory, into `pix`; false when it is in neither.
  bool bringPicture(std::string_view name);
  /// The page-turn and shop scripts that are there.
  void bringScripts();
  /// False when it is in neither directory.
  bool bringPopupPage();
  /// The program directory's copy replaces an older one.
  void bringPictureTransferScript();

private:
  bool isInExport(std::string_view name) const { return paths::datei_vorhanden(exportpfad_ + std::string(name)); }
  bool copyFromProgram(std::string_view programFile, std::string_view name);
  void enter(std::string_view name, project::Dateityp type) { register_.dateiindatenbank(exportpfad_ + std::string(name), type); }
  bool bringPageFile(std::string_view name);

  const paths::ProgramFiles& program_;
  std::string exportpfad_;
  project::FileRegister& register_;
};

/// Value of a setting of the project; nothing without the row or for Null.
std::optional<std::string> readSetting(dao::Database& db, std::string_view key);
/// Stores the moment of a run in `lastgendate`.
void writeLastGenDate(dao::Database& db, const base::DateTime& now);

} // namespace mrd::generator
