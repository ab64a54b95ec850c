#include "desktop/windows/desk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

namespace mrd::desktop {

bool comesTrue(const std::function<bool()>& condition, int milliseconds)
{
  QElapsedTimer clock;
  clock.start();
  while (!condition() && clock.elapsed() < milliseconds)
    letPass(5);
  return condition();
}

void letPass(int milliseconds)
{
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

std::function<void(QDialog&)> fileNamed(const std::filesystem::path& path)
{
  return [path](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path.string()));
    QMetaObject::invokeMethod(&dialog, "accept");
  };
}

Answers::Answers()
{
  constexpr int kLookMilliseconds = 10;
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
  timer_.start(kLookMilliseconds);
}

void Answers::look()
{
  QWidget* const shown = QApplication::activeModalWidget();
  std::erase_if(answered_, [](const QPointer<QWidget>& window) { return window.isNull() || !window->isVisible(); });
  if (!shown || !shown->isVisible() || std::find(answered_.begin(), answered_.end(), shown) != answered_.end())
    return;
  answered_.emplace_back(shown);
  if (auto* const box = qobject_cast<QMessageBox*>(shown))
    return answer(*box);
  auto* const dialog = qobject_cast<QDialog*>(shown);
  if (!dialog)
    return;
  dialogTitles.push_back(dialog->windowTitle().toStdString());
  auto act = std::function([](QDialog& unexpected) { unexpected.reject(); });
  if (!dialogs.empty()) {
    act = dialogs.front();
    dialogs.pop_front();
  }
  // Not in here: a timer waits for its last event, and what the act opens wants an answer too.
  QTimer::singleShot(0, dialog, [act, dialog] { act(*dialog); });
}

void Answers::answer(QMessageBox& box)
{
  boxes.push_back(box.text().toStdString());
  QAbstractButton* chosen = box.defaultButton();
  if (!buttons.empty()) {
    const auto name = QStringLiteral("button_%1").arg(static_cast<int>(buttons.front()));
    buttons.pop_front();
    if (auto* const named = box.findChild<QAbstractButton*>(name))
      chosen = named;
  }
  chosen->click();
}

ProgramHome::ProgramHome()
{
  namespace fs = std::filesystem;
  for (const auto& entry : fs::directory_iterator(MRD_PROGRAM_DIR))
    if (const auto name = entry.path().filename(); name != "mirandel" && name != "mrd" && name.extension() != ".INI")
      fs::copy(entry.path(), directory.native() / name, fs::copy_options::recursive);
}

std::string ProgramHome::iniValue(std::string_view section, std::string_view key) const
{
  return paths::LeseIni(section, key, paths::ProgramFiles(directory.path()).iniFile());
}

void ProgramHome::setIniValue(std::string_view section, std::string_view key, std::string_view value) const
{
  paths::SchreibeIni(section, key, value, paths::ProgramFiles(directory.path()).iniFile());
}

void ProgramHome::lastWorkedOn(const std::string& project, int width, int height) const
{
  setIniValue("LastFile", "File1", project);
  files::UserSettings settings(userSettingsFile());
  settings.setValue("Settings", "Assistent", "nein");
  settings.setValue("Settings", "MainWidth", std::to_string(width));
  settings.setValue("Settings", "MainHeight", std::to_string(height));
}

Desk::Desk(ProgramHome& programHome)
    : home(programHome), userSettings(programHome.userSettingsFile()),
      program_(std::make_unique<mainform::Program>(paths::ProgramFiles(programHome.directory.path()), clock_, ui_)),
      window_(std::make_unique<MainformWindow>(*program_, ui_, userSettings))
{
  ui_.setLanguage(&program_->language);
}

Desk::~Desk()
{
  if (window_->isVisible())
    window_->close();
}

bool Desk::start()
{
  constexpr int kActiveMilliseconds = 1000;
  const bool open = window_->start();
  // Where no window manager does it, the window has to ask for the keyboard.
  window_->activateWindow();
  comesTrue([this] { return window_->isActiveWindow(); }, kActiveMilliseconds);
  settle();
  return open;
}

void Desk::settle()
{
  constexpr int kMomentMilliseconds = 60;
  comesTrue([this] { return !surface().busy(); });
  letPass(kMomentMilliseconds);
}

QTreeWidgetItem* Desk::node(const std::string& key)
{
  for (QTreeWidgetItemIterator item(&tree()); *item; ++item)
    if (PageTree::keyOf(**item) == key)
      return *item;
  return nullptr;
}

void Desk::clickNode(const std::string& key)
{
  tree().scrollToItem(node(key));
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualItemRect(node(key)).center());
  settle();
}

void Desk::writeSource(const std::string& html)
{
  auto& tabs = find<QTabWidget>("tabHtml");
  tabs.setCurrentIndex(static_cast<int>(mainform::HtmlTab::Source));
  settle();
  find<QPlainTextEdit>("tbhtml").setPlainText(QString::fromStdString(html));
  tabs.setCurrentIndex(static_cast<int>(mainform::HtmlTab::Editor));
  settle();
}

void Desk::dragNode(const std::string& from, const std::string& to)
{
  QWidget* const view = tree().viewport();
  QTest::mousePress(view, Qt::LeftButton, {}, tree().visualItemRect(node(from)).center());
  settle();
  const QPoint target = tree().visualItemRect(node(to)).center();
  // The first move starts the drag, the second finds the target.
  for (int step = 0; step < 2; ++step) {
    QMouseEvent move(QEvent::MouseMove, target, view->mapToGlobal(target), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(view, &move);
  }
  QTest::mouseRelease(view, Qt::LeftButton, {}, target);
  settle();
}

} // namespace mrd::desktop
