#pragma once
// A project, a program directory, an export directory and a user by script, put together to a run of the export dialog.

#include "generator/html_export.h"
#include "support/test_program.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// A clock that tells one moment.
class StandingClock : public base::Clock {
public:
  base::DateTime present{2024, 5, 17, 8, 30, 15};
  base::DateTime now() const override { return present; }
};

/// Remembers what was opened.
class RecordingShell : public ui::Shell {
public:
  std::vector<std::string> opened;
  void open(std::string_view path) override { opened.emplace_back(path); }
};

/// A user by script who does something of his own while the run yields.
class BusyUi : public support::ScriptedUi {
public:
  std::function<void()> atPump;
  bool pumpEvents() override
  {
    if (atPump)
      atPump();
    return ScriptedUi::pumpEvents();
  }
};

/// A file's entry in `Dateien`: name as it is entered, below the export directory, and class.
struct EnteredFile {
  std::string file;
  std::int64_t type;
  bool operator==(const EnteredFile&) const = default;
};
void PrintTo(const EnteredFile& entered, std::ostream* out);

/// The layout is "Navigation linke Seite" and the export directory is there. The program directory holds the languages and
/// mrdnav.js.
class SiteRun {
public:
  explicit SiteRun(std::initializer_list<support::Page> pages);

  RunOutcome run();
  RunOutcome runNewOnly();
  RunOutcome preview(std::string_view id);

  /// A file of the site, UTF-8.
  std::string page(const std::string& file) const;
  bool has(const std::string& file) const;
  /// All files of the site by their names on disk, sorted, "/" before the names in `pix`.
  std::vector<std::string> files() const;
  /// `Dateien` in the order of entry, without the export directory's path.
  std::vector<EnteredFile> entered();
  /// Of one class only.
  std::vector<std::string> entered(std::int64_t type);
  /// The lines between "<!-- Beginn Inhalt -->" and "<!-- Ende Inhalt -->".
  std::string body(const std::string& file) const;
  /// The page-turn row's links, "file|text" each.
  std::vector<std::string> pageTurn(const std::string& file) const;
  /// The targets that the menu links, in their order.
  std::vector<std::string> menuTargets(const std::string& file) const;

  support::TemporaryDirectory programDirectory, site, pictures;
  paths::ProgramFiles program;
  support::TemporaryProject project;
  BusyUi ui;
  messages::Language language;
  settings::Fields fields;
  StandingClock clock;
  RecordingShell shell;
  std::string labelSeite;
  /// How often the dialog closed itself.
  int unloads = 0;
  /// Seen by the dialog, not by a project of a test's own.
  std::string dbName;

protected:
  /// Opens the project in a dialog and clicks its button.
  template <class Dialog>
  RunOutcome runIn(Dialog& dialog)
  {
    dialog.window.unload = [this] { ++unloads; };
    if (!dialog.Form_Load(dbName))
      return {};
    auto outcome = dialog.cbHTML_Click();
    labelSeite = dialog.labelSeite;
    return outcome;
  }

private:
  RunOutcome run(const Selection& selection);
};

/// All parts of `text` between the two pieces, in their order.
std::vector<std::string> allBetween(std::string_view text, std::string_view from, std::string_view to);
/// The part between two pieces; empty, with a failure, where they are missing.
std::string between(const std::string& text, std::string_view from, std::string_view to);
/// "¶" as CR LF.
std::string lines(std::string_view text);

} // namespace mrd::generator
