#include "desktop/windows/desk.h"

#include "desktop/editing/web_editing_surface.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QWebEngineView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using ui::Button;

constexpr int kEditor = 0, kSource = 1, kPageSettings = 2;

struct Pages : testing::Test {
  Pages()
  {
    home.lastWorkedOn(project.file());
    desk = std::make_unique<Desk>(home);
    desk->start();
    desk->clickNode("@01");
  }

  void type(const char* text)
  {
    desk->window().activateWindow();
    desk->surface().setFocus();
    QWidget* const page = desk->surface().findChild<QWebEngineView*>()->focusProxy();
    QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(30, 60));
    letPass(200);
    QTest::keyClicks(page, text);
    letPass(200);
  }
  std::string html(std::string_view id) { return project.column(id, "html").text(); }

  support::TemporaryProject project{{"00", "Start", heading("Start")},
                                    {"01", "Haus", heading("Haus") + "<p>Text</p>"},
                                    {"0101", "Küche", heading("Küche")},
                                    {"02", "Garten", heading("Garten")},
                                    {"03", "Server", heading("Server") + "<?php echo 1 ?>", "seite.php"}};
  ProgramHome home;
  std::unique_ptr<Desk> desk;
};

TEST_F(Pages, open_by_a_click_in_the_tree)
{
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Haus");
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Text"));
}

TEST_F(Pages, open_by_the_arrow_keys)
{
  desk->tree().setFocus();

  QTest::keyClick(&desk->tree(), Qt::Key_Up);
  desk->settle();

  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Start");
}

TEST_F(Pages, change_the_trees_label_with_their_heading_when_saved)
{
  desk->writeSource(heading("Mein Haus") + "<p>Neu</p>");

  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_EQ(desk->node("@01")->text(0), "Mein Haus");
  EXPECT_EQ(project.column("01", "Überschrift").text(), "Mein Haus");
  EXPECT_THAT(html("01"), HasSubstr("Neu"));
  EXPECT_FALSE(desk->form().pages().PageDirty());
}

TEST_F(Pages, are_dirty_by_typing_and_saved_by_the_next_click_in_the_tree)
{
  type("Hallo");
  ASSERT_TRUE(comesTrue([&] { return desk->form().pages().PageDirty(); }));

  desk->clickNode("@02");

  EXPECT_THAT(html("01"), HasSubstr("Hallo"));
  EXPECT_THAT(desk->answers.boxes, IsEmpty());
}

TEST_F(Pages, three_new_ones_stand_on_two_levels)
{
  desk->clickNode("@02");
  for (const auto* const text : {"Beete", "Wiese"}) {
    desk->clickNode("@02");
    desk->action("seiteneu").trigger();
    desk->settle();
    desk->writeSource(heading(text));
    desk->action("seitespeichern").trigger();
    desk->settle();
  }
  desk->clickNode("@0201");
  desk->action("SeiteSub_0").trigger();
  desk->settle();
  desk->writeSource(heading("Rosen"));
  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_EQ(project.column("0201", "Überschrift").text(), "Beete");
  EXPECT_EQ(project.column("0202", "Überschrift").text(), "Wiese");
  EXPECT_EQ(project.column("020101", "Überschrift").text(), "Rosen");
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Neue Seite");
}

TEST_F(Pages, without_a_heading_are_called_by_three_strokes)
{
  desk->writeSource(heading(""));

  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_EQ(desk->node("@01")->text(0), "- - -");
}

TEST_F(Pages, with_server_code_take_their_text_from_the_view_when_the_user_says_so)
{
  desk->clickNode("@03");
  desk->answers.buttons = {Button::Yes};

  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kSource);
  desk->settle();

  EXPECT_THAT(desk->answers.boxes, ElementsAre(HasSubstr("Programmcode für den Server")));
  EXPECT_THAT(desk->find<QPlainTextEdit>("tbhtml").toPlainText().toStdString(), Not(HasSubstr("<?php echo 1 ?>")));
}

TEST_F(Pages, with_server_code_keep_their_text_when_the_user_refuses)
{
  desk->clickNode("@03");
  desk->answers.buttons = {Button::No};
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kSource);
  desk->settle();
  auto& source = desk->find<QPlainTextEdit>("tbhtml");
  EXPECT_THAT(source.toPlainText().toStdString(), HasSubstr("<?php echo 1 ?>"));
  source.setPlainText(source.toPlainText() + "<p>mehr</p>");

  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_THAT(html("03"), HasSubstr("<?php echo 1 ?>"));
  EXPECT_THAT(html("03"), HasSubstr("<p>mehr</p>"));
}

TEST_F(Pages, keep_file_name_and_type)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kPageSettings);
  desk->find<QLineEdit>("tbdateiname").setText("haus-*.htm");
  desk->find<QRadioButton>("opseitentyp_3").click();

  desk->action("seitespeichern").trigger();
  desk->settle();

  EXPECT_EQ(project.column("01", "dateiname").text(), "haus-*.htm");
  EXPECT_EQ(project.column("01", "seitentyp-id").integer(), 3);
}

TEST_F(Pages, show_what_belongs_to_auctions_only_on_their_type)
{
  desk->find<QTabWidget>("tabHtml").setCurrentIndex(kPageSettings);
  auto& frame = desk->find<QWidget>("FrmEbay");
  EXPECT_FALSE(frame.isVisible());

  desk->find<QRadioButton>("opseitentyp_4").click();

  EXPECT_TRUE(frame.isVisible());
}

TEST_F(Pages, are_deleted_after_a_question_that_names_what_goes_with_them)
{
  desk->answers.buttons = {Button::Yes, Button::Yes};
  desk->tree().setFocus();
  QTest::keyClick(&desk->tree(), Qt::Key_Delete);
  desk->settle();
  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "02"));
  EXPECT_EQ(project.column("01", "Überschrift").text(), "Garten");
  desk->clickNode("@02");

  desk->action("seitelöschen").trigger();
  desk->settle();

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Soll diese Seite mit allen ihren Unterseiten wirklich gelöscht werden?",
                                               "Soll diese Seite wirklich gelöscht werden?"));
  EXPECT_THAT(project.ids(), ElementsAre("00", "01"));
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Start");
}

TEST_F(Pages, stay_when_the_user_does_not_want_them_deleted)
{
  desk->answers.buttons = {Button::No};

  desk->action("seitelöschen").trigger();
  desk->settle();

  EXPECT_THAT(project.ids(), SizeIs(5));
}

TEST_F(Pages, are_moved_behind_another_by_a_drag)
{
  std::string source, target;
  desk->answers.dialogs.push_back([&](QDialog& dialog) {
    source = dialog.findChild<QLabel*>("lblMove_0")->text().toStdString();
    target = dialog.findChild<QLabel*>("lblMove_1")->text().toStdString();
    dialog.findChild<QAbstractButton*>("btnMove")->click();
  });

  desk->dragNode("@01", "@02");

  EXPECT_EQ(source, "Haus");
  EXPECT_EQ(target, "Garten");
  EXPECT_EQ(project.column("01", "Überschrift").text(), "Garten");
  EXPECT_EQ(project.column("02", "Überschrift").text(), "Haus");
  EXPECT_EQ(project.column("0201", "Überschrift").text(), "Küche");
  EXPECT_EQ(desk->node("@02")->text(0), "Haus");
}

TEST_F(Pages, stay_where_they_are_when_the_move_is_cancelled)
{
  desk->answers.dialogs.push_back([](QDialog& dialog) { dialog.reject(); });

  desk->dragNode("@01", "@02");

  EXPECT_EQ(project.column("01", "Überschrift").text(), "Haus");
  EXPECT_THAT(desk->answers.dialogTitles, ElementsAre("Seite(n) verschieben"));
}

TEST_F(Pages, the_home_page_cannot_be_dragged)
{
  desk->dragNode("@00", "@02");

  EXPECT_THAT(desk->answers.boxes, ElementsAre("Die Homepage kann nicht verschoben werden."));
  EXPECT_THAT(desk->answers.dialogTitles, IsEmpty());
}

TEST_F(Pages, dropped_beside_all_nodes_stay_where_they_are)
{
  QWidget* const view = desk->tree().viewport();
  const QPoint nowhere(view->width() / 2, view->height() - 20);
  QTest::mousePress(view, Qt::LeftButton, {}, desk->tree().visualItemRect(desk->node("@01")).center());
  desk->settle();
  for (const QPoint point : {desk->tree().visualItemRect(desk->node("@02")).center(), nowhere, nowhere}) {
    QMouseEvent move(QEvent::MouseMove, point, view->mapToGlobal(point), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(view, &move);
  }
  QTest::mouseRelease(view, Qt::LeftButton, {}, nowhere);
  desk->settle();

  EXPECT_THAT(desk->answers.dialogTitles, IsEmpty());
  EXPECT_EQ(project.column("01", "Überschrift").text(), "Haus");
}

TEST_F(Pages, nodes_with_one_child_open_without_a_second_one)
{
  desk->node("@01")->setExpanded(true);

  EXPECT_EQ(desk->node("@01")->childCount(), 1);
  EXPECT_EQ(desk->node("@0101")->text(0), "Küche");
}

TEST_F(Pages, the_head_shows_the_title_until_it_is_saved)
{
  desk->find<QLineEdit>("tbtitel").setText("Möwensand");
  auto& tabs = desk->find<QTabWidget>("tabHtml");
  auto& tree = desk->find<QTabWidget>("TabTree");

  tree.setCurrentIndex(1);
  desk->settle();

  EXPECT_EQ(tabs.tabText(kEditor), "Seitenkopf");
  EXPECT_FALSE(tabs.isTabEnabled(kPageSettings));
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Möwensand"));
  EXPECT_EQ(project.setting("KopfHTML"), std::nullopt);

  desk->action("seitespeichern").trigger();
  desk->settle();
  EXPECT_THAT(project.setting("KopfHTML").value_or(""), HasSubstr("Möwensand"));

  tree.setCurrentIndex(0);
  desk->settle();
  EXPECT_EQ(tabs.tabText(kEditor), "Normal");
  EXPECT_TRUE(tabs.isTabEnabled(kPageSettings));
  EXPECT_EQ(desk->window().windowTitle(), "Mirandel: Haus");
}

TEST_F(Pages, that_cannot_be_saved_stay_in_the_editor_and_dirty)
{
  desk->writeSource(heading("Haus") + "<p>Ungesichert</p>");
  project.db().execute("DROP TABLE Seite");

  desk->action("seitespeichern").trigger();
  desk->settle();

  ASSERT_THAT(desk->answers.boxes, Not(IsEmpty()));
  EXPECT_THAT(desk->answers.boxes.front(), HasSubstr("SavePage"));
  EXPECT_TRUE(desk->form().pages().PageDirty());
  EXPECT_THAT(desk->surface().bodyInnerHtml(), HasSubstr("Ungesichert"));
  desk->answers.buttons = {Button::No};
}

} // namespace
} // namespace mrd::desktop
