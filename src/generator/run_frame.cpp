#include "generator/run_frame.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/settings/stored_settings.h"
#include "platform/files/files.h"

#include <array>

namespace mrd::generator {
namespace {

constexpr std::array<std::string_view, 3> kScripts{"mrdnav.js", "mrdshop.js", "cookiefunctions.js"};
/// Pages of a project that has never been generated are all newer than this.
constexpr std::string_view kBeforeAllPages = "1.1.1900";

std::string dateLiteral(const base::DateTime& date)
{
  return base::format("#{}/{}/{} {:02}:{:02}:{:02}#", date.month, date.day, date.year, date.hour, date.minute, date.second);
}

} // namespace

PageQuery pageQuery(const Selection& selection, const std::optional<std::string>& lastgendate, std::string_view order)
{
  if (selection.isPreview())
    return {"select * from seite WHERE ID = ?", {dao::Value(selection.Lblseitenvorschauid)}};
  std::string sql = "select * from seite ";
  if (selection.opneue) {
    const auto date = base::parseDateTime(lastgendate.value_or(std::string(kBeforeAllPages)));
    if (!date)
      throw base::Error(base::ErrorNumber::TypeMismatch, base::format("lastgendate: \"{}\"", *lastgendate));
    sql += " WHERE (id = '00') OR (changingdate > " + dateLiteral(*date) + ") ";
  }
  return {sql + " Order By " + std::string(order), {}};
}

bool staysInDirectory(std::string_view fileName)
{
  const bool hasDrive = fileName.size() > 1 && fileName[1] == ':';
  const bool namesDirectory = fileName.empty() || fileName == "." || fileName == "..";
  return fileName.find_first_of("/\\") == std::string_view::npos && !hasDrive && !namesDirectory;
}

bool SiteFiles::copyFromProgram(std::string_view programFile, std::string_view name)
{
  const std::string source = program_.file(programFile);
  if (!paths::datei_vorhanden(source))
    return false;
  files::copyFile(source, exportpfad_ + std::string(name));
  return true;
}

bool SiteFiles::bringPicture(std::string_view name)
{
  const std::string picture(name), target = "pix\\" + picture;
  const bool brought =
      isInExport(target) || copyFromProgram("\\" + picture, target) || copyFromProgram("\\hilfe\\pix\\" + picture, target);
  if (brought)
    enter(target, project::Dateityp::Picture);
  return brought;
}

bool SiteFiles::bringPageFile(std::string_view name)
{
  const bool brought = isInExport(name) || copyFromProgram("\\" + std::string(name), name);
  if (brought)
    enter(name, project::Dateityp::Page);
  return brought;
}

void SiteFiles::bringScripts()
{
  for (const auto script : kScripts)
    bringPageFile(script);
}

bool SiteFiles::bringPopupPage() { return bringPageFile("popupbild.htm"); }

void SiteFiles::bringPictureTransferScript()
{
  constexpr std::string_view kName = "picturetransfer.js";
  copyFromProgram("\\picturetransfer.js", kName);
  enter(kName, project::Dateityp::Page);
}

std::optional<std::string> readSetting(dao::Database& db, std::string_view key)
{
  auto settings = db.openRecordset("select * from Einstellungen");
  settings.findFirst("Einstellung = ?", {dao::Value(key)});
  if (settings.noMatch() || settings.value("Wert").isNull())
    return std::nullopt;
  return settings.value("Wert").text();
}

void writeLastGenDate(dao::Database& db, const base::DateTime& now)
{
  settings::StoredSettings(db).set("lastgendate", now.german());
}

} // namespace mrd::generator
