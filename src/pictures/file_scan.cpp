#include "pictures/file_scan.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "pictures/objekt_anzeigen.h"
#include "platform/files/directory.h"

#include <algorithm>
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

void countUp(std::string& caption) { caption = base::format("{}", static_cast<long long>(base::numericValue(caption)) + 1); }

/// Two files are one for the register's comparison of texts.
std::string registerKey(std::string_view directory, std::string_view name)
{
  return base::comparisonKey(directory) + '\n' + base::comparisonKey(name);
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

} // namespace mrd::pictures
