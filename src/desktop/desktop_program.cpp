#include "desktop/desktop_program.h"

#include "base/clock.h"
#include "base/product.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/looks/icons.h"
#include "desktop/looks/theme.h"
#include "desktop/seams/qt_ui.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/mainform_window.h"
#include "desktop/windows/startbild_window.h"
#include "mainform/program.h"
#include "platform/files/user_settings.h"

#include <QApplication>
#include <QCommandLineParser>

namespace mrd::desktop {
namespace {

/// The program directory as the user names it, empty for the usual one.
std::string namedProgramDirectory(const QApplication& application)
{
  QCommandLineParser options;
  const QCommandLineOption directory("program-dir", "The program directory.", "DIR");
  options.addOption(directory);
  options.addHelpOption();
  options.addVersionOption();
  options.process(application);
  return (options.isSet(directory) ? options.value(directory) : qEnvironmentVariable("MIRANDEL_HOME")).toStdString();
}

} // namespace

int runDesktop(int argc, char** argv)
{
  WebEditingSurface::prepareEngine();
  QApplication application(argc, argv);
  QApplication::setApplicationName(shown(base::kProductName));
  QApplication::setApplicationVersion(shown(base::kVersion));
  QApplication::setDesktopFileName("mirandel");
  QApplication::setWindowIcon(programIcon());
  const std::string programDirectory = namedProgramDirectory(application);
  followSystemTheme(application);

  // The page's process starts while the rest is made.
  auto surface = std::make_unique<WebEditingSurface>();
  surface->newDocument();

  mainform::FrmStartbild opening;
  FrmStartbildWindow splash(opening);
  splash.show();
  QCoreApplication::processEvents();

  const base::SystemClock clock;
  QtUi ui;
  ui.setSplash(&splash);
  mainform::Program program(paths::ProgramFiles(mainform::findProgramDirectory(programDirectory)), clock, ui);
  ui.setLanguage([&program] { return program.language.Sprache(); });
  files::UserSettings userSettings;
  MainformWindow window(program, ui, userSettings, std::move(surface));
  const bool isOpen = window.start();
  splash.close();
  return isOpen ? QApplication::exec() : 0;
}

} // namespace mrd::desktop
