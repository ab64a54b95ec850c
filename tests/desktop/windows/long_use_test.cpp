// Somebody who uses the program without a plan and without a pause: what he does in an hour costs no memory, leaves no file open,
// and his project stays whole. MRD_LONG is the hour; without it a few dozen acts show that the acts work.

#include "desktop/windows/desk.h"
#include "platform/files/path.h"
#include "platform/image/image.h"
#include "support/ftp_server.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QTest>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>

namespace mrd::desktop {
namespace {

using ui::Button;

constexpr std::size_t kMostPages = 40;
constexpr int kActsBetweenLooks = 20, kShortActs = 40;
constexpr qint64 kHourMilliseconds = 3'600'000;

/// What the process holds: resident memory in kilobytes, and open files.
struct Holdings {
  long kilobytes = 0;
  long files = 0;
};

Holdings holdings()
{
  Holdings now;
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (word == "VmRSS:")
      status >> now.kilobytes;
  now.files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  return now;
}

class LongUse : public testing::Test {
protected:
  LongUse()
  {
    std::filesystem::create_directories(site_ / "pix");
    std::filesystem::create_directories(project_.directory().native() / "fotos");
    image::Image::create(900, 600).saveJpeg(photo(), 2);
    for (const auto& [key, value] : std::map<std::string, std::string>{{"Exportpfad", project_.directory().path() + "\\site\\"},
                                                                       {"grundlayout", "Navigation linke Seite"},
                                                                       {"ftpverzeichnis", "web"},
                                                                       {"ftpserver", server_.server()},
                                                                       {"ftpuser", server_.user()},
                                                                       {"ftppasswort", server_.password()}})
      project_.setSetting(key, value);
    home_.lastWorkedOn(project_.file());
    desk_ = std::make_unique<Desk>(home_);
    desk_->start();
  }

  std::string photo() const { return project_.directory().file("fotos\\moewe.jpg"); }
  std::size_t number(std::size_t below) { return std::uniform_int_distribution<std::size_t>(0, below - 1)(random_); }
  /// Not the home page, as far as there is another.
  std::string anyPage()
  {
    const auto ids = project_.ids();
    return "@" + ids[ids.size() > 1 ? 1 + number(ids.size() - 1) : 0];
  }

  void openPage()
  {
    desk_->tree().expandAll();
    desk_->clickNode(anyPage());
  }
  void type()
  {
    desk_->window().activateWindow();
    desk_->surface().setFocus();
    QWidget* const page = desk_->surface().findChild<QWebEngineView*>()->focusProxy();
    QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(30, 60));
    QTest::keyClicks(page, "wind ");
    desk_->settle();
  }
  void press(const char* action)
  {
    desk_->action(action).trigger();
    desk_->settle();
  }
  void save() { press("seitespeichern"); }
  void newPage()
  {
    if (project_.ids().size() >= kMostPages)
      return deletePage();
    press("seiteneu");
    desk_->surface().setBodyInnerHtml("<h3 id=\"ueberschrift\">Seite " + std::to_string(++pages_) + "</h3><p>Text</p>");
    save();
  }
  void deletePage()
  {
    openPage();
    desk_->answers.buttons = {Button::Yes};
    press("seitelöschen");
  }
  void movePage()
  {
    desk_->tree().expandAll();
    desk_->answers.dialogs = {[](QDialog& dialog) {
      dialog.findChild<QAbstractButton*>("btnMove")->click();
      // A place that is refused leaves the dialog open.
      dialog.reject();
    }};
    desk_->dragNode(anyPage(), anyPage());
  }
  void insertPicture()
  {
    desk_->answers.dialogs = {[](QDialog& dialog) {
                                dialog.findChild<QAbstractButton*>("cbbild")->click();
                                dialog.findChild<QAbstractButton*>("cbok")->click();
                              },
                              fileNamed(project_.directory().native() / "fotos/moewe.jpg")};
    press("pix_eins");
  }
  void inTheDialog(const std::function<void(QDialog&)>& work)
  {
    desk_->answers.dialogs = {[work](QDialog& dialog) {
      dialog.findChild<QAbstractButton*>("cbHTML")->click();
      work(dialog);
      dialog.findChild<QAbstractButton*>("cbabbrechen")->click();
    }};
    press("html");
  }
  void generate()
  {
    inTheDialog([](QDialog&) {});
  }
  void publish()
  {
    inTheDialog([this](QDialog& dialog) {
      dialog.findChild<QAbstractButton*>("cbftpverbindung")->click();
      desk_->answers.buttons = {Button::Yes};
      dialog.findChild<QAbstractButton*>("cbftp")->click();
    });
  }

  /// A rare act costs as much time as many that are quick.
  void act()
  {
    using Act = void (LongUse::*)();
    constexpr std::array<Act, 16> kActs{&LongUse::openPage, &LongUse::openPage,   &LongUse::openPage,      &LongUse::type,
                                        &LongUse::type,     &LongUse::type,       &LongUse::save,          &LongUse::save,
                                        &LongUse::newPage,  &LongUse::newPage,    &LongUse::newPage,       &LongUse::movePage,
                                        &LongUse::movePage, &LongUse::deletePage, &LongUse::insertPicture, &LongUse::generate};
    constexpr std::size_t kOneInForty = 40;
    if (number(kOneInForty) == 0)
      publish();
    else
      (this->*kActs[number(kActs.size())])();
    desk_->answers.buttons.clear();
    desk_->answers.dialogs.clear();
  }

  void expectWholeProject()
  {
    const auto ids = project_.ids();
    const std::set<std::string> known(ids.begin(), ids.end());
    EXPECT_EQ(known.size(), ids.size());
    EXPECT_TRUE(known.contains("00"));
    for (const auto& id : ids)
      EXPECT_TRUE(id.size() == 2 || known.contains(id.substr(0, id.size() - 2))) << id;
    QProcess check;
    check.start("sqlite3",
                QStringList{QString::fromStdString(files::nativePath(project_.file()).string()), "PRAGMA integrity_check"});
    ASSERT_TRUE(check.waitForFinished());
    EXPECT_EQ(check.readAllStandardOutput().trimmed(), "ok");
    EXPECT_FALSE(QApplication::activeModalWidget());
  }

  support::FtpServer server_{"pyftpdlib"};
  support::TemporaryProject project_{{"00", "Start", "<h3 id=\"ueberschrift\">Start</h3>"},
                                     {"01", "Haus", "<h3 id=\"ueberschrift\">Haus</h3><p>Text</p>"}};
  const std::filesystem::path site_ = project_.directory().native() / "site";
  ProgramHome home_;
  std::unique_ptr<Desk> desk_;
  std::mt19937 random_{20240517};
  int pages_ = 0;
};

} // namespace

TEST_F(LongUse, costs_no_memory_leaves_no_file_open_and_keeps_the_project_whole)
{
  const bool isLong = std::getenv("MRD_LONG") != nullptr;
  QElapsedTimer clock;
  clock.start();
  std::vector<Holdings> looks;
  for (int acts = 0; isLong ? clock.elapsed() < kHourMilliseconds : acts < kShortActs; ++acts) {
    act();
    if (acts % kActsBetweenLooks != kActsBetweenLooks - 1)
      continue;
    expectWholeProject();
    looks.push_back(holdings());
    if (HasFailure())
      break;
  }

  ASSERT_GE(looks.size(), 2U);
  // Caches fill in the first quarter; what grows behind it grows for ever.
  const Holdings& early = looks[looks.size() / 4];
  const Holdings& late = looks.back();
  std::cout << looks.size() * kActsBetweenLooks << " acts, " << early.kilobytes << " kB then " << late.kilobytes << " kB, "
            << early.files << " open files then " << late.files << std::endl;
  constexpr long kMostGrowthKilobytes = 100'000, kMostFiles = 20;
  EXPECT_LT(late.kilobytes, early.kilobytes + kMostGrowthKilobytes);
  EXPECT_LT(late.files, early.files + kMostFiles);
}

} // namespace mrd::desktop
