// The editor for HTML with a text of megabytes: the milliseconds until it is shown, of a search over all of it, of one
// replacement with the search that follows it, and of a typed letter; then those of the toolkit's plain field for showing and
// typing.
//
//   source_editor [MEGABYTES [one-line]]
//
// "one-line" leaves out all line ends, as many programs write their pages.

#include "base/format.h"
#include "base/text.h"
#include "desktop/controls/html_source.h"
#include "editor/search_replace.h"
#include "frame/messages/messages.h"
#include "frame/paths/paths.h"
#include "platform/files/path.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <vector>

using namespace mrd;

namespace {

constexpr int kRounds = 20;

/// The user, who is told nothing here.
struct SilentUi : ui::Ui {
  ui::Button messageBox(const ui::MessageBox&) override { return ui::Button::Ok; }
  std::optional<std::string> inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
  std::optional<std::string> openFileDialog(const ui::FileDialog&) override { return {}; }
  std::optional<std::string> saveFileDialog(const ui::FileDialog&) override { return {}; }
  std::optional<std::string> folderDialog(std::string_view) override { return {}; }
  std::optional<int> colourDialog(int) override { return {}; }
  void status(ui::StatusPlace, std::string_view) override {}
  void progress(std::size_t, std::size_t) override {}
  void hideProgress() override {}
  void pointer(ui::Pointer) override {}
  bool pumpEvents() override { return false; }
  void hideSplash() override {}
};

template <class Work>
double milliseconds(Work work)
{
  QElapsedTimer clock;
  clock.start();
  work();
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

template <class Work>
double median(Work work)
{
  std::vector<double> all;
  for (int round = 0; round < kRounds; ++round)
    all.push_back(milliseconds(work));
  std::ranges::sort(all);
  return all[all.size() / 2];
}

std::string page(std::size_t bytes)
{
  std::string text;
  for (int line = 0; text.size() < bytes; ++line)
    text += base::format("<p align=\"center\">Zeile {} mit <b>fettem</b> Text &amp; Umlauten: äöüß</p>\r\n", line);
  return text;
}

void typeLetter(QWidget& field)
{
  QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
  QApplication::sendEvent(&field, &press);
  QApplication::processEvents();
}

void print(std::string_view what, double ms) { std::cout << base::format("{:<34}{:>9.2f} ms\n", what, ms) << std::flush; }

} // namespace

int main(int argc, char** argv)
{
  QApplication application(argc, argv);
  const std::size_t megabytes = argc > 1 ? static_cast<std::size_t>(std::atoi(argv[1])) : 5;
  std::string text = page(megabytes * 1000 * 1000);
  if (argc > 2)
    text = base::replaceAll(text, base::kCrLf, "");
  SilentUi silent;
  const paths::ProgramFiles files(files::systemPath("."));
  messages::Language language(files, silent);

  desktop::HtmlSource field;
  field.resize(900, 700);
  field.show();
  QApplication::processEvents();
  print("shown", milliseconds([&] {
          field.setSource(text);
          QApplication::processEvents();
        }));
  editor::FormSuchenErsetzen search(language, field, {});
  search.tbsuchen = "kommt nicht vor";
  print("search over all of it", median([&] { search.cbsuchen_Click(); }));
  search.tbsuchen = "FETTEM";
  search.tbersetzen = "magerem";
  field.select({field.source().size() / 2, 0});
  search.cbsuchen_Click();
  print("one replacement, next one found", median([&] { search.cbersetzen_Click(); }));
  print("... painted", median([&] {
          search.cbersetzen_Click();
          QApplication::processEvents();
        }));
  print("a typed letter", median([&] { typeLetter(field); }));

  QPlainTextEdit plain;
  plain.resize(900, 700);
  plain.show();
  QApplication::processEvents();
  print("plain field: shown", milliseconds([&] {
          plain.setPlainText(QString::fromStdString(text));
          QApplication::processEvents();
        }));
  print("plain field: a typed letter", median([&] { typeLetter(plain); }));
  return 0;
}
