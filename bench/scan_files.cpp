// Scans a directory as the picture dialog does and prints how many files it lists.

#include "editor/document_surface.h"
#include "pagetree/plain_tree.h"
#include "pictures/file_scan.h"
#include "platform/files/path.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {

using namespace mrd;

/// A window that notes how long it had to wait for its events.
class WaitingUi : public ui::Ui {
public:
  ui::Button messageBox(const ui::MessageBox&) override { return ui::Button::Ok; }
  std::optional<std::string> inputBox(std::string_view, std::string_view, std::string_view) override { return std::nullopt; }
  std::optional<std::string> openFileDialog(const ui::FileDialog&) override { return std::nullopt; }
  std::optional<std::string> saveFileDialog(const ui::FileDialog&) override { return std::nullopt; }
  std::optional<std::string> folderDialog(std::string_view) override { return std::nullopt; }
  std::optional<int> colourDialog(int) override { return std::nullopt; }
  void status(ui::StatusPlace, std::string_view) override {}
  void progress(std::size_t, std::size_t) override {}
  void hideProgress() override {}
  void pointer(ui::Pointer) override {}
  void hideSplash() override {}
  bool pumpEvents() override
  {
    const auto now = Clock::now();
    longestWait = std::max(longestWait, now - last_);
    last_ = now;
    return false;
  }

  using Clock = std::chrono::steady_clock;
  Clock::duration longestWait{};

private:
  Clock::time_point last_ = Clock::now();
};

} // namespace

int main(int argc, char** argv)
{
  if (argc != 2) {
    std::cerr << "usage: scan_files DIRECTORY\n";
    return 2;
  }
  std::string pattern = (std::filesystem::temp_directory_path() / "mrd-scan-XXXXXX").string();
  const std::filesystem::path work = ::mkdtemp(pattern.data());
  std::size_t found = 0;
  WaitingUi ui;
  {
    const paths::ProgramFiles program(files::systemPath(work));
    messages::Language language(program, ui);
    const base::SystemClock clock;
    const settings::Fields fields;
    auto db = dao::Database::create(program.file("\\scan.mdb"));
    editor::DocumentSurface surface;
    pagetree::PlainTree tree;
    pictures::frmBildkonvertierer converter;
    files::UserSettings settings((work / "settings.ini").native());
    pictures::FrmFileScan form({{db, language, clock, fields, program, surface, converter, [] {}}, tree, settings}, {});
    form.tbshare = files::systemPath(argv[1]);
    form.Command1_Click();
    found = form.List1.size();
  }
  std::filesystem::remove_all(work);
  std::cout << found << '\n';
  std::cerr << "longest wait of the window: " << std::chrono::duration_cast<std::chrono::milliseconds>(ui.longestWait).count()
            << " ms\n";
}
