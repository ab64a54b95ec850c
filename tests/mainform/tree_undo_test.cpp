// The last deletion or move, taken back from the menu.

#include "main_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using Change = pagetree::TreeUndo::Change;

struct TreeUndoTest : testing::Test, OpenMainWindow {
  TreeUndoTest()
  {
    start();
    dialogs.move = [](pagetree::frmMove1& form) {
      form.Form_Load();
      form.btnMove_Click();
    };
  }

  void deletes(const std::string& key, int message)
  {
    click(key);
    ui.expect(message, "", ui::Button::Yes);
    window.Toolbar2_ButtonClick("seitelöschen");
  }
  void undoes() { window.menu_Click("mnuSeitenZurueck", std::nullopt); }
  void types(const std::string& heading)
  {
    surface.setBodyInnerHtml("<h3 id=\"ueberschrift\">" + heading + "</h3>");
    window.pages().changed();
  }
  /// Ids with their headings.
  std::vector<std::string> pages()
  {
    std::vector<std::string> out;
    for (const auto& id : project.ids())
      out.push_back(id + " " + text(id, "Überschrift"));
    return out;
  }
};

TEST_F(TreeUndoTest, brings_deleted_pages_back_and_shows_the_one_that_was_open)
{
  deletes("@01", 23);
  ASSERT_THAT(pages(), ElementsAre("00 Start", "01 Garten", "02 Hof"));
  ASSERT_EQ(active(), "@00");
  EXPECT_EQ(window.treeUndoCaption(), "&Löschen der Seite(n) rückgängig");

  undoes();

  EXPECT_THAT(pages(), ElementsAre("00 Start", "01 Haus", "0101 Küche", "02 Garten", "03 Hof"));
  EXPECT_EQ(active(), "@01");
  EXPECT_EQ(tree.selected(), "@01");
  EXPECT_EQ(surface.bodyInnerHtml(), "<h3 id=\"ueberschrift\">Haus</h3><p>Dach</p>");
  EXPECT_EQ(text("01", "dateiname"), "haus_*.htm");
}

TEST_F(TreeUndoTest, brings_a_moved_page_back)
{
  click("@01");
  dropOn("@03");
  ASSERT_THAT(pages(), ElementsAre("00 Start", "01 Garten", "02 Hof", "03 Haus", "0301 Küche"));
  EXPECT_EQ(window.treeUndoCaption(), "&Verschieben rückgängig");

  undoes();

  EXPECT_THAT(pages(), ElementsAre("00 Start", "01 Haus", "0101 Küche", "02 Garten", "03 Hof"));
  EXPECT_EQ(active(), "@01");
}

TEST_F(TreeUndoTest, saves_what_is_in_the_editor_and_keeps_it)
{
  deletes("@01", 23);
  click("@02");
  types("Innenhof");

  undoes();

  EXPECT_THAT(pages(), ElementsAre("00 Start", "01 Haus", "0101 Küche", "02 Garten", "03 Innenhof"));
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(TreeUndoTest, keeps_a_page_that_is_new_and_not_yet_saved)
{
  deletes("@02", 22);
  click("@00");
  window.Toolbar2_ButtonClick("seiteneu");
  types("Keller");

  undoes();

  EXPECT_THAT(pages(), ElementsAre("00 Start", "01 Haus", "0101 Küche", "02 Garten", "03 Hof", "04 Keller"));
}

TEST_F(TreeUndoTest, brings_back_which_nodes_were_open)
{
  project.db().execute("UPDATE Seite SET expanded = TRUE WHERE ID = '01'");
  deletes("@01", 23);

  undoes();

  EXPECT_TRUE(tree.expanded("@01"));
}

TEST_F(TreeUndoTest, does_nothing_a_second_time_and_where_there_is_nothing)
{
  click("@02");
  undoes();
  EXPECT_EQ(active(), "@02");
  EXPECT_EQ(window.treeUndoCaption(), "&Löschen oder Verschieben rückgängig");

  deletes("@02", 22);
  undoes();
  click("@03");
  undoes();

  EXPECT_EQ(active(), "@03");
  EXPECT_EQ(window.pages().treeChange(), Change::None);
}

TEST_F(TreeUndoTest, is_of_the_project_that_is_open)
{
  deletes("@02", 22);
  support::TemporaryProject other{{"00", "Andere"}, {"01", "Seite"}};
  ui.answerOpenDialog(other.file());

  window.OpenProject_Click();
  undoes();

  EXPECT_EQ(window.pages().treeChange(), Change::None);
  EXPECT_THAT(other.ids(), ElementsAre("00", "01"));
  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101", "02"));
}

TEST_F(TreeUndoTest, is_refused_where_another_program_has_changed_the_tree)
{
  deletes("@02", 22);
  project.db().execute("DELETE * FROM Seite WHERE id = '02'");
  ui.expect(168);

  undoes();

  EXPECT_THAT(project.ids(), ElementsAre("00", "01", "0101"));
  EXPECT_EQ(active(), "@00");
}

TEST_F(TreeUndoTest, leads_back_from_the_head_of_the_site)
{
  deletes("@02", 22);
  selectTreeTab(1);

  undoes();

  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(active(), "@02");
}

} // namespace
} // namespace mrd::mainform
