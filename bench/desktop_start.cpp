// The desktop's start with a project, cut off when the page of the project is in the editor.
//
//   desktop_start PROGRAM-DIR SETTINGS-FILE [SAVES]
//
// With SAVES the page then gets another heading and is saved so often, and the milliseconds of each save are printed, a line
// each: first those in which the editor hands over the text, then all.

#include "base/clock.h"
#include "base/format.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/looks/theme.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/startbild_window.h"
#include "mainform/program.h"
#include "platform/files/path.h"
#include "platform/files/user_settings.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

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

void saveWithAnotherHeading(desktop::MainformWindow& window, int number)
{
  auto& surface = window.form().pages().surface();
  surface.setBodyInnerHtml(base::format("<h3 id=\"ueberschrift\">{}</h3><p>Text</p>", number));
  const double reading = milliseconds([&] { surface.bodyInnerHtml(); });
  const double saving = milliseconds([&] { window.findChild<QAction*>("seitespeichern")->trigger(); });
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
  desktop::followSystemTheme(application);
  auto surface = std::make_unique<desktop::WebEditingSurface>();
  surface->newDocument();
  mainform::FrmStartbild opening;
  desktop::FrmStartbildWindow splash(opening);
  splash.show();
  QCoreApplication::processEvents();
  const base::SystemClock clock;
  desktop::QtUi ui;
  ui.setSplash(&splash);
  mainform::Program program(paths::ProgramFiles(files::systemPath(argv[1])), clock, ui);
  files::UserSettings settings(argv[2]);
  desktop::MainformWindow window(program, ui, settings, std::move(surface));
  if (!window.start())
    return 1;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &application, [&] {
    if (window.form().pages().surface().busy() || !window.form().pages().isOpen())
      return;
    look.stop();
    for (int i = 0; i < saves; ++i)
      saveWithAnotherHeading(window, i);
    std::_Exit(0); // what follows is no part of the start
  });
  look.start(1);
  return QApplication::exec();
}
