// What holds for every window in every language.

#include "desktop/looks/theme.h"
#include "desktop/windows/desk.h"
#include "mainform/menu_table.h"
#include "platform/ui/editing_commands.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWebEngineView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace mrd::desktop {
namespace {

using testing::IsEmpty;

class Captions : public testing::TestWithParam<const char*> {
protected:
  Captions()
  {
    home.lastWorkedOn(project.file(), 17700, 12000);
    home.setIniValue("Language", "Lang", GetParam());
    files::UserSettings(home.userSettingsFile()).setValue("Settings", "picSplitterLeft", "2400");
  }

  /// Controls whose text needs more room than they have.
  static std::vector<std::string> cut(const QWidget& window)
  {
    std::vector<std::string> found;
    for (const auto* const widget : window.findChildren<QWidget*>()) {
      const auto* const label = qobject_cast<const QLabel*>(widget);
      const auto* const button = qobject_cast<const QAbstractButton*>(widget);
      if ((!label && !button) || !widget->isVisible() || widget->parentWidget()->inherits("QTabBar"))
        continue;
      // The small arrows beside a field have no caption.
      if (const auto* const arrow = qobject_cast<const QToolButton*>(widget); arrow && arrow->arrowType() != Qt::NoArrow)
        continue;
      QSize needed = widget->minimumSizeHint();
      if (label && label->wordWrap())
        needed = {0, label->heightForWidth(label->width())};
      if (needed.width() > widget->width() || needed.height() > widget->height())
        found.push_back(widget->objectName().toStdString() + ": " + (label ? label->text() : button->text()).toStdString());
    }
    return found;
  }

  static QChar mnemonic(const QString& caption)
  {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i)
      if (caption[i] == '&' && caption[++i] != '&')
        return caption[i].toLower();
    return {};
  }
  static void count(std::map<QChar, QStringList>& uses, const QString& caption)
  {
    if (const QChar key = mnemonic(caption); !key.isNull())
      uses[key] << caption;
  }
  /// Captions that share a letter; of the given control and what stands in it.
  static std::vector<std::string> clashes(const QWidget& window, std::map<QChar, QStringList> uses = {})
  {
    for (const auto* const label : window.findChildren<QLabel*>())
      if (label->isVisible() && label->buddy() && label->buddy()->isEnabled())
        count(uses, label->text());
    for (const auto* const button : window.findChildren<QAbstractButton*>())
      if (button->isVisible() && button->isEnabled() && !button->inherits("QToolButton"))
        count(uses, button->text());
    std::vector<std::string> found;
    for (const auto& [key, captions] : uses)
      if (captions.size() > 1)
        found.push_back(captions.join(" | ").toStdString());
    return found;
  }
  /// Controls that a user who hears the window would not know.
  static std::vector<std::string> nameless(const QWidget& window)
  {
    std::vector<std::string> found;
    QList<const QWidget*> named;
    for (const auto* const label : window.findChildren<QLabel*>())
      named << label->buddy();
    for (const auto* const widget : window.findChildren<QWidget*>()) {
      const bool field = qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
                         qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractButton*>(widget);
      const auto* const button = qobject_cast<const QAbstractButton*>(widget);
      if (!field || !widget->isVisible() || widget->objectName().startsWith("qt_") || widget->objectName().isEmpty())
        continue;
      if (!named.contains(widget) && widget->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
        found.push_back(widget->objectName().toStdString());
    }
    return found;
  }

  void inEveryTab(Desk& desk, const std::function<void(QTabWidget& tabs, int page)>& look)
  {
    auto& tabs = desk.find<QTabWidget>("tabHtml");
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      desk.settle();
      look(tabs, page);
    }
  }

  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus", std::nullopt, std::nullopt, 4}};
  ProgramHome home;
};

TEST_P(Captions, have_room_in_every_tab)
{
  Desk desk(home);
  desk.start();
  desk.clickNode("@01");

  inEveryTab(desk, [&](QTabWidget&, int page) { EXPECT_THAT(cut(desk.window()), IsEmpty()) << "tab " << page; });
  desk.find<QTabWidget>("TabTree").setCurrentIndex(1);
  desk.settle();
  EXPECT_THAT(cut(desk.window()), IsEmpty());
}

TEST_P(Captions, share_no_letter_with_another_that_is_in_sight)
{
  Desk desk(home);
  desk.start();
  desk.clickNode("@01");
  std::map<QChar, QStringList> bar;
  for (const QAction* const menu : desk.find<QMenuBar>("menubar").actions())
    count(bar, menu->text());

  inEveryTab(desk, [&](QTabWidget&, int page) { EXPECT_THAT(clashes(desk.window(), bar), IsEmpty()) << "tab " << page; });
}

TEST_P(Captions, share_no_letter_in_a_menu)
{
  Desk desk(home);
  desk.start();
  for (const auto* const menu : desk.window().findChildren<QMenu*>()) {
    std::map<QChar, QStringList> uses;
    for (const QAction* const entry : menu->actions())
      count(uses, entry->text());
    for (const auto& [key, captions] : uses)
      EXPECT_EQ(captions.size(), 1) << captions.join(" | ").toStdString();
  }
}

TEST_P(Captions, name_every_field)
{
  Desk desk(home);
  desk.start();
  desk.clickNode("@01");

  inEveryTab(desk, [&](QTabWidget&, int page) { EXPECT_THAT(nameless(desk.window()), IsEmpty()) << "tab " << page; });
}

TEST_P(Captions, of_the_dialogs_have_room_and_letters_of_their_own)
{
  Desk desk(home);
  desk.start();
  const auto look = [&](QDialog& dialog) {
    letPass(50);
    EXPECT_THAT(cut(dialog), IsEmpty());
    EXPECT_THAT(clashes(dialog), IsEmpty());
    EXPECT_THAT(nameless(dialog), IsEmpty());
  };
  const auto lookAndLeave = [&](QDialog& dialog) {
    look(dialog);
    dialog.reject();
  };
  desk.answers.dialogs = {[&](QDialog& dialog) {
                            auto& tabs = *dialog.findChild<QTabWidget*>("TabAssistent");
                            for (int page = 0; page < tabs.count(); ++page) {
                              tabs.setCurrentIndex(page);
                              look(dialog);
                            }
                            dialog.reject();
                          },
                          lookAndLeave,
                          lookAndLeave,
                          lookAndLeave,
                          lookAndLeave,
                          lookAndLeave};
  desk.form().project().finishBackup();
  desk.action("HelpSub1_3").trigger();
  desk.action("HelpSub1_4").trigger();
  desk.action("html").trigger();
  desk.dragNode("@01", "@00");
  desk.find<QAbstractButton>("cbimode").click();
  desk.action("RestoreProject").trigger();

  EXPECT_EQ(desk.answers.dialogTitles.size(), 6U);
}

TEST_P(Captions, of_the_windows_beside_the_main_one_have_room_and_letters_of_their_own)
{
  Desk desk(home);
  desk.start();
  desk.action("pix_mehrere").trigger();
  auto& pictures = desk.form().pictures();
  desk.form().pictures().fileScan()->CheckBitmap_Click();
  pictures.converter().show(60);
  for (const auto* const name : {"FrmFileScan", "formobjektanzeigen", "frmBildkonvertierer"}) {
    auto& window = desk.find<QWidget>(name);
    letPass(50);
    ASSERT_TRUE(window.isVisible()) << name;
    EXPECT_THAT(cut(window), IsEmpty()) << name;
    EXPECT_THAT(clashes(window), IsEmpty()) << name;
    EXPECT_THAT(nameless(window), IsEmpty()) << name;
  }
  pictures.converter().unload();
}

TEST_P(Captions, of_the_shop_have_room_and_names)
{
  Desk desk(home);
  desk.start();
  desk.action("mnuShop").trigger();
  desk.settle();
  auto& shop = desk.find<QDialog>("frmmrdshop");

  EXPECT_THAT(cut(shop), IsEmpty());
  EXPECT_THAT(nameless(shop), IsEmpty());
  // The two German captions are fixed; the key goes from one to the other.
  const bool isGerman = std::string_view(GetParam()) == "GER";
  EXPECT_EQ(clashes(shop), isGerman ? std::vector<std::string>{"&Löschen | Neu &laden"} : std::vector<std::string>{});
  EXPECT_EQ(shop.windowTitle(), "Shop");
}

TEST_P(Captions, of_the_editors_dialogs_have_room_and_letters_of_their_own)
{
  Desk desk(home);
  desk.start();
  desk.surface().setDocumentHtml("<table border=1><tbody><tr><td>Zelle</td></tr></tbody></table>");
  desk.settle();
  QTest::mouseClick(desk.surface().findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, {}, QPoint(20, 20));
  desk.settle();
  const auto look = [&](QDialog& dialog) {
    letPass(50);
    EXPECT_THAT(cut(dialog), IsEmpty()) << dialog.objectName().toStdString();
    EXPECT_THAT(clashes(dialog), IsEmpty()) << dialog.objectName().toStdString();
    EXPECT_THAT(nameless(dialog), IsEmpty()) << dialog.objectName().toStdString();
  };
  const auto lookAndLeave = [&](QDialog& dialog) {
    look(dialog);
    dialog.reject();
  };
  for (const auto* const entry : {"TableSub_0", "InsertSub1_0", "InsertSub1_1", "InsertSub1_3", "mnuTableProperties"}) {
    desk.answers.dialogs.push_back(lookAndLeave);
    desk.action(entry).trigger();
  }
  desk.answers.dialogs.push_back(lookAndLeave);
  desk.surface().execCommand(ui::command::kFont, ui::Prompt::Ask);
  EXPECT_EQ(desk.answers.dialogTitles.size(), 6U);
  desk.find<QTabWidget>("tabHtml").setCurrentIndex(1);
  desk.settle();
  desk.action("editsub_11").trigger();
  look(desk.find<QDialog>("FormSuchenErsetzen"));
}

TEST_P(Captions, leave_entries_without_a_command_disabled)
{
  Desk desk(home);
  desk.start();
  desk.action("eng").trigger();
  desk.action("GER").trigger();
  for (const auto& entry : mainform::menuEntries()) {
    if (entry.caption == "-" || entry.menu.empty() || entry.name == "D2D")
      continue;
    std::string name(entry.name);
    if (entry.index)
      name += "_" + std::to_string(*entry.index);
    EXPECT_EQ(desk.action(name.c_str()).isEnabled(), entry.works) << name;
  }
}

TEST_P(Captions, bring_no_box_of_a_control_that_is_missing)
{
  Desk desk(home);
  desk.start();

  EXPECT_THAT(desk.answers.boxes, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Languages, Captions, testing::Values("GER", "ENG"), [](const auto& language) { return language.param; });

struct LanguageDatabase : testing::Test {
  LanguageDatabase() { home.lastWorkedOn(project.file()); }

  /// A row of the main window.
  void addRow(const char* type, const char* control, const char* language, const char* caption) const
  {
    dao::Database::open(home.directory.file("language.mdb"))
        .execute("INSERT INTO tbl_Language (FormName, ControlType, controlname, Language, CaptionText) "
                 "VALUES ('Mainform', ?, ?, ?, ?)",
                 {type, control, language, caption});
  }

  ProgramHome home;
  support::TemporaryProject project{{"00", "Start"}};
};

TEST_F(LanguageDatabase, with_rows_of_controls_that_do_not_exist_costs_a_box_for_each)
{
  addRow("Label", "LblFehlt", "GER", "Fehlt");
  Desk desk(home);

  EXPECT_TRUE(desk.start());

  ASSERT_EQ(desk.answers.boxes.size(), 1U);
  EXPECT_THAT(desk.answers.boxes.front(), testing::HasSubstr("Fehler beim Laden der Spracheinstellungen."));
  EXPECT_EQ(desk.window().windowTitle(), "Mirandel: Start");
}

TEST_F(LanguageDatabase, with_texts_for_fields_changes_no_page)
{
  addRow("TextBox", "tbdateiname", "ENG", "anders.htm");
  Desk desk(home);
  desk.start();

  desk.action("eng").trigger();

  EXPECT_FALSE(desk.form().pages().PageDirty());
  EXPECT_EQ(desk.form().pages().fields.tbdateiname, "*.htm");
  EXPECT_EQ(desk.find<QLineEdit>("tbdateiname").text(), "*.htm");
}

} // namespace
} // namespace mrd::desktop
