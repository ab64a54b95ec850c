#pragma once
// The small GIF files of a run's pictures, made on all cores ahead of the pages that show them.

#include "frame/settings/fields.h"
#include "generator/work_ahead.h"
#include "platform/ui/ui.h"

#include <future>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace mrd::imode {

/// Pictures of the same name share one file: the first one, in the order of the pages, makes it.
class SmallPictures {
public:
  SmallPictures(const settings::Fields& fields, generator::WorkerPool& workers, ui::Ui& ui);

  /// The picture will be asked for. To be called in the order of the pages, as nameOf() is.
  void begin(const std::string& path);
  /// File name of the picture as pages show it: its small GIF, or its own for one that is small. Nothing for a picture that
  /// is not there or cannot be read, of which the user is warned once.
  std::optional<std::string> nameOf(const std::string& path);

private:
  struct Made {
    std::optional<std::string> name;
    std::string problem;
  };
  using Work = std::shared_future<Made>;
  static Made make(const std::string& path, const settings::Fields& fields);
  Work submit(const std::string& path);

  /// A copy, for the threads.
  const std::shared_ptr<const settings::Fields> fields_;
  generator::WorkerPool& workers_;
  ui::Ui& ui_;
  /// By path.
  std::map<std::string, Work, std::less<>> begun_;
  /// The picture that was the first to ask for a file, by the file.
  std::map<std::string, std::string, std::less<>> firstOf_;
  /// Files that are there, whichever picture made them.
  std::set<std::string, std::less<>> there_;
  std::set<std::string, std::less<>> warnedOf_;
};

} // namespace mrd::imode
