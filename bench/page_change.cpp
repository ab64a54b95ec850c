// Changes of page in the desktop, each beside a bare window of the web engine that is given the same page's text.
//
//   page_change PROGRAM-DIR SETTINGS-FILE PROJECT [CHANGES]
//
// Prints the milliseconds of each change, a line each: first the bare window's, then the program's, both until the text is there.

#include "base/format.h"
#include "platform/dao/database.h"
#include "started_desktop.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QWebEngineView>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

using namespace mrd;

namespace {

struct Page {
  std::string id, html;
};

std::vector<Page> pagesOf(const std::string& project)
{
  std::vector<Page> pages;
  auto db = dao::Database::open(project);
  for (auto rows = db.openSnapshot("SELECT id, html FROM Seite WHERE id <> '00' ORDER BY id"); !rows.eof(); rows.moveNext())
    pages.push_back({std::string(rows.value("id").text()), std::string(rows.value("html").text())});
  return pages;
}

template <class Start, class IsOver>
double millisecondsUntil(Start start, IsOver isOver)
{
  QElapsedTimer clock;
  clock.start();
  start();
  while (!isOver())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

double inBareWindow(QWebEngineView& view, const Page& page)
{
  bool loaded = false;
  const auto connection = QObject::connect(&view, &QWebEngineView::loadFinished, [&] { loaded = true; });
  const double time = millisecondsUntil([&] { view.setHtml(QString::fromStdString(page.html)); }, [&] { return loaded; });
  QObject::disconnect(connection);
  return time;
}

double inProgram(bench::StartedDesktop& desktop, const Page& page)
{
  return millisecondsUntil([&] { desktop.pages().changePage("@" + page.id); }, [&] { return !desktop.pages().surface().busy(); });
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 4 && argc != 5)
    return 2;
  const std::size_t changes = argc == 5 ? static_cast<std::size_t>(std::atoi(argv[4])) : 40;
  desktop::WebEditingSurface::prepareEngine();
  QApplication application(argc, argv);
  const auto pages = pagesOf(files::systemPath(argv[3]));
  bench::StartedDesktop desktop(application, argv[1], argv[2]);
  if (!desktop.isOpen() || pages.empty())
    return 1;
  QWebEngineView bare;
  bare.resize(700, 600);
  bare.show();
  desktop.whenReady([&] {
    for (std::size_t i = 0; i < changes; ++i) {
      const Page& page = pages[i % pages.size()];
      const double yardstick = inBareWindow(bare, page);
      std::cout << base::format("{:.1f} {:.1f}\n", yardstick, inProgram(desktop, page)) << std::flush;
    }
  });
  return QApplication::exec();
}
