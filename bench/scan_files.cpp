// Scans a directory in the picture dialog as it stands on the screen. Prints how many files it lists and the seconds of the scan;
// on standard error the longest time that the window did not answer.

#include "desktop/looks/theme.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/windows/file_scan_window.h"
#include "editor/document_surface.h"
#include "pagetree/plain_tree.h"
#include "pictures/file_scan.h"
#include "platform/files/path.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {

using namespace mrd;

/// Notes how long the window had to wait for its events.
class Beat {
public:
  Beat()
  {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { longest_ = std::max(longest_, clock_.restart()); });
    timer_.start(1);
    clock_.start();
  }
  qint64 longestMilliseconds() { return std::max(longest_, clock_.elapsed()); }

private:
  QTimer timer_;
  QElapsedTimer clock_;
  qint64 longest_ = 0;
};

void scan(const std::filesystem::path& work, const std::string& directory)
{
  desktop::QtUi ui;
  const paths::ProgramFiles program(files::systemPath(work));
  messages::Language language(program, ui);
  const base::SystemClock clock;
  const settings::Fields fields;
  auto db = dao::Database::create(program.file("\\scan.mdb"));
  editor::DocumentSurface surface;
  pagetree::PlainTree tree;
  pictures::frmBildkonvertierer converter;
  files::UserSettings settings((work / "settings.ini").native());
  pictures::FrmFileScan form({{db, language, clock, fields, program, surface, converter}, tree, settings}, {});
  form.tbshare = directory;
  // A window without a language database says so.
  QTimer::singleShot(0, [] {
    if (auto* const box = QApplication::activeModalWidget())
      box->close();
  });
  desktop::FrmFileScanWindow window(form, language);
  window.show();
  QApplication::processEvents();
  Beat beat;
  QElapsedTimer time;
  time.start();
  window.findChild<QAbstractButton*>("Command1")->click();
  constexpr double kNanosecondsPerSecond = 1e9;
  const double seconds = static_cast<double>(time.nsecsElapsed()) / kNanosecondsPerSecond;
  std::cout << form.List1.size() << ' ' << seconds << '\n';
  std::cerr << "longest wait of the window: " << beat.longestMilliseconds() << " ms\n";
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 2) {
    std::cerr << "usage: scan_files DIRECTORY\n";
    return 2;
  }
  QApplication application(argc, argv);
  desktop::applyTheme(application, desktop::Theme::Light);
  std::string pattern = (std::filesystem::temp_directory_path() / "mrd-scan-XXXXXX").string();
  const std::filesystem::path work = ::mkdtemp(pattern.data());
  scan(work, files::systemPath(argv[1]));
  std::filesystem::remove_all(work);
}
