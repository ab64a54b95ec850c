#pragma once
// The desktop, started as the program does it, with the project that its INI names.

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

#include <functional>
#include <memory>

namespace mrd::bench {

class StartedDesktop {
public:
  StartedDesktop(QApplication& application, const char* programDirectory, const char* settingsFile)
      : surface_(makeSurface(application)), splash_(opening_),
        program_(paths::ProgramFiles(files::systemPath(programDirectory)), clock_, ui_), settings_(settingsFile)
  {
    splash_.show();
    QCoreApplication::processEvents();
    ui_.setSplash(&splash_);
    window_ = std::make_unique<desktop::MainformWindow>(program_, ui_, settings_, std::move(surface_));
    isOpen_ = window_->start();
  }

  bool isOpen() const { return isOpen_; }
  desktop::MainformWindow& window() { return *window_; }
  mainform::PageDesk& pages() { return window_->form().pages(); }

  /// Runs the program until the page is in the editor, calls `work` and ends the process without a clean-up.
  void whenReady(std::function<void()> work)
  {
    QObject::connect(&look_, &QTimer::timeout, &look_, [this, work = std::move(work)] {
      if (pages().surface().busy() || !pages().isOpen())
        return;
      look_.stop();
      work();
      std::_Exit(0);
    });
    look_.start(1);
  }

private:
  /// The engine first, as the program does: its process comes up while the rest is made.
  static std::unique_ptr<desktop::WebEditingSurface> makeSurface(QApplication& application)
  {
    desktop::followSystemTheme(application);
    auto surface = std::make_unique<desktop::WebEditingSurface>();
    surface->newDocument();
    return surface;
  }

  std::unique_ptr<desktop::WebEditingSurface> surface_;
  mainform::FrmStartbild opening_;
  desktop::FrmStartbildWindow splash_;
  base::SystemClock clock_;
  desktop::QtUi ui_;
  mainform::Program program_;
  files::UserSettings settings_;
  std::unique_ptr<desktop::MainformWindow> window_;
  QTimer look_;
  bool isOpen_ = false;
};

} // namespace mrd::bench
