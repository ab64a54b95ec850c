#pragma once
// Directories and projects that last as long as a test.

#include "platform/dao/database.h"

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::support {

/// Bytes of a file below the tree's `resources` folder.
std::string resourceText(const std::string& relative);

/// An empty directory, removed with all it holds.
class TemporaryDirectory {
public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& native() const { return path_; }
  /// In the system's form, without a separator at the end.
  std::string path() const;
  /// System path of a file below; the text begins with a backslash or not.
  std::string file(std::string_view name) const;
  /// Writes a file below, directories made as needed.
  void write(const std::string& relative, std::string_view bytes) const;
  std::string read(const std::string& relative) const;

private:
  std::filesystem::path path_;
};

/// A row of `Seite`; what is not given is Null, except the type, which is 1.
struct Page {
  std::string id;
  std::optional<std::string> heading;
  std::optional<std::string> html = {};
  std::optional<std::string> dateiname = {};
  std::optional<int> type = 1;
  std::optional<std::string> script = {};
  std::optional<std::string> changingdate = {};
};

/// A project of the present schema with these pages, in a directory of its own.
class TemporaryProject {
public:
  explicit TemporaryProject(std::initializer_list<Page> pages);

  dao::Database& db() { return *db_; }
  const TemporaryDirectory& directory() const { return directory_; }
  /// System path of the project file.
  std::string file() const { return directory_.file("projekt.mdb"); }

  void addPage(const Page& page);
  /// Sets or adds a row of `Einstellungen`.
  void setSetting(std::string_view key, std::string_view value);
  std::optional<std::string> setting(std::string_view key);
  /// Ids in their order.
  std::vector<std::string> ids();
  /// One column of a page's row.
  dao::Value column(std::string_view id, std::string_view column);

private:
  TemporaryDirectory directory_;
  std::optional<dao::Database> db_;
};

} // namespace mrd::support
