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

using namespace mrd;

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

int main(int argc, char** argv)
{
  desktop::WebEditingSurface::prepareEngine();
  QApplication application(argc, argv);
  QApplication::setApplicationName(desktop::shown(base::kProductName));
  QApplication::setApplicationVersion(desktop::shown(base::kVersion));
  QApplication::setDesktopFileName("mirandel");
  QApplication::setWindowIcon(desktop::programIcon());
  const std::string programDirectory = namedProgramDirectory(application);
  desktop::followSystemTheme(application);

  mainform::FrmStartbild opening;
  desktop::FrmStartbildWindow splash(opening);
  splash.show();
  QCoreApplication::processEvents();

  const base::SystemClock clock;
  desktop::QtUi ui;
  ui.setSplash(&splash);
  mainform::Program program(paths::ProgramFiles(mainform::findProgramDirectory(programDirectory)), clock, ui);
  ui.setLanguage([&program] { return program.language.Sprache(); });
  files::UserSettings userSettings;
  desktop::MainformWindow window(program, ui, userSettings);
  const bool isOpen = window.start();
  splash.close();
  return isOpen ? QApplication::exec() : 0;
}
