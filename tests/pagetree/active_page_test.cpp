#include "pagetree/active_page.h"

#include "pagetree/plain_tree.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

struct ActivePageTest : testing::Test {
  ActivePageTest() { fillTree(tree, project.db()); }

  void removeRow() { project.db().execute("DELETE * FROM Einstellungen WHERE Einstellung = 'LastActivePage'"); }

  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}};
  support::ScriptedUi ui;
  PlainTree tree;
  ActivePage active{project.db(), tree, ui};
};

TEST_F(ActivePageTest, is_stored_without_its_at_sign)
{
  active.LastActivePage = "@0101";

  active.WriteLastActivePage();

  EXPECT_EQ(project.setting("LastActivePage"), "0101");
}

TEST_F(ActivePageTest, is_stored_as_the_root_before_one_was_chosen)
{
  project.setSetting("LastActivePage", "0101");

  active.WriteLastActivePage();

  EXPECT_EQ(project.setting("LastActivePage"), "00");
}

TEST_F(ActivePageTest, leaves_a_missing_row_missing_when_it_is_written)
{
  removeRow();
  active.LastActivePage = "@01";

  active.WriteLastActivePage();

  EXPECT_EQ(project.setting("LastActivePage"), std::nullopt);
}

TEST_F(ActivePageTest, is_taken_from_the_project_blanks_around_it_aside)
{
  project.setSetting("LastActivePage", " 0101 ");

  active.SetLastActivePage();

  EXPECT_EQ(tree.selected(), "@0101");
  EXPECT_EQ(active.LastActivePage, "@0101");
  EXPECT_GT(ui.eventPumps, 0);
}

TEST_F(ActivePageTest, is_the_root_where_the_row_is_missing_which_is_then_added)
{
  removeRow();

  active.SetLastActivePage();

  EXPECT_EQ(project.setting("LastActivePage"), "00");
  EXPECT_EQ(tree.selected(), "@00");
}

TEST_F(ActivePageTest, that_was_deleted_leaves_the_selection_as_it_is_without_a_word)
{
  project.setSetting("LastActivePage", "0707");
  tree.select("@01");
  active.LastActivePage = "@01";

  active.SetLastActivePage();

  EXPECT_EQ(tree.selected(), "@01");
  EXPECT_EQ(active.LastActivePage, "@01");
}

TEST_F(ActivePageTest, that_cannot_be_read_or_written_is_told_in_the_plain_form)
{
  project.db().execute("DROP TABLE Einstellungen");
  ui.expect(0, " in Modul WriteLastActivePage.").expect(0, " in Modul SetLastActivePage.");

  active.WriteLastActivePage();
  active.SetLastActivePage();

  EXPECT_EQ(ui.messages.size(), 2u);
}

} // namespace
} // namespace mrd::pagetree
