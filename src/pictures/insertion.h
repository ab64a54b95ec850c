#pragma once
// Pictures into pages: all into the open page, or each into a new sub-page.

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "frame/settings/fields.h"
#include "pictures/bildkonvertierer.h"
#include "pictures/conversion.h"
#include "platform/dao/database.h"
#include "platform/ui/editing_surface.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::pictures {

/// What the picture dialog says about the pages, under the names of its controls.
struct InsertionOptions : ConversionOptions {
  /// Into the open page; else a page for each.
  bool Opdieseseite = true;
  /// Columns of the table, a number as text; 0 for pictures below each other.
  std::string tbtabspalten = "0";
  bool CheckRahmen = false, CheckSchatten = false, CheckPopupfenster = false, CheckBildpartner = false;
};

/// Between an entry and what a run adds to it.
inline constexpr std::string_view kEntryMark = "   --   ";

/// What the dialog's lists hold: paths behind `tbshare`, and the key of the page that was selected when it opened.
struct ChosenPictures {
  std::string tbshare;
  /// A run adds to each entry what became of it.
  std::vector<std::string> Listpix;
  std::string lblnode;
  /// A run counts in them: pictures in the open page, and the number of the last new page.
  std::string LabelNeu = "0", Labelalt = "0";
};

struct FailedPicture {
  std::string path, reason;
};

struct InsertionOutcome {
  /// Pictures that are in pages now. False for a run that was refused before it changed anything.
  std::size_t inserted = 0;
  bool begun = false;
  /// No number was left for one of the pictures; the run ended before it.
  bool outOfNumbers = false;
  /// Those whose file could not be made; the page refers to it all the same.
  std::vector<FailedPicture> failed;
  /// Not taken over: their paths cannot stand in a page.
  std::vector<std::string> skipped;
};

class PictureInsertion {
public:
  struct Parts {
    dao::Database& db;
    messages::Language& language;
    const base::Clock& clock;
    const settings::Fields& fields;
    const paths::ProgramFiles& program;
    ui::EditingSurface& DHTMLEdit1;
    pictures::frmBildkonvertierer& frmBildkonvertierer;
    /// Rebuilds the tree from the table.
    std::function<void()> ZeigeStruktur = [] {};
  };

  PictureInsertion(const Parts& parts, const InsertionOptions& options) : parts_(parts), options_(options) {}

  /// Converts the pictures, several at a time, and writes them into pages in their order. Refuses with message 29 or 19, or with
  /// message 2 where the page that is to take the new ones has gone; ends early with message 20, or when the user asks to stop.
  /// `advanced` is called whenever the run has changed what was chosen. Throws base::Error where a page cannot be written; the
  /// open page is then as it was, and the tree shows the new ones before it.
  InsertionOutcome run(
      ChosenPictures& chosen, const std::function<void()>& advanced = [] {});

private:
  struct Job;
  struct Prepared;

  bool isRefused(const ChosenPictures& chosen);
  bool isPageThere(const std::string& lblnode);
  bool isStopAskedFor();
  void showPages();
  std::vector<Job> plan(const ChosenPictures& chosen, InsertionOutcome& outcome);
  std::string nextFreeKey(const std::string& lblnode, int& lfd);
  Prepared prepare(const Job& job) const;
  void workOn(std::vector<Job>& jobs, ChosenPictures& chosen, InsertionOutcome& outcome, const std::function<void()>& advanced);
  void insert(const Job& job, const Prepared& prepared, ChosenPictures& chosen, InsertionOutcome& outcome);
  bool isRowFull() const;
  void addToOpenPage(const Job& job, const Prepared& prepared);
  void addPage(const Job& job, const Prepared& prepared);
  std::string newPage(const Job& job, const Prepared& prepared) const;
  std::string orderLink(const Job& job) const;
  std::string magnifier() const;
  void closeTable();

  Parts parts_;
  InsertionOptions options_;
  PictureTarget target_{parts_.fields};
  std::string html_;
  double columns_ = 0;
  int spalte_ = 0, zeile_ = 1;
};

} // namespace mrd::pictures
