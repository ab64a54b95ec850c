#pragma once
// The window through which pictures enter a project: a directory is scanned, files are chosen, and the choice is inserted.

#include "pictures/insertion.h"
#include "platform/files/user_settings.h"
#include "platform/ui/tree_control.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace mrd::pictures {

struct ListEntry {
  std::string text;
  bool selected = false;
};
using ListBox = std::vector<ListEntry>;

/// What the window does for its form object.
struct FileScanHooks {
  /// Shows a file in the preview ("Bitmap"), and the preview itself.
  std::function<void(const std::string& datei, std::string_view darstellung)> anzeigen = [](const std::string&,
                                                                                            std::string_view) {};
  std::function<void()> showViewer = [] {}, unloadViewer = [] {};
  std::function<void()> focusInsert = [] {}, help = [] {}, unload = [] {};
  /// A list or a counter has changed; called often during a scan.
  std::function<void()> changed = [] {};
};

class FrmFileScan : public InsertionOptions {
public:
  struct Parts {
    PictureInsertion::Parts insertion;
    ui::TreeControl& TreeView1;
    files::UserSettings& settings;
  };
  static constexpr std::string_view kStart = "&2. Scanlauf starten", kStop = "Scanlauf anhalten";

  FrmFileScan(const Parts& parts, FileScanHooks hooks) : parts_(parts), hooks_(std::move(hooks)) {}

  // The controls.
  std::string tbshare, tbext = "jpg", lblnode = "lblnode";
  /// Caption of the scan button, which says whether a scan runs: the same text in all languages.
  std::string Command1{kStart};
  ListBox List1, Listpix;
  bool CheckSubDir = true, CheckAlle = false, CheckBilder = true, Checkfrei = false, Checknurneue = false, CheckBitmap = true;
  bool CheckOriginalbilder = false;
  std::string labelanz = "0", LabelNeu = "0", Labelalt = "0", lblpixanz = "0";
  /// Which of them can be used.
  bool bildpartnerEnabled = true, popupEnabled = true, tableEnabled = true;
  /// Name of the list that was clicked last, and the text of the entry.
  std::string rotateList, rotateEntry;
  std::string sliderToolTip;

  /// Reads what the user left the last time. The mode of insertion was set by whoever opens the window.
  void Form_Load();

  void cbshare_Click();
  void Command1_Click();
  void cballemarkieren_Click();
  void cbmarkierungweg_Click();
  void cbauswahlrüber_Click();
  /// The Delete key on the chosen files.
  void cbzurück_Click();
  /// Files dragged from outside, by full paths in the system's form; or text, a file a line.
  void dropFiles(const std::vector<std::string>& paths);
  void dropText(std::string_view text);
  void List1_Click(std::size_t entry);
  void Listpix_Click(std::size_t entry);
  void CheckBitmap_Click();
  void cbrotieren_Click();

  void CheckOriginalbilder_Click();
  void CheckBildpartner_Click();
  void CheckPopupfenster_Click();
  void Opdieseseite_Click();
  void OpjedesBildeineSeite_Click();
  void opnichtkonvertieren_Click();
  void tbtabspalten_Change();
  void tbpixel_LostFocus();
  void Slider1_Scroll();

  InsertionOutcome cbeinfügen_Click();
  /// Stores the directory and closes.
  void cbschließen_Click();

  /// Appends what it finds to `List1` and counts; goes into subdirectories where that is wanted.
  void GetAllFiles(std::string path, std::string_view pattern);

private:
  void addFile(const std::string& path, const std::string& name);
  bool isKnown(const std::string& path);
  bool isWanted(const std::string& name) const;
  std::string withoutShare(std::string_view path) const;
  void moveSelected(ListBox& from, ListBox& to);
  void showCounts();
  void click(std::string_view list, const ListBox& box, std::size_t entry);
  void saveOptions();
  bool letEventsRun();

  Parts parts_;
  FileScanHooks hooks_;
  bool stopped_ = false;
  std::size_t entriesSinceEvents_ = 0;
  /// Directories that the scan has been in, so that a link to one above does not lead round and round.
  std::unordered_set<std::string> visited_;
  /// Files of the register by directory and name; read when the first file is looked up.
  std::optional<std::unordered_set<std::string>> known_;
};

} // namespace mrd::pictures
