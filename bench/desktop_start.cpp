// The desktop's start with a project, cut off when the page of the project is in the editor.
//
//   desktop_start PROGRAM-DIR SETTINGS-FILE

#include "base/clock.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/looks/theme.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/startbild_window.h"
#include "mainform/program.h"
#include "platform/files/path.h"
#include "platform/files/user_settings.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

using namespace mrd;

int main(int argc, char** argv)
{
  if (argc != 3)
    return 2;
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
    if (!window.form().pages().surface().busy() && window.form().pages().isOpen())
      std::_Exit(0); // what follows is no part of the start
  });
  look.start(1);
  return QApplication::exec();
}
