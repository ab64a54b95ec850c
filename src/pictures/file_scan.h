#pragma once
// The window through which pictures enter a project: a directory is scanned, files are chosen, and the choice is inserted.

#include "pictures/insertion.h"
#include "platform/files/user_settings.h"
#include "platform/ui/tree_control.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace mrd::pictures {

/// Whether the extension is one of those that the scan takes for pictures, or one that the viewer shows.
bool isPictureName(std::string_view path);

/// The same files for a file dialog, which has a caption of no language.
inline constexpr std::string_view kPictureFilter =
    "jpg, png, gif ...|*.jpg;*.jpeg;*.png;*.gif;*.bmp;*.tif;*.pcx;*.JPG;*.JPEG;*.PNG";

struct ListEntry {
  std::string text;
  bool selected = false;
};
using ListBox = std::vector<ListEntry>;

/// What the main window does for this one.
struct FileScanHooks {
  /// Shows a file in the preview ("Bitmap"), and the preview itself.
  std::function<void(const std::string& datei, std::string_view darstellung)> anzeigen = [](const std::string&,
                                                                                            std::string_view) {};
  std::function<void()> showViewer = [] {}, unloadViewer = [] {};
  std::function<void()> help = [] {};
  /// Runs the insertion while nothing else can be done to the page.
  std::function<void(const std::function<void()>& run)> alone = [](const std::function<void()>& run) { run(); };
  /// The open page has another content, or the tree another page.
  std::function<void()> inserted = [] {};
};

/// The options of conversion that the user left in the window.
ConversionOptions storedConversion(const files::UserSettings& settings);

class FrmFileScan : public InsertionOptions {
public:
  /// `refresh` comes often during a scan, with lists that have only grown.
  struct Window : ui::FormWindow {
    std::function<void()> focusInsert = [] {};
  };
  struct Parts {
    PictureInsertion::Parts insertion;
    ui::TreeControl& TreeView1;
    files::UserSettings& settings;
  };
  static constexpr std::string_view kStart = "&2. Scanlauf starten", kStop = "Scanlauf anhalten";

  FrmFileScan(const Parts& parts, FileScanHooks hooks) : parts_(parts), hooks_(std::move(hooks)) {}

  Window window;

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

  /// Reads what the user left the last time. The mode of insertion is set by whoever opens the window.
  void Form_Load();
  /// The window asks for the page that is selected now.
  void readNode();
  bool isLoaded() const { return loaded_; }
  bool isScanning() const { return scanning_; }
  /// A scan or a run is under way: the form object is needed until it ends.
  bool isBusy() const { return scanning_ || inserting_; }

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
  void cbhilfe_Click() { hooks_.help(); }
  /// Path of an entry, without what a run has added to it.
  std::string pathOf(const ListEntry& entry) const;

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
  /// Stores the directory and closes. A scan ends; a run of insertion has its own button for that.
  void cbschließen_Click();

  /// Appends what it finds to `List1` and counts; goes into subdirectories where that is wanted.
  void GetAllFiles(std::string path);

private:
  void scan();
  void endScan();
  void addFile(const std::string& path, const std::string& name);
  bool isKnown(const std::string& path);
  bool isWanted(const std::string& name) const;
  std::string withoutShare(std::string_view path) const;
  void moveSelected(ListBox& from, ListBox& to);
  void showCounts();
  void click(std::string_view list, const ListBox& box, std::size_t entry);
  void saveOptions();
  void letEventsRun();
  void insert(InsertionOutcome& outcome);
  ListEntry* clickedEntry();
  void storeDirectory();
  void tellFailures(const InsertionOutcome& outcome);
  void unload();

  Parts parts_;
  FileScanHooks hooks_;
  bool stopped_ = false, loaded_ = false, scanning_ = false, inserting_ = false;
  /// Place of the entry that was clicked last; another one can have the same text.
  std::size_t rotateIndex_ = 0;
  /// The directory that gave way to files from elsewhere.
  std::string shareBefore_;
  std::size_t entriesSinceEvents_ = 0;
  std::chrono::steady_clock::time_point eventsRan_;
  /// Directories that the scan has been in, so that a link to one above does not lead round and round.
  std::unordered_set<std::string> visited_;
  /// The register, opened by a scan for new files, and its files by directory and name, read when the first is looked up.
  std::optional<dao::Recordset> register_;
  std::optional<std::unordered_set<std::string>> known_;
};

} // namespace mrd::pictures
