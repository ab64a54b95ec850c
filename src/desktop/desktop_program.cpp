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
#include "platform/files/path.h"
#include "platform/files/user_settings.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdlib>
#include <iostream>

namespace mrd::desktop {
namespace {

struct CommandLine {
  /// Native path; empty for the usual one.
  std::string programDirectory;
  /// In the system's form; empty for the project that was open last.
  std::string projectFile;
};

[[noreturn]] void refuse(const QCommandLineParser& options)
{
  constexpr int kWrongUsage = 2;
  std::cerr << "mirandel: one project at a time\n\n" << options.helpText().toStdString();
  std::exit(kWrongUsage);
}

/// Ends the program where the user asks for help or what he typed makes no sense.
CommandLine commandLineOf(const QApplication& application)
{
  QCommandLineParser options;
  options.setApplicationDescription("Websites from your own photographs and texts.");
  options.addPositionalArgument("FILE", "The project to open; without it the one that was open last.", "[FILE]");
  const QCommandLineOption directory("program-dir", "The program directory.", "DIR");
  options.addOption(directory);
  options.addHelpOption();
  options.addVersionOption();
  options.process(application);
  const QStringList names = options.positionalArguments();
  if (names.size() > 1)
    refuse(options);
  const QString home = options.isSet(directory) ? options.value(directory) : qEnvironmentVariable("MIRANDEL_HOME");
  return {home.toStdString(), names.isEmpty() ? "" : files::systemPath(names.front().toStdString())};
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
  const CommandLine commandLine = commandLineOf(application);
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
  mainform::Program program(paths::ProgramFiles(mainform::findProgramDirectory(commandLine.programDirectory)), clock, ui);
  ui.setLanguage(&program.language);
  files::UserSettings userSettings;
  MainformWindow window(program, ui, userSettings, std::move(surface));
  const bool isOpen = window.start(commandLine.projectFile);
  splash.close();
  return isOpen ? QApplication::exec() : 0;
}

} // namespace mrd::desktop
