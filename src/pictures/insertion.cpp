#include "pictures/insertion.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/page_file.h"
#include "pagetree/page_id.h"
#include "pictures/page_pictures.h"
#include "pictures/shadow.h"
#include "platform/ui/progress.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <deque>
#include <future>
#include <thread>

namespace mrd::pictures {

struct PictureInsertion::Job {
  /// Place in the list, and the entry behind its directory, without what a run adds to it.
  std::size_t index;
  std::string path;
  Source source;
  std::string quellname;
  /// Key of the page that gives the file its name: the open one, or the new one without its first character.
  std::string zusatz;
  /// Number of the new page below its parent.
  int lfd = 0;
  /// Files in lower case that are read or written: two jobs with a common one go after each other.
  std::vector<std::string> files;
};

struct PictureInsertion::Prepared {
  /// Final name in `pix`, and the text for those who do not see the picture.
  std::string zieldatei, base;
  std::optional<std::string> failure;
};

namespace {

constexpr int kMessageChoosePage = 2, kMessageNoFifthLevel = 19, kMessageNoNumberLeft = 20, kMessageTooMany = 29;
constexpr std::size_t kMostPictures = 99;
constexpr int kLastNumber = 99;
/// The homepage has no number in front of those of its sub-pages; the first character of a key is cut off.
constexpr std::string_view kKeyOfHomepage = ";";
constexpr std::string_view kPictureInPage = "Bild auf Seite eingefügt!", kPageOfPicture = "untergeordnete Seite";
/// Cells are counted so far.
constexpr int kMostCells = 32767;
/// How long the window may sleep while pictures are converted.
constexpr auto kNap = std::chrono::milliseconds(30);

using base::format;

/// The file itself: an extension that is none for the path rules, such as that of "bild.backup", is lost, and then there is none.
std::string fileOf(const paths::PathParts& parts)
{
  return parts.verzeichnis + parts.name + (parts.erweiterung.empty() ? "" : "." + parts.erweiterung);
}

bool shareFile(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
  return std::ranges::any_of(a, [&](const std::string& file) { return std::ranges::find(b, file) != b.end(); });
}

/// Twice the cores: while the first in the list takes long, those behind it that are done leave no core idle.
std::size_t picturesAtATime() { return std::clamp(2 * std::thread::hardware_concurrency(), 2U, 8U); }

} // namespace

InsertionOutcome PictureInsertion::run(ChosenPictures& chosen, const std::function<void()>& advanced)
{
  InsertionOutcome outcome;
  if (chosen.lblnode == "@00" || chosen.lblnode == "lblnode")
    chosen.lblnode = kKeyOfHomepage;
  if (chosen.Listpix.empty() || isRefused(chosen))
    return outcome;
  outcome.begun = true;
  const ui::WaitPointer wait(parts_.language.ui());
  const WorkOnPictures work(parts_.frmBildkonvertierer, chosen.Listpix.size());
  chosen.LabelNeu = chosen.Labelalt = "0";
  advanced();
  columns_ = base::numericValue(options_.tbtabspalten);
  html_ = parts_.DHTMLEdit1.bodyInnerHtml();
  auto jobs = plan(chosen, outcome);
  try {
    workOn(jobs, chosen, outcome, advanced);
  } catch (...) {
    showPages();
    throw;
  }
  closeTable();
  parts_.DHTMLEdit1.setBodyInnerHtml(html_);
  showPages();
  return outcome;
}

void PictureInsertion::showPages()
{
  if (!options_.Opdieseseite)
    parts_.ZeigeStruktur();
}

bool PictureInsertion::isRefused(const ChosenPictures& chosen)
{
  if (chosen.Listpix.size() > kMostPictures) {
    parts_.language.GetMsg(kMessageTooMany);
    return true;
  }
  if (!options_.Opdieseseite && pagetree::idOf(chosen.lblnode).size() >= pagetree::kMaxIdLength) {
    parts_.language.GetMsg(kMessageNoFifthLevel);
    return true;
  }
  if (!options_.Opdieseseite && !isPageThere(chosen.lblnode)) {
    parts_.language.GetMsg(kMessageChoosePage);
    return true;
  }
  return false;
}

/// While the window was open, the page may have been deleted or moved; its sub-pages would then hang in the air.
bool PictureInsertion::isPageThere(const std::string& lblnode)
{
  const auto query = "SELECT * FROM Seite Where Seite.ID = ? ORDER BY ID;";
  return lblnode == kKeyOfHomepage || !parts_.db.openRecordset(query, {dao::Value(pagetree::idOf(lblnode))}).eof();
}

/// Names and numbers of all pictures, in their order; what follows from one for the next is settled here.
std::vector<PictureInsertion::Job> PictureInsertion::plan(const ChosenPictures& chosen, InsertionOutcome& outcome)
{
  std::vector<Job> jobs;
  int lfd = 0;
  for (std::size_t i = 0; i < chosen.Listpix.size(); ++i) {
    const auto& entry = chosen.Listpix[i];
    const auto path = chosen.tbshare + entry;
    // It would end the quotes around the reference.
    if (base::contains(path, "'")) {
      outcome.skipped.push_back(path);
      continue;
    }
    const auto parts = paths::teile_dateipfad(path);
    const auto dateiname = base::lower(parts.name + "." + parts.erweiterung);
    Job job{i, path, {parts.verzeichnis, dateiname, fileOf(parts)}, parts.name, chosen.lblnode, 0, {}};
    if (!options_.Opdieseseite) {
      const auto key = nextFreeKey(chosen.lblnode, lfd);
      if (key.empty()) {
        outcome.outOfNumbers = true;
        break;
      }
      job.zusatz = key.substr(1);
      job.lfd = lfd;
    }
    job.files.push_back(base::lower(path));
    for (const auto& name : possibleNames(options_, job.source, job.zusatz)) {
      const auto target = paths::teile_dateipfad(target_.pix + name);
      job.files.push_back(base::lower(target_.pix + name));
      job.files.push_back(base::lower(format("{}{}.{}", target.verzeichnis, shadowName(target.name), target.erweiterung)));
    }
    jobs.push_back(std::move(job));
  }
  return jobs;
}

/// The first free number behind the last one; empty when 99 is reached.
std::string PictureInsertion::nextFreeKey(const std::string& lblnode, int& lfd)
{
  for (++lfd; lfd < kLastNumber; ++lfd) {
    auto key = lblnode + pagetree::formatNumber(lfd);
    const auto query = "SELECT * FROM Seite Where Seite.ID = ? ORDER BY ID;";
    if (parts_.db.openRecordset(query, {dao::Value(key.substr(1))}).eof())
      return key;
  }
  return {};
}

/// Runs beside others of its kind: nothing is touched here but the job's own files.
PictureInsertion::Prepared PictureInsertion::prepare(const Job& job) const
{
  auto converted = konvertiere_und_kopiere_bild(options_, target_, job.source, job.zusatz);
  Prepared out{converted.dateiname, job.quellname, std::move(converted.failure)};
  if (!options_.CheckSchatten)
    return out;
  const auto parts = paths::teile_dateipfad(target_.pix + converted.dateiname);
  try {
    erzeuge_schatten(parts.verzeichnis, parts.name, parts.erweiterung, parts_.fields.tbhintergrund);
  } catch (const base::Error& error) {
    // The reason why there is no picture says more than that it has no shadow.
    if (!out.failure)
      out.failure = error.description();
  }
  out.zieldatei = base::lower(format("{}.{}", shadowName(parts.name), parts.erweiterung));
  out.base = parts.name;
  return out;
}

void PictureInsertion::workOn(std::vector<Job>& jobs, ChosenPictures& chosen, InsertionOutcome& outcome,
                              const std::function<void()>& advanced)
{
  auto& ui = parts_.language.ui();
  const ui::Progress progress(ui);
  struct Running {
    const Job* job;
    std::future<Prepared> result;
  };
  std::deque<Running> running;
  bool stopped = false;
  for (auto next = jobs.begin(); next != jobs.end() || !running.empty();) {
    const auto meets = [&](const Running& other) { return shareFile(other.job->files, next->files); };
    if (next != jobs.end() && !stopped && running.size() < picturesAtATime() && std::ranges::none_of(running, meets)) {
      running.push_back({&*next, std::async(std::launch::async, [this, job = &*next] { return prepare(*job); })});
      ++next;
      continue;
    }
    if (running.empty())
      break;
    while (running.front().result.wait_for(kNap) != std::future_status::ready)
      stopped = isStopAskedFor() || stopped;
    insert(*running.front().job, running.front().result.get(), chosen, outcome);
    running.pop_front();
    ui.progress(outcome.inserted, jobs.size());
    parts_.frmBildkonvertierer.progress(outcome.inserted);
    advanced();
    stopped = isStopAskedFor() || stopped;
  }
  if (!outcome.outOfNumbers || stopped)
    return;
  // Counted before the search for a number ended.
  chosen.Labelalt = pagetree::formatNumber(static_cast<int>(base::numericValue(chosen.Labelalt)) + 1);
  advanced();
  parts_.language.GetMsg(kMessageNoNumberLeft);
}

bool PictureInsertion::isStopAskedFor()
{
  const bool asked = parts_.language.ui().pumpEvents();
  return asked || parts_.frmBildkonvertierer.isStopped();
}

void PictureInsertion::insert(const Job& job, const Prepared& prepared, ChosenPictures& chosen, InsertionOutcome& outcome)
{
  ++outcome.inserted;
  if (options_.Opdieseseite) {
    addToOpenPage(job, prepared);
    chosen.LabelNeu = format("{}", outcome.inserted);
  } else {
    addPage(job, prepared);
    chosen.Labelalt = pagetree::formatNumber(job.lfd);
  }
  if (prepared.failure)
    outcome.failed.push_back({job.path, *prepared.failure});
  const auto done = options_.Opdieseseite ? kPictureInPage : kPageOfPicture;
  chosen.Listpix[job.index] += std::string(kEntryMark) + prepared.failure.value_or(std::string(done));
}

std::string PictureInsertion::magnifier() const
{
  return format("<img alt='Originalgröße anzeigen' src='file://{}/lupe.gif' border=0>", parts_.program.directory());
}

std::string PictureInsertion::orderLink(const Job& job) const
{
  return format("<a href=\"javascript:picturetransfer('file://{}','{}')\"><img alt='Papierbild bestellen' "
                "src='file://{}/karre.gif' border=0></a>",
                inPage(job.path), inPage(parts_.fields.tbBildpartnerID), parts_.program.directory());
}

/// No value of the columns is rounded: with two and a half of them every fifth cell ends a row.
bool PictureInsertion::isRowFull() const { return std::fmod(spalte_, columns_) == 0; }

void PictureInsertion::addToOpenPage(const Job& job, const Prepared& prepared)
{
  const bool both = options_.CheckBildpartner && options_.CheckPopupfenster;
  if (columns_ != 0) {
    if (zeile_ == 1 && spalte_ == 0)
      html_ += options_.CheckRahmen ? "<table border=1 cellpadding=1 cellspacing=1 align=center>"
                                    : "<table border=0 cellpadding=0 cellspacing=0 align=center>";
    if (isRowFull())
      html_ += "<tr>";
  } else {
    html_ += "<div align=\"center\"><br />\r\n";
  }
  if (columns_ >= 1)
    html_ += "<td>";
  if (options_.CheckPopupfenster)
    html_ += format("<a href='file://{}' target=_blank>", inPage(job.path));
  html_ += format("<img border=0 alt=\"{}\" src=\"file://{}pix/{}\" /><br />", inPage(base::lower(base::trim(prepared.base))),
                  target_.exportPath, inPage(prepared.zieldatei));
  if (options_.CheckPopupfenster)
    html_ += (both ? magnifier() : "") + "</a>";
  if (options_.CheckBildpartner)
    html_ += orderLink(job);
  if (columns_ >= 1) {
    html_ += "</td>";
    ++spalte_;
    if (isRowFull()) {
      html_ += "</tr>";
      ++zeile_;
    }
  } else if (columns_ == 0) {
    html_ += "</div>\r\n";
  }
}

/// A complete last row gets a second closing tag too; readers of pages pass over it.
void PictureInsertion::closeTable()
{
  if (spalte_ >= 1) {
    for (; !isRowFull(); ++spalte_, ++zeile_) {
      if (spalte_ == kMostCells)
        throw base::Error(base::ErrorNumber::InvalidCall, format("\"{}\" ist keine Zahl von Spalten.", options_.tbtabspalten));
      html_ += "<td>&nbsp;</td>";
    }
    html_ += "</tr>";
  }
  if (zeile_ >= 2)
    html_ += "</table>";
}

void PictureInsertion::addPage(const Job& job, const Prepared& prepared)
{
  auto pages = parts_.db.openRecordset("SELECT * FROM Seite Where Seite.ID = ? ORDER BY ID;", {dao::Value(job.zusatz)});
  pages.addNew();
  pages.set("id", job.zusatz);
  pages.set("Überschrift", base::trim(job.quellname));
  pages.set("html", newPage(job, prepared));
  pages.set("dateiname", paths::kDefaultPattern);
  pages.set("changingdate", parts_.clock.now().iso());
  pages.update();
}

std::string PictureInsertion::newPage(const Job& job, const Prepared& prepared) const
{
  auto html = format("<body><p align=\"center\">\r\n"
                     "<h3 align=\"center\" style=\"font-size:16pt;\" id=\"ueberschrift\">{}</h3>\r\n"
                     "<p align=\"center\"><img alt=\"{}\" src=\"file://{}pix/{}\" /><br>",
                     inPage(base::trim(job.quellname)), inPage(base::trim(prepared.base)), target_.exportPath,
                     inPage(prepared.zieldatei));
  if (options_.CheckPopupfenster)
    html += format("<a href='file://{}' target=_blank>{}</a> ", inPage(job.path), magnifier());
  if (options_.CheckBildpartner)
    html += orderLink(job);
  // The last closing tag has no opening one; editors have always taken the text so.
  return html + "</p><p>&nbsp;</p>\r\n</p></body>";
}

} // namespace mrd::pictures
