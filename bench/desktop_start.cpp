// The desktop's start with a project, cut off when the page of the project is in the editor.
//
//   desktop_start PROGRAM-DIR SETTINGS-FILE [SAVES]
//
// With SAVES the page then gets another heading and is saved so often, and the milliseconds of each save are printed, a line
// each: first those in which the editor hands over the text, then all.

#include "base/format.h"
#include "started_desktop.h"

#include <QAction>
#include <QElapsedTimer>

#include <cstdlib>
#include <iostream>

using namespace mrd;

namespace {

template <class Work>
double milliseconds(Work work)
{
  QElapsedTimer clock;
  clock.start();
  work();
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void saveWithAnotherHeading(bench::StartedDesktop& desktop, int number)
{
  auto& surface = desktop.pages().surface();
  surface.setBodyInnerHtml(base::format("<h3 id=\"ueberschrift\">{}</h3><p>Text</p>", number));
  const double reading = milliseconds([&] { surface.bodyInnerHtml(); });
  const double saving = milliseconds([&] { desktop.window().findChild<QAction*>("seitespeichern")->trigger(); });
  std::cout << base::format("{:.1f} {:.1f}\n", reading, saving) << std::flush;
}

} // namespace

int main(int argc, char** argv)
{
  if (argc != 3 && argc != 4)
    return 2;
  const int saves = argc == 4 ? std::atoi(argv[3]) : 0;
  desktop::WebEditingSurface::prepareEngine();
  QApplication application(argc, argv);
  bench::StartedDesktop desktop(application, argv[1], argv[2]);
  if (!desktop.isOpen())
    return 1;
  desktop.whenReady([&] {
    for (int i = 0; i < saves; ++i)
      saveWithAnotherHeading(desktop, i);
  });
  return QApplication::exec();
}
