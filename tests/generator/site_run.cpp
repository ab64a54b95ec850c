#include "generator/site_run.h"

#include "base/text.h"
#include "base/windows1252.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace mrd::generator {

void PrintTo(const EnteredFile& entered, std::ostream* out) { *out << entered.file << " (" << entered.type << ")"; }

SiteRun::SiteRun(std::initializer_list<support::Page> pages)
    : program(programDirectory.path()), project(pages), language(program, ui), dbName(project.file())
{
  support::makeLanguageDatabase(program.file("\\language.mdb"));
  language.Sprachstart();
  programDirectory.write("mrdnav.js", "function navposition() {}");
  fields.tbpfadexport = site.path() + "\\";
  fields.ComboGrundlayout.selectIndex(0);
}

RunOutcome SiteRun::run() { return run(Selection{}); }

RunOutcome SiteRun::runNewOnly() { return run(Selection{"#", true}); }

RunOutcome SiteRun::preview(std::string_view id) { return run(Selection{std::string(id), false}); }

RunOutcome SiteRun::run(const Selection& selection)
{
  frmHTMLExport dialog({program, language, fields, clock, shell});
  dialog.selection = selection;
  return runIn(dialog);
}

std::string SiteRun::page(const std::string& file) const { return base::fromWindows1252(site.read(file)); }

bool SiteRun::has(const std::string& file) const { return std::filesystem::exists(site.native() / file); }

std::vector<std::string> SiteRun::files() const
{
  std::vector<std::string> out;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(site.native()))
    if (!entry.is_directory())
      out.push_back(entry.path().lexically_relative(site.native()).string());
  std::ranges::sort(out);
  return out;
}

std::vector<EnteredFile> SiteRun::entered()
{
  const auto directory = base::lower(site.path()) + "\\";
  std::vector<EnteredFile> out;
  for (auto row = project.db().openRecordset("SELECT * FROM Dateien"); !row.eof(); row.moveNext()) {
    auto file = row.value("pfad").text() + row.value("dateiname").text();
    if (!row.value("erweiterung").isNull())
      file += "." + row.value("erweiterung").text();
    if (file.starts_with(directory))
      file = file.substr(directory.size());
    out.push_back({file, row.value("dateityp-id").integer()});
  }
  return out;
}

std::vector<std::string> SiteRun::entered(std::int64_t type)
{
  std::vector<std::string> out;
  for (const auto& file : entered())
    if (file.type == type)
      out.push_back(file.file);
  return out;
}

std::string SiteRun::body(const std::string& file) const
{
  return between(page(file), "<!-- Beginn Inhalt -->\r\n", "\r\n<!-- Ende Inhalt -->\r\n<br>\r\n");
}

std::vector<std::string> SiteRun::pageTurn(const std::string& file) const
{
  const auto strip = between(page(file), "<layer ID='nsmrdnav'", "</layer>");
  auto targets = allBetween(strip, "<a href='", "'><FONT color=");
  const auto texts = allBetween(strip, "'><FONT color=", "</font></a>");
  for (std::size_t i = 0; i < targets.size(); ++i)
    targets[i] += "|" + texts[i].substr(texts[i].find('>') + 1);
  return targets;
}

std::vector<std::string> SiteRun::menuTargets(const std::string& file) const
{
  return allBetween(between(page(file), "<TABLE cellPadding=0 cellSpacing=0 width=", "<!-- Menü Ende -->"), "<A href='", "'>");
}

std::vector<std::string> allBetween(std::string_view text, std::string_view from, std::string_view to)
{
  std::vector<std::string> out;
  for (auto start = text.find(from); start != text.npos; start = text.find(from, start)) {
    start += from.size();
    out.emplace_back(text.substr(start, text.find(to, start) - start));
  }
  return out;
}

std::string between(const std::string& text, std::string_view from, std::string_view to)
{
  const auto start = text.find(from);
  const auto end = start == std::string::npos ? start : text.find(to, start + from.size());
  if (end == std::string::npos) {
    ADD_FAILURE() << "no text between " << from << " and " << to << " in\n" << text;
    return {};
  }
  return text.substr(start + from.size(), end - start - from.size());
}

std::string lines(std::string_view text) { return base::replaceAll(text, "¶", "\r\n"); }

} // namespace mrd::generator
