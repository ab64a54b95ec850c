// The yardstick of the desktop's start: a bare window with the web engine that shows one page without content, and ends when it
// does.

#include <QApplication>
#include <QMainWindow>
#include <QWebEngineView>

#include <cstdlib>

int main(int argc, char** argv)
{
  QApplication application(argc, argv);
  QMainWindow window;
  QWebEngineView view;
  window.setCentralWidget(&view);
  // What follows is no part of the start.
  QObject::connect(&view, &QWebEngineView::loadFinished, &application, [] { std::_Exit(0); });
  window.resize(1000, 700);
  window.show();
  view.setHtml("<html><body></body></html>");
  return QApplication::exec();
}
