#include "pictures/file_scan.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "platform/files/directory.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace mrd::pictures {
namespace {

constexpr std::string_view kPictureExtensions = "jpg bmp tif gif pcx ico pcd img dib wmf png";
constexpr std::array<std::string_view, 7> kShownExtensions{"gif", "jpg", "bmp", "tif", "pcx", "jpeg", "png"};
constexpr std::string_view kMark = " -- ", kLockedByOffice = "~$";
constexpr std::string_view kAllFiles = "*.*";
constexpr std::size_t kEntriesBetweenEvents = 500;
constexpr int kMessageNoNumber = 30;

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

} // namespace

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
  stopped_ = false;
  Command1 = kStop;
  parts_.insertion.language.ui().pumpEvents();
  const ui::WaitPointer wait(parts_.insertion.language.ui());
  List1.clear();
  labelanz = LabelNeu = Labelalt = "0";
  visited_.clear();
  known_.reset();
  // The button starts again whatever ends the scan.
  try {
    GetAllFiles(tbshare, kAllFiles);
  } catch (const base::Error&) {
    Command1 = kStart;
    throw;
  }
  Command1 = kStart;
  hooks_.changed();
}

void FrmFileScan::GetAllFiles(std::string path, std::string_view pattern)
{
  stopped_ = letEventsRun() || stopped_;
  if (!path.ends_with('\\'))
    path += '\\';
  if (stopped_ || !visited_.insert(files::directoryIdentity(path)).second)
    return;
  for (const auto& entry : files::directoryEntries(path)) {
    if (entry.isDirectory) {
      if (CheckSubDir)
        GetAllFiles(path + entry.name + "\\", pattern);
    } else {
      addFile(path, entry.name);
    }
    if (++entriesSinceEvents_ % kEntriesBetweenEvents == 0)
      stopped_ = letEventsRun() || stopped_;
    if (stopped_)
      return;
  }
}

bool FrmFileScan::letEventsRun()
{
  hooks_.changed();
  return parts_.insertion.language.ui().pumpEvents();
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
    known_.emplace();
    auto rows = parts_.insertion.db.openSnapshot("SELECT * FROM dateien");
    for (; !rows.eof(); rows.moveNext())
      known_->insert(registerKey(rows.value("pfadLokal").text(), rows.value("Dateiname").text()));
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
  hooks_.changed();
}

void FrmFileScan::cbauswahlrüber_Click()
{
  moveSelected(List1, Listpix);
  hooks_.focusInsert();
}

void FrmFileScan::cbzurück_Click() { moveSelected(Listpix, List1); }

void FrmFileScan::dropFiles(const std::vector<std::string>& paths)
{
  for (const auto& path : paths)
    Listpix.push_back({withoutShare(path)});
  lblpixanz = base::format("{}", Listpix.size());
  hooks_.changed();
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
  // A line end behind the last name begins no further one.
  if (lines.back().empty())
    lines.pop_back();
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
  if (!CheckBitmap)
    return;
  auto path = tbshare + rotateEntry;
  if (const auto mark = rotateEntry.find(kMark); mark != std::string::npos)
    path = tbshare + base::trim(rotateEntry.substr(0, mark));
  const auto extension = base::lower(paths::teile_dateipfad(path).erweiterung);
  if (std::ranges::find(kShownExtensions, extension) != kShownExtensions.end())
    hooks_.anzeigen(path, "Bitmap");
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
    const ui::WaitPointer wait(parts_.insertion.language.ui());
    turned = rotatePicture(tbshare + rotateEntry, Slider1);
  }
  const auto text = withoutShare(turned);
  auto& box = rotateList == "List1" ? List1 : Listpix;
  const auto entry = std::ranges::find(box, rotateEntry, &ListEntry::text);
  if (entry != box.end())
    entry->text = text;
  rotateEntry = text;
  hooks_.anzeigen(turned, "Bitmap");
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
  ChosenPictures chosen{tbshare, {}, lblnode};
  for (const auto& entry : Listpix)
    chosen.Listpix.push_back(entry.text);
  auto outcome = PictureInsertion(parts_.insertion, *this).run(chosen);
  if (!outcome.begun)
    return outcome;
  for (std::size_t i = 0; i < Listpix.size(); ++i)
    Listpix[i].text = chosen.Listpix[i];
  lblnode = chosen.lblnode;
  hooks_.changed();
  hooks_.unloadViewer();
  saveOptions();
  hooks_.unload();
  return outcome;
}

void FrmFileScan::cbschließen_Click()
{
  parts_.settings.setValue("Settings", "search", tbshare);
  hooks_.unload();
}

} // namespace mrd::pictures
