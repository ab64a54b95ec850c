#include "pictures/file_scan.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "pictures/objekt_anzeigen.h"
#include "platform/files/directory.h"
#include "platform/files/path.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace mrd::pictures {
namespace {

constexpr std::string_view kPictureExtensions = "jpg bmp tif gif pcx ico pcd img dib wmf png";
/// Enough of what stands behind an entry to know it by.
constexpr std::string_view kMark = " -- ";
constexpr std::string_view kLockedByOffice = "~$";
constexpr std::size_t kEntriesBetweenEvents = 500;
/// A window that is asked this often feels alive; asking at each of many small directories would cost more than reading them.
constexpr auto kBetweenEvents = std::chrono::milliseconds(15);
constexpr int kMessageNoNumber = 30, kMessageNotConverted = 126;
/// As many as a message box shows without leaving the screen.
constexpr std::size_t kFailuresTold = 12;

void countUp(std::string& caption) { caption = base::format("{}", static_cast<long long>(base::numericValue(caption)) + 1); }

/// Two files are one for the register's comparison of texts.
std::string registerKey(std::string_view directory, std::string_view name)
{
  return base::comparisonKey(directory) + '\n' + base::comparisonKey(name);
}

bool isNumber(std::string_view text)
{
  const auto trimmed = base::trim(text);
  return !trimmed.empty() && trimmed.find_first_not_of("+-.,0123456789") == std::string::npos &&
         std::ranges::any_of(trimmed, [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string withoutBlanksBehind(std::string text)
{
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

} // namespace

bool isPictureName(std::string_view path)
{
  const auto extension = base::lower(paths::teile_dateipfad(path).erweiterung);
  return !extension.empty() && (isShownAsPicture(path) || base::contains(kPictureExtensions, extension));
}

// --- the scan

void FrmFileScan::cbshare_Click()
{
  const auto directory = parts_.insertion.language.ui().folderDialog("Wählen Sie ein Verzeichnis aus ...");
  if (!directory)
    return;
  tbshare = *directory;
  Command1_Click();
}

void FrmFileScan::Command1_Click()
{
  if (tbshare.empty())
    return;
  if (Command1 != kStart) {
    stopped_ = true;
    Command1 = kStart;
    return;
  }
  // One that was stopped a moment ago has not come to its end yet.
  if (isBusy())
    return;
  stopped_ = false;
  scanning_ = true;
  // The button starts again whatever ends the scan.
  try {
    scan();
  } catch (...) {
    endScan();
    throw;
  }
  endScan();
}

void FrmFileScan::scan()
{
  Command1 = kStop;
  window.refresh();
  parts_.insertion.language.ui().pumpEvents();
  const ui::WaitPointer wait(parts_.insertion.language.ui());
  List1.clear();
  labelanz = LabelNeu = Labelalt = "0";
  visited_.clear();
  known_.reset();
  register_.reset();
  GetAllFiles(tbshare);
}

void FrmFileScan::endScan()
{
  Command1 = kStart;
  scanning_ = false;
  window.refresh();
}

void FrmFileScan::GetAllFiles(std::string path)
{
  if (Checknurneue && !register_)
    register_ = parts_.insertion.db.openSnapshot("SELECT * FROM dateien");
  letEventsRun();
  if (!path.ends_with('\\'))
    path += '\\';
  if (stopped_ || !visited_.insert(files::directoryIdentity(path)).second)
    return;
  for (const auto& entry : files::directoryEntries(path)) {
    if (entry.isDirectory) {
      if (CheckSubDir)
        GetAllFiles(path + entry.name + "\\");
    } else {
      addFile(path, entry.name);
    }
    if (++entriesSinceEvents_ % kEntriesBetweenEvents == 0)
      letEventsRun();
    if (stopped_)
      return;
  }
}

void FrmFileScan::letEventsRun()
{
  window.refresh();
  const auto now = std::chrono::steady_clock::now();
  if (now - eventsRan_ < kBetweenEvents)
    return;
  const bool isStopAskedFor = parts_.insertion.language.ui().pumpEvents();
  stopped_ = stopped_ || isStopAskedFor;
  eventsRan_ = std::chrono::steady_clock::now();
}

void FrmFileScan::addFile(const std::string& path, const std::string& name)
{
  if (!CheckAlle) {
    if (!isWanted(name))
      return;
    List1.push_back({withoutShare(path + name)});
    // With only new files wanted neither the test is made here nor the counter moved.
    if (!Checknurneue)
      countUp(labelanz);
    return;
  }
  const bool known = Checknurneue && isKnown(path + name);
  if (!known)
    List1.push_back({withoutShare(path + name)});
  countUp(labelanz);
  if (Checknurneue)
    countUp(known ? Labelalt : LabelNeu);
}

/// The last three characters anywhere in the list of extensions: "jpeg" is no part of it, and "g b" of "jpg bmp" is.
bool FrmFileScan::isWanted(const std::string& name) const
{
  std::string extensions(CheckBilder ? kPictureExtensions : "");
  if (Checkfrei)
    extensions = tbext;
  return !name.starts_with(kLockedByOffice) && base::contains(base::upper(extensions), base::upper(base::right(name, 3)));
}

bool FrmFileScan::isKnown(const std::string& path)
{
  if (!known_) {
    // A register without its columns is a failure, also an empty one.
    const auto directory = register_->column("pfadLokal"), name = register_->column("Dateiname");
    known_.emplace();
    for (; !register_->eof(); register_->moveNext())
      known_->insert(registerKey(register_->text(directory), register_->text(name)));
  }
  const auto parts = paths::teile_dateipfad(path);
  return known_->contains(registerKey(parts.verzeichnis, parts.name + "." + parts.erweiterung));
}

std::string FrmFileScan::withoutShare(std::string_view path) const { return base::replaceAll(path, tbshare, ""); }

// --- the lists

void FrmFileScan::cballemarkieren_Click()
{
  for (auto& entry : List1)
    entry.selected = true;
}

void FrmFileScan::cbmarkierungweg_Click()
{
  for (auto& entry : List1)
    entry.selected = false;
}

void FrmFileScan::moveSelected(ListBox& from, ListBox& to)
{
  for (const auto& entry : from)
    if (entry.selected)
      to.push_back({entry.text});
  std::erase_if(from, [](const ListEntry& entry) { return entry.selected; });
  showCounts();
}

void FrmFileScan::showCounts()
{
  labelanz = base::format("{}", List1.size());
  lblpixanz = base::format("{}", Listpix.size());
  window.refresh();
}

void FrmFileScan::cbauswahlrüber_Click()
{
  moveSelected(List1, Listpix);
  window.focusInsert();
}

void FrmFileScan::cbzurück_Click() { moveSelected(Listpix, List1); }

void FrmFileScan::dropFiles(const std::vector<std::string>& paths)
{
  // An entry is a path behind the directory. Before anything was chosen there, files from elsewhere stand for themselves.
  const auto isElsewhere = [this](const std::string& path) { return !base::contains(path, tbshare); };
  if (!tbshare.empty() && List1.empty() && Listpix.empty() && std::ranges::all_of(paths, isElsewhere))
    shareBefore_ = std::exchange(tbshare, {});
  for (const auto& path : paths)
    Listpix.push_back({withoutShare(path)});
  lblpixanz = base::format("{}", Listpix.size());
  window.refresh();
}

void FrmFileScan::dropText(std::string_view text)
{
  std::vector<std::string> lines;
  for (;;) {
    const auto end = text.find(base::kCrLf);
    lines.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos)
      break;
    text.remove_prefix(end + base::kCrLf.size());
  }
  dropFiles(lines);
}

void FrmFileScan::List1_Click(std::size_t entry) { click("List1", List1, entry); }

void FrmFileScan::Listpix_Click(std::size_t entry) { click("Listpix", Listpix, entry); }

void FrmFileScan::click(std::string_view list, const ListBox& box, std::size_t entry)
{
  if (entry >= box.size())
    return;
  rotateList = list;
  rotateEntry = box[entry].text;
  rotateIndex_ = entry;
  if (!CheckBitmap)
    return;
  if (const auto path = pathOf(box[entry]); isShownAsPicture(path))
    hooks_.anzeigen(path, "Bitmap");
}

std::string FrmFileScan::pathOf(const ListEntry& entry) const
{
  const auto mark = entry.text.find(kMark);
  return tbshare + (mark == std::string::npos ? entry.text : withoutBlanksBehind(entry.text.substr(0, mark)));
}

void FrmFileScan::CheckBitmap_Click()
{
  if (CheckBitmap)
    hooks_.showViewer();
}

void FrmFileScan::cbrotieren_Click()
{
  if (rotateEntry.empty())
    return;
  std::string turned;
  {
    const WorkOnPictures work(parts_.insertion.frmBildkonvertierer);
    const ui::WaitPointer wait(parts_.insertion.language.ui());
    turned = rotatePicture(tbshare + rotateEntry, Slider1);
  }
  const auto text = withoutShare(turned);
  if (auto* const entry = clickedEntry())
    entry->text = text;
  rotateEntry = text;
  window.refresh();
  hooks_.anzeigen(turned, "Bitmap");
}

/// The entry that was clicked, or the first with its text where the list has changed since; null where there is none.
ListEntry* FrmFileScan::clickedEntry()
{
  auto& box = rotateList == "List1" ? List1 : Listpix;
  if (rotateIndex_ < box.size() && box[rotateIndex_].text == rotateEntry)
    return &box[rotateIndex_];
  const auto first = std::ranges::find(box, rotateEntry, &ListEntry::text);
  return first == box.end() ? nullptr : &*first;
}

// --- the options

void FrmFileScan::CheckOriginalbilder_Click()
{
  bildpartnerEnabled = popupEnabled = CheckBildpartner = CheckPopupfenster = CheckOriginalbilder;
}

void FrmFileScan::CheckBildpartner_Click() { CheckOriginalbilder = CheckOriginalbilder || CheckBildpartner; }

void FrmFileScan::CheckPopupfenster_Click() { CheckOriginalbilder = CheckOriginalbilder || CheckPopupfenster; }

void FrmFileScan::Opdieseseite_Click() { Opdieseseite = tableEnabled = true; }

void FrmFileScan::OpjedesBildeineSeite_Click() { Opdieseseite = tableEnabled = false; }

void FrmFileScan::opnichtkonvertieren_Click()
{
  opkonvertieren = false;
  bildpartnerEnabled = popupEnabled = true;
}

void FrmFileScan::tbtabspalten_Change()
{
  if (!isNumber(tbtabspalten))
    tbtabspalten = "0";
}

void FrmFileScan::tbpixel_LostFocus()
{
  if (!isNumber(tbpixel))
    parts_.insertion.language.GetMsg(kMessageNoNumber);
}

void FrmFileScan::Slider1_Scroll() { sliderToolTip = base::format("Kompressionsfaktor {}%", Slider1); }

// --- the last button

InsertionOutcome FrmFileScan::cbeinfügen_Click()
{
  InsertionOutcome outcome;
  // The lists must stay what they are while pictures are worked on.
  if (isBusy())
    return outcome;
  if (opkonvertieren && !isNumber(tbpixel)) {
    parts_.insertion.language.GetMsg(kMessageNoNumber);
    return outcome;
  }
  hooks_.alone([&] {
    inserting_ = true;
    try {
      insert(outcome);
    } catch (...) {
      inserting_ = false;
      throw;
    }
    inserting_ = false;
  });
  if (!outcome.begun)
    return outcome;
  tellFailures(outcome);
  hooks_.unloadViewer();
  saveOptions();
  unload();
  return outcome;
}

void FrmFileScan::insert(InsertionOutcome& outcome)
{
  ChosenPictures chosen{tbshare, {}, lblnode};
  for (const auto& entry : Listpix)
    chosen.Listpix.push_back(entry.text);
  const auto show = [&] {
    for (std::size_t i = 0; i < Listpix.size(); ++i)
      Listpix[i].text = chosen.Listpix[i];
    lblnode = chosen.lblnode;
    LabelNeu = chosen.LabelNeu;
    Labelalt = chosen.Labelalt;
    window.refresh();
  };
  outcome = PictureInsertion(parts_.insertion, *this).run(chosen, show);
  if (outcome.begun)
    hooks_.inserted();
}

/// The entries say it too, but the window is about to close.
void FrmFileScan::tellFailures(const InsertionOutcome& outcome)
{
  if (outcome.failed.empty())
    return;
  std::string lines;
  for (std::size_t i = 0; i < std::min(outcome.failed.size(), kFailuresTold); ++i) {
    const auto& [path, reason] = outcome.failed[i];
    const auto name = files::nativePath(path).native();
    lines += (base::contains(reason, name) ? reason : base::format("{}: {}", name, reason)) + std::string(base::kCrLf);
  }
  if (outcome.failed.size() > kFailuresTold)
    lines += base::format("... ({})", outcome.failed.size());
  parts_.insertion.language.GetMsg(kMessageNotConverted, lines, "R");
}

void FrmFileScan::cbschließen_Click()
{
  if (inserting_)
    return;
  stopped_ = true;
  storeDirectory();
  unload();
}

void FrmFileScan::unload()
{
  loaded_ = false;
  window.unload();
}

} // namespace mrd::pictures
