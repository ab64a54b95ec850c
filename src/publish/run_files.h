#pragma once
// The files of a run, and what became of each.

#include "frame/project/file_register.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::publish {

/// One file of a run, and what became of it.
struct RunFile {
  enum class Deed { Send, Delete };
  enum class Fate { Waiting, Done, Failed };

  /// The local file; empty for one that is deleted.
  std::string path;
  /// On the server, in its directory.
  std::string name;
  project::Dateityp type = project::Dateityp::Page;
  Deed deed = Deed::Send;
  Fate fate = Fate::Waiting;
  /// Why not.
  std::string problem = {};

  /// The server has it, with its size; or no longer, where it was deleted.
  bool isConfirmed() const { return fate == Fate::Done; }
  bool isUnsent() const { return deed == Deed::Send && !isConfirmed(); }
  /// As a user knows it: pictures with their directory.
  std::string shownName() const;
};

/// What became of a file, in the words of a language ("GER" or "ENG").
std::string fateText(const RunFile& file, std::string_view Sprache);

/// The files of one run, in the order in which it comes to them.
class RunFiles {
public:
  const std::vector<RunFile>& all() const { return files_; }
  std::size_t size() const { return files_.size(); }
  const RunFile& operator[](std::size_t index) const { return files_[index]; }
  /// Files to be sent that the server did not confirm.
  bool hasUnsent() const;
  /// How many were dealt with, in words; empty without files.
  std::string summary(std::string_view Sprache) const;

  void assign(std::vector<RunFile> files);
  void add(const RunFile& file);
  /// The fate of one; an index that the list has lost meanwhile changes nothing.
  void settle(std::size_t index, RunFile::Fate fate, const std::string& problem = {});

  /// Told when the list is another one, and when one file of it has changed.
  std::function<void()> replaced = [] {};
  std::function<void(std::size_t)> changed = [](std::size_t) {};

private:
  std::vector<RunFile> files_;
};

} // namespace mrd::publish
