#include "support/temporary.h"

#include "platform/files/path.h"
#include "tools/database_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace mrd::support {
namespace {

std::string readNative(const std::filesystem::path& path)
{
  std::ifstream in(path, std::ios::binary);
  if (!in)
    throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The parts of a relative path may be parted by either separator.
std::filesystem::path nativeRelative(std::string relative)
{
  for (auto& c : relative)
    c = c == '\\' ? '/' : c;
  return relative.substr(relative.starts_with('/') ? 1 : 0);
}

dao::Value orNull(const std::optional<std::string>& text) { return text ? dao::Value(*text) : dao::Value(dao::Null{}); }

} // namespace

std::string resourceText(const std::string& relative)
{
  return readNative(std::filesystem::path(MRD_SOURCE_DIR) / "resources" / relative);
}

TemporaryDirectory::TemporaryDirectory()
{
  auto pattern = (std::filesystem::temp_directory_path() / "mirandel-test-XXXXXX").string();
  if (!mkdtemp(pattern.data()))
    throw std::runtime_error("cannot make " + pattern);
  path_ = pattern;
}

TemporaryDirectory::~TemporaryDirectory()
{
  std::error_code ignored; // a directory that a test made unwritable costs only space
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryDirectory::path() const { return files::systemPath(path_); }

std::string TemporaryDirectory::file(std::string_view name) const
{
  auto whole = path();
  if (!name.starts_with('\\'))
    whole += '\\';
  return whole.append(name);
}

void TemporaryDirectory::write(const std::string& relative, std::string_view bytes) const
{
  const auto target = path_ / nativeRelative(relative);
  std::filesystem::create_directories(target.parent_path());
  std::ofstream out(target, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.flush())
    throw std::runtime_error("cannot write " + target.string());
}

std::string TemporaryDirectory::read(const std::string& relative) const { return readNative(path_ / nativeRelative(relative)); }

TemporaryProject::TemporaryProject(std::initializer_list<Page> pages)
{
  db_ = dao::Database::create(file());
  dao::Transaction transaction(*db_);
  tools::runStatements(*db_, resourceText("project/schema.sql"));
  tools::insertRows(*db_, "Einstellungen", resourceText("project/settings.tsv"));
  for (const auto& page : pages)
    addPage(page);
  transaction.commit();
}

void TemporaryProject::addPage(const Page& page)
{
  db_->execute("INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id], script, changingdate, expanded) "
               "VALUES (?, ?, ?, ?, ?, ?, ?, FALSE)",
               {page.id, orNull(page.heading), orNull(page.html), orNull(page.dateiname),
                page.type ? dao::Value(*page.type) : dao::Value(dao::Null{}), orNull(page.script), orNull(page.changingdate)});
}

void TemporaryProject::setSetting(std::string_view key, std::string_view value)
{
  auto rows = db_->openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = ?", {key});
  if (rows.eof()) {
    rows.addNew();
    rows.set("Einstellung", key);
  } else {
    rows.edit();
  }
  rows.set("Wert", value);
  rows.update();
}

std::optional<std::string> TemporaryProject::setting(std::string_view key)
{
  auto rows = db_->openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = ?", {key});
  if (rows.eof())
    return std::nullopt;
  return rows.value("Wert").text();
}

std::vector<std::string> TemporaryProject::ids()
{
  std::vector<std::string> out;
  for (auto rows = db_->openRecordset("SELECT id FROM Seite ORDER BY ID"); !rows.eof(); rows.moveNext())
    out.push_back(rows.value("id").text());
  return out;
}

dao::Value TemporaryProject::column(std::string_view id, std::string_view column)
{
  return db_->openRecordset("SELECT * FROM Seite WHERE ID = ?", {id}).value(column);
}

} // namespace mrd::support
