#pragma once
// A finished file that takes the place of another one, which is kept under a name of its own. Whatever stops the program, the
// place holds the one file or the other, whole. Paths are in the system's form; failures are base::Error.

#include <memory>
#include <string>
#include <string_view>

namespace mrd::files {

/// Keeps a file, or a directory, to one program of ours at a time, for as long as it lives; or to several that share it.
class FileLock {
public:
  enum class Kind { Alone, Shared };
  /// Throws FileNotFound or PathFileAccess, and DatabaseLocked when another program has it.
  explicit FileLock(std::string_view path, Kind kind = Kind::Alone);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  /// False once another file has taken the place of the locked one.
  bool isStillNamed() const;

private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The path of the file itself, where `path` is a link to it.
std::string behindLinks(std::string_view path);

/// Removes a file, if there is one. Throws PathFileAccess.
void removeLeftOver(std::string_view path);

/// A second name for the file, or a copy where the file system gives only one; durable when it returns. The name is `stem` +
/// `ending` ("haus" + ".jet.mdb"), with a number before its last part where another file has it ("haus.jet2.mdb"); a file of the
/// same bytes, which an interrupted attempt left there, is taken for done. Returns the name's path.
std::string keepAs(std::string_view path, std::string_view stem, std::string_view ending);

/// Lets a file of ours be read and written by those who may read and write `model`, and by nobody else. Throws PathFileAccess.
void giveAccessOf(std::string_view model, std::string_view path);

/// Renames a finished file over `path`, with that file's mode; durable when it returns.
void takePlaceOf(std::string_view path, std::string_view finished);

/// Renames a finished file to a new name; durable when it returns. False, and nothing changed, when there is a file of that name.
bool takeNewName(std::string_view finished, std::string_view path);

} // namespace mrd::files
