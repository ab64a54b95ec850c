#pragma once
// A project put together to a run of the dialog for telephones.

#include "generator/site_run.h"
#include "imode/imode.h"
#include "platform/image/image.h"

#include <string>
#include <vector>

namespace mrd::imode {

using generator::lines;

/// Has no head that all pages share.
class ImodeSite : public generator::SiteRun {
public:
  using SiteRun::SiteRun;

  generator::RunOutcome run();

  /// A file of the edition, UTF-8.
  std::string page(const std::string& file) const { return SiteRun::page("imode/" + file); }
  bool has(const std::string& file) const { return SiteRun::has("imode/" + file); }
  /// The lines between "<!-- Beginn Inhalt -->" and "<!-- Ende Inhalt -->".
  std::string body(const std::string& file) const;
  /// What stands between the homepage's line and the key line, without the line end of the print.
  std::string menu(const std::string& file) const;
  /// The key line's targets.
  std::vector<std::string> keys(const std::string& file) const;
  /// Entered pages or pictures, without the path of the edition.
  std::vector<std::string> entered(std::int64_t type);

  /// A picture file among `pictures`, written as JPEG; its path.
  std::string picture(const std::string& name, int width, int height) const;
};

/// `<img src="...">`
std::string image(std::string_view src);

} // namespace mrd::imode
