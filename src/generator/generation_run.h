#pragma once
// A generation run, as far as it is the same for all layouts: the register, the selection of pages, their files, the end.

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "frame/project/file_register.h"
#include "frame/settings/fields.h"
#include "generator/page_index.h"
#include "generator/run_frame.h"
#include "platform/dao/database.h"
#include "platform/files/files.h"
#include "platform/ui/shell.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::generator {

/// What the export dialog works with.
struct ExportEnvironment {
  const paths::ProgramFiles& program;
  messages::Language& language;
  settings::Fields& fields;
  const base::Clock& clock;
  ui::Shell& shell;
};

/// One run's order.
struct RunJob {
  ExportEnvironment environment;
  dao::Database& db;
  std::string DbName;
  /// The shared head, as its editor holds it.
  std::string head = {};
  /// Where the pages go, with a separator at its end; their pictures lie in its `pix`.
  std::string exportpfad;
  Selection selection = {};
  /// Put before every file name in template layouts.
  std::string tbNamenszusatz = {};
  /// Shows how far the run is, in words and in pages of all pages.
  std::function<void(std::string_view)> showState;
  std::function<void(std::size_t, std::size_t)> showProgress = [](std::size_t, std::size_t) {};
  /// Whether the user asked to stop.
  std::function<bool()> stopAsked = [] { return false; };
};

/// How a run ended.
struct RunOutcome {
  std::size_t generated = 0;
  /// Pages that were left out because their file would lie outside of the export directory.
  std::size_t refused = 0;
  /// The run went to its end.
  bool finished = false;
  /// The file that shows the site.
  std::string startdatei;
};

/// In what the kinds of runs differ.
struct RunDifferences {
  std::string_view order;
  /// A run without pages ends with a message.
  bool stopsWhenEmpty;
  /// The last line; "#" is the number of pages.
  std::string_view closingLine;
  /// The moment of the run is what "only new pages" counts from.
  bool storesDate;
};

/// A row of `Seite` as a run works on it.
struct RunPage {
  std::string id, Überschrift, dateiname;
  std::optional<int> seitentyp;
  std::optional<std::string> html, script;

  bool isOfType(Seitentyp type) const { return seitentyp == static_cast<int>(type); }
};

/// What every run does around its pages; the kinds of runs bring and write them.
class GenerationRun {
public:
  virtual ~GenerationRun() = default;
  GenerationRun(const GenerationRun&) = delete;
  GenerationRun& operator=(const GenerationRun&) = delete;

  /// Throws base::Error; pages that were written until then stay.
  RunOutcome run();

protected:
  GenerationRun(const RunJob& job, const RunDifferences& differences);

  /// Brings what the site needs beside its pages.
  virtual void bringSiteFiles() = 0;
  /// Writes the selected pages; the cursor stands on the first. Ends early when nextTurn() says so.
  virtual void generatePages(dao::Recordset& pages) = 0;
  /// Done when all pages are written.
  virtual void closeRun() {}

  static RunPage readPage(const dao::Recordset& pages);
  /// Shows the progress before a page. False when the user stops the run.
  bool nextTurn();
  /// The page's file, opened and entered; nothing, with a message, for one that would lie outside of the export directory.
  std::optional<files::OutputFile> openPage(const RunPage& page, const std::string& file);
  /// Closes a page's file; a preview is shown.
  void closePage(files::OutputFile& output, const std::string& file);
  std::string pathOf(std::string_view file) const { return job_.exportpfad + std::string(file); }

  const RunJob& job_;
  const ExportEnvironment& environment_;
  settings::Fields& fields_;
  dao::Database& db_;
  ui::Ui& ui_;
  const base::DateTime now_;
  PageIndex index_;
  project::FileRegister register_;
  SiteFiles siteFiles_;
  RunOutcome outcome_;

private:
  /// From the cleared register to the date of the run.
  void generate();

  const RunDifferences differences_;
  files::OutputDirectory exportDirectory_;
  std::size_t turn_ = 0, total_ = 0;
};

} // namespace mrd::generator
