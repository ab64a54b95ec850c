#include "frame/project/jet_conversion.h"

#include "base/errors.h"
#include "base/format.h"
#include "frame/paths/paths.h"
#include "frame/project/jet_content.h"
#include "frame/project/project.h"
#include "platform/dao/database_copy.h"
#include "platform/files/path.h"
#include "platform/files/succession.h"

#include <unistd.h>

namespace mrd::project {
namespace {

using base::Error;
using base::ErrorNumber;

constexpr std::string_view kJetEnding = ".jet.mdb";

/// The project on its way: under a name beside its place, and gone when it does not get there.
class Draft {
public:
  explicit Draft(std::string_view place) : path_(std::string(place) + ".neu.tmp") { remove(); }
  ~Draft()
  {
    try {
      remove();
    } catch (const Error&) {
      // The next conversion removes it.
    }
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const std::string& path() const { return path_; }

  /// Returns what was left out.
  std::vector<std::string> write(std::string_view jetFile, const dao::JetReading& reading)
  {
    auto db = dao::Database::create(path_);
    dao::Transaction transaction(db);
    JetContent content(db);
    dao::readJetFile(jetFile, reading, content);
    content.finish(files::nativePath(jetFile).string());
    transaction.commit();
    return content.notes();
  }

private:
  void remove()
  {
    dao::removeCompanions(path_);
    files::removeLeftOver(path_);
  }

  std::string path_;
};

void checkWritable(std::string_view path)
{
  const auto native = files::nativePath(path);
  if (::access(native.c_str(), W_OK) != 0)
    throw Error(ErrorNumber::AccessDenied, base::format("Die Datei '{}' ist schreibgeschützt.", native.native()));
}

} // namespace

std::optional<Conversion> convertInPlace(std::string_view path, const dao::JetReading& reading)
{
  const auto place = files::behindLinks(path);
  checkWritable(place);
  const files::FileLock lock(place);
  if (!dao::isJetFile(place))
    return std::nullopt;
  if (!lock.isStillNamed())
    throw Error(ErrorNumber::DatabaseLocked,
                base::format("Die Datei '{}' wird gerade von einem anderen Programm benutzt.", files::nativePath(path).native()));
  Draft draft(place);
  Conversion out;
  out.leftOut = draft.write(place, reading);
  out.oldFile = files::keepAs(place, withoutEnding(place), kJetEnding);
  // A journal that an earlier file of this name left would be taken for one of the new project.
  dao::removeCompanions(place);
  files::takePlaceOf(place, draft.path());
  return out;
}

Conversion convertTo(std::string_view jetFile, std::string_view target, const dao::JetReading& reading)
{
  if (!dao::isJetFile(jetFile))
    throw Error(ErrorNumber::NotADatabase, "Die Datei ist keine Datenbank einer älteren Version.");
  const files::FileLock lock(jetFile);
  Draft draft(target);
  Conversion out{std::string(jetFile), draft.write(jetFile, reading)};
  if (!paths::datei_vorhanden(target))
    dao::removeCompanions(target);
  if (!files::takeNewName(draft.path(), target))
    throw Error(ErrorNumber::PathFileAccess,
                base::format("Die Datei '{}' ist schon vorhanden.", files::nativePath(target).native()));
  return out;
}

} // namespace mrd::project
